// The effects of the palette, by what they are made with. Each makes a picture (8 bits, blue, green, red)
// anew, by a style.
#pragma once

#include "engine/effects/palette/style.h"

#include <opencv2/core.hpp>

namespace kvo::engine::palette {

// Strokes of brush, pencil and chalk: strokes.cpp.
void angledStrokes(cv::Mat& bgr, const Style& style);
void chalkCharcoal(cv::Mat& bgr, const Style& style);
void charcoal(cv::Mat& bgr, const Style& style);
void colouredPencil(cv::Mat& bgr, const Style& style);
void crosshatch(cv::Mat& bgr, const Style& style);
void darkStrokes(cv::Mat& bgr, const Style& style);
void smudgeStick(cv::Mat& bgr, const Style& style);
void sprayedStrokes(cv::Mat& bgr, const Style& style);
void sumie(cv::Mat& bgr, const Style& style);
void graphicPen(cv::Mat& bgr, const Style& style);
void conteCrayon(cv::Mat& bgr, const Style& style);
void roughPastel(cv::Mat& bgr, const Style& style);

// Paint: paint.cpp.
void cutout(cv::Mat& bgr, const Style& style);
void dryBrush(cv::Mat& bgr, const Style& style);
void fresco(cv::Mat& bgr, const Style& style);
void paintDaubs(cv::Mat& bgr, const Style& style);
void paletteKnife(cv::Mat& bgr, const Style& style);
void sponge(cv::Mat& bgr, const Style& style);
void watercolor(cv::Mat& bgr, const Style& style);
void waterPaper(cv::Mat& bgr, const Style& style);
void underpainting(cv::Mat& bgr, const Style& style);

// Edges and inks: ink.cpp.
void accents(cv::Mat& bgr, const Style& style);
void inkOutline(cv::Mat& bgr, const Style& style);
void posterEdges(cv::Mat& bgr, const Style& style);
void stamp(cv::Mat& bgr, const Style& style);
void photocopy(cv::Mat& bgr, const Style& style);
void tornEdges(cv::Mat& bgr, const Style& style);
void halfTone(cv::Mat& bgr, const Style& style);
void reticulation(cv::Mat& bgr, const Style& style);

// Light: light.cpp.
void chrome(cv::Mat& bgr, const Style& style);
void diffuseGlow(cv::Mat& bgr, const Style& style);
void glowingEdges(cv::Mat& bgr, const Style& style);
void neonGlow(cv::Mat& bgr, const Style& style);
void plasticWrap(cv::Mat& bgr, const Style& style);
void filmGrain(cv::Mat& bgr, const Style& style);
void grain(cv::Mat& bgr, const Style& style);

// Surfaces: surfaces.cpp.
void basRelief(cv::Mat& bgr, const Style& style);
void emboss(cv::Mat& bgr, const Style& style);
void notePaper(cv::Mat& bgr, const Style& style);
void plaster(cv::Mat& bgr, const Style& style);
void texturizer(cv::Mat& bgr, const Style& style);
void craquelure(cv::Mat& bgr, const Style& style);

// Cells and glass: cells.cpp.
void mosaic(cv::Mat& bgr, const Style& style);
void patchwork(cv::Mat& bgr, const Style& style);
void stainedGlass(cv::Mat& bgr, const Style& style);
void glass(cv::Mat& bgr, const Style& style);
void ripple(cv::Mat& bgr, const Style& style);
void spatter(cv::Mat& bgr, const Style& style);

}  // namespace kvo::engine::palette
