// The toolbar of Free Zoom, taken apart: the ground and the glyphs of its picture, so that it can be drawn at
// any width with the glyphs as they are.
#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRect>
#include <string>

class QPainter;

namespace kvo {

class ToolbarPicture {
 public:
  /// What is at `path` for this interface size.
  void load(const std::string& path, double interfaceSize, double pixelRatio);

  /// Fills `place` with the ground, as wide as that is.
  void drawGround(QPainter& painter, const QRect& place) const;

  /// The glyph of the label that stands at `left` and `width` of the picture, both as parts of its width,
  /// drawn in the middle of `place`, in `colour`.
  void drawGlyph(QPainter& painter, const QRect& place, double left, double width,
                 const QColor& colour) const;

 private:
  QImage picture_;
  double ratio_ = 1;  // pixels of the picture to a logical one
};

}  // namespace kvo
