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

// A picture of one byte a pixel, read at places that need not be in it.
class Mask {
 public:
  // Beyond the picture its nearest pixel goes on, or there is nothing.
  enum class Beyond { Same, Nothing };

  Mask(const QImage& picture, Beyond beyond) : picture_(picture), beyond_(beyond) {}

  [[nodiscard]] int at(int x, int y) const {
    if (beyond_ == Beyond::Nothing && !picture_.valid(x, y)) return 0;
    return picture_.constScanLine(
        std::clamp(y, 0, picture_.height() - 1))[std::clamp(x, 0, picture_.width() - 1)];
  }

  // Each pixel by its place.
  template <class Made>
  [[nodiscard]] QImage made(const Made& pixel) const {
    QImage out(picture_.size(), picture_.format());
    for (int y = 0; y < out.height(); ++y) {
      auto* row = out.scanLine(y);
      for (int x = 0; x < out.width(); ++x) row[x] = static_cast<uchar>(pixel(x, y));
    }
    return out;
  }

 private:
  const QImage& picture_;
  Beyond beyond_;
};

// The steps of a slanting edge become soft; a straight edge stays sharp.
QImage softened(const QImage& inside) {
  const Mask mask(inside, Mask::Beyond::Same);
  return mask.made([&](int x, int y) {
    const int here = mask.at(x, y);
    const bool isLevel = mask.at(x - 1, y) == here && mask.at(x + 1, y) == here;
    const bool isUpright = mask.at(x, y - 1) == here && mask.at(x, y + 1) == here;
    if (isLevel || isUpright) return here;
    int sum = 0;
    for (int dy = -1; dy <= 1; ++dy) {
      for (int dx = -1; dx <= 1; ++dx) sum += mask.at(x + dx, y + dy);
    }
    return sum / 9;
  });
}

QImage shrunk(QImage inside, int pixels) {
  for (; pixels > 0; --pixels) {
    const Mask mask(inside, Mask::Beyond::Nothing);
    inside = mask.made([&](int x, int y) {
      return std::min(
          {mask.at(x, y), mask.at(x - 1, y), mask.at(x + 1, y), mask.at(x, y - 1), mask.at(x, y + 1)});
    });
  }
  return inside;
}

// The alpha of the lighter line at this height of the window, 0 to 1: light falls from above.
double lightAt(double height) {
  constexpr double kTop = 0.38, kBend = 0.25, kAtBend = 0.10, kFoot = 0.05;
  if (height < kBend) return kTop + (kAtBend - kTop) * height / kBend;
  return kAtBend + (kFoot - kAtBend) * (height - kBend) / (1 - kBend);
}

QImage rimAlong(const QImage& inside, int width) {
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
  rim_ = rimAlong(inside, std::max(1, qRound(size_.scale())));
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
