#include "ui/skin_outline.h"

#include "ui/dib_section.h"
#include "ui/pictures.h"

#include <QPainter>
#include <algorithm>

namespace kvo {
namespace {

constexpr std::uint32_t kBlack = 0;

// Pixels of the mask's picture, which lie inside or outside, never between: no smoothing.
QImage stretchedMask(const QImage& mask, QSize size) {
  return mask.convertToFormat(QImage::Format_RGB32)
      .scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

// 255 where the mask is not black.
QImage insideOf(const QImage& mask) {
  QImage inside(mask.size(), QImage::Format_Alpha8);
  for (int y = 0; y < mask.height(); ++y) {
    const auto* from = reinterpret_cast<const QRgb*>(mask.constScanLine(y));
    std::transform(from, from + mask.width(), inside.scanLine(y),
                   [](QRgb pixel) { return (pixel & RGB_MASK) == 0 ? uchar{0} : uchar{255}; });
  }
  return inside;
}

// Each pixel is made from itself and its two neighbours, once along the rows and once along the columns; what
// is asked for beyond the picture is `beyond` of the nearest pixel.
template <class Beyond, class Mix>
QImage fromNeighbours(const QImage& picture, const Beyond& beyond, const Mix& mix) {
  const int w = picture.width(), h = picture.height();
  QImage across(picture.size(), picture.format()), both(picture.size(), picture.format());
  for (int y = 0; y < h; ++y) {
    const auto* from = picture.constScanLine(y);
    auto* to = across.scanLine(y);
    for (int x = 0; x < w; ++x) {
      to[x] = mix(x > 0 ? from[x - 1] : beyond(from[x]), from[x], x + 1 < w ? from[x + 1] : beyond(from[x]));
    }
  }
  for (int y = 0; y < h; ++y) {
    const auto* middle = across.constScanLine(y);
    const auto* above = y > 0 ? across.constScanLine(y - 1) : nullptr;
    const auto* below = y + 1 < h ? across.constScanLine(y + 1) : nullptr;
    auto* to = both.scanLine(y);
    for (int x = 0; x < w; ++x) {
      to[x] = mix(above != nullptr ? above[x] : beyond(middle[x]), middle[x],
                  below != nullptr ? below[x] : beyond(middle[x]));
    }
  }
  return both;
}

// Straight edges of the window stay sharp.
QImage softened(const QImage& inside) {
  const auto mean = [](int a, int b, int c) { return static_cast<uchar>((a + b + c) / 3); };
  return fromNeighbours(
      inside, [](uchar pixel) { return pixel; }, mean);
}

QImage shrunk(QImage inside, int pixels) {
  const auto least = [](uchar a, uchar b, uchar c) { return std::min({a, b, c}); };
  for (; pixels > 0; --pixels)
    inside = fromNeighbours(
        inside, [](uchar) { return uchar{0}; }, least);
  return inside;
}

// The alpha of the lighter line at this height of the window, 0 to 1: light falls from above.
double lightAt(double height) {
  constexpr double kTop = 0.38, kBend = 0.25, kAtBend = 0.10, kFoot = 0.05;
  if (height < kBend) return kTop + (kAtBend - kTop) * height / kBend;
  return kAtBend + (kFoot - kAtBend) * (height - kBend) / (1 - kBend);
}

QImage rimOf(const QImage& inside, int width) {
  constexpr double kDark = 0.75;
  const auto within = shrunk(inside, width);
  const auto core = softened(shrunk(within, width));
  const auto soft = softened(within);
  QImage rim(inside.size(), QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < rim.height(); ++y) {
    const double light = lightAt(static_cast<double>(y) / rim.height());
    auto* to = reinterpret_cast<QRgb*>(rim.scanLine(y));
    for (int x = 0; x < rim.width(); ++x) {
      const int outer = 255 - soft.constScanLine(y)[x];
      const int inner = std::max(0, soft.constScanLine(y)[x] - core.constScanLine(y)[x]);
      const int white = qRound(light * inner);
      to[x] = qRgba(white, white, white, std::min(255, white + qRound(kDark * outer)));
    }
  }
  return rim;
}

}  // namespace

Outcome SkinOutline::load(std::string path, const FaceSize& size) {
  if (path == path_ && size == size_ && (path.empty() || !inside_.isNull())) return {};
  path_ = std::move(path);
  size_ = size;
  region_.Destroy();
  inside_ = rim_ = QImage();
  return path_.empty() ? Outcome() : read();
}

Outcome SkinOutline::read() {
  const auto mask = loadPicture(reading_, pictureFile(path_, size_.scale()).path);
  if (!mask) return mask.error();
  cDIBSection surface;
  surface.CreateFromPicture(stretchedMask(*mask, size_.window));
  region_.Create(surface, kBlack);
  if (region_.region() == nullptr || region_.region()->rectangles.empty()) {
    region_.Destroy();
    return Error{"cannot shape the window by the mask " + path_ + ": all of it is black"};
  }
  const auto inside = insideOf(stretchedMask(*mask, size_.device()));
  rim_ = rimOf(inside, std::max(1, qRound(size_.scale())));
  inside_ = softened(inside);
  rim_.setDevicePixelRatio(size_.pixelRatio);
  inside_.setDevicePixelRatio(size_.pixelRatio);
  return {};
}

void SkinOutline::paintRim(QPainter& painter) const {
  if (!rim_.isNull()) painter.drawImage(0, 0, rim_);
}

void SkinOutline::soften(QPainter& painter) const {
  if (inside_.isNull()) return;
  painter.save();
  painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  painter.drawImage(0, 0, inside_);
  painter.restore();
}

}  // namespace kvo
