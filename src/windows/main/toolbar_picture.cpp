#include "windows/main/toolbar_picture.h"

#include "windows/main/part_pictures.h"

#include <QPainter>
#include <algorithm>

namespace kvo {
namespace {

constexpr double kGroundAt = 1.0 / 253;   // of the width: ahead of the first glyph
constexpr double kGlyphFoot = 28.0 / 46;  // of the height: the slider's slot lies below
constexpr int kFullLight = 220;           // of a glyph's inside

}  // namespace

void ToolbarPicture::load(const std::string& path, double interfaceSize, double pixelRatio) {
  const auto picture = partPicture(path, interfaceSize, pixelRatio);
  ratio_ = picture.devicePixelRatio();
  picture_ = picture.toImage().convertToFormat(QImage::Format_RGB32);
}

void ToolbarPicture::drawGround(QPainter& painter, const QRect& place) const {
  if (picture_.isNull()) return;
  const int x = qRound(picture_.width() * kGroundAt);
  painter.drawImage(place, picture_, QRect(x, 0, 1, picture_.height()));
}

// What is brighter than the ground of its row is glyph, and covers as much as it is brighter.
void ToolbarPicture::drawGlyph(QPainter& painter, const QRect& place, double left, double width,
                               const QColor& colour) const {
  if (picture_.isNull()) return;
  const int from = std::max(qRound(left * picture_.width()), 0);
  const int to = std::min(qRound((left + width) * picture_.width()), picture_.width());
  const int foot = qRound(picture_.height() * kGlyphFoot);
  const int groundAt = qRound(picture_.width() * kGroundAt);
  if (to <= from) return;
  QImage glyph(to - from, foot, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < foot; ++y) {
    const int ground = qGray(picture_.pixel(groundAt, y));
    for (int x = from; x < to; ++x) {
      const int over = qGray(picture_.pixel(x, y)) - ground;
      const int alpha = std::clamp(over * 255 / std::max(kFullLight - ground, 1), 0, 255);
      glyph.setPixel(x - from, y, qPremultiply(qRgba(colour.red(), colour.green(), colour.blue(), alpha)));
    }
  }
  glyph.setDevicePixelRatio(ratio_);
  const auto size = glyph.deviceIndependentSize();
  painter.drawImage(QPointF(place.center().x() + 0.5 - size.width() / 2, place.top()), glyph);
}

}  // namespace kvo
