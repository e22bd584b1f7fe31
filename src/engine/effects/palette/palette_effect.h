// The palette of 48 named effects in the manner of painting and print.
#pragma once

#include "engine/effects/registry.h"

#include <span>
#include <string_view>

namespace kvo::engine {

/// The parameters "EffectID" (1 to 48), "Transparency" (the level: 0 leaves the picture as it is, 100 or none
/// is the whole effect), "Control1Value" to "Control8Value" (see Style), "RGBForeColor", "RGBBackColor",
/// "RGBExtraColor" and "TextureURL" (colours). An id that is not known changes nothing.
DrawEffect makePaletteEffect(const Params& params, int width, int height);

/// Of the grains: they are others in each frame.
bool paletteEffectMoves(const Params& params);

/// The names, the first that of id 1.
std::span<const std::string_view> paletteNames();

}  // namespace kvo::engine
