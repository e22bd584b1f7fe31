#include "ui/skin_outline.h"

#include "ui/dib_section.h"
#include "ui/pictures.h"

#include <QPainter>
#include <algorithm>
#include <cstddef>
#include <vector>

namespace kvo {
namespace {

constexpr std::uint32_t kBlack = 0;

// Pixels of the mask's picture, which lie inside or outside, never between: no smoothing.
QImage stretchedMask(const QImage& mask, QSize size) {
  return mask.convertToFormat(QImage::Format_RGB32)
      .scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

// How much of each pixel is inside, 0 to 255; with a border of one pixel about the whole, so that each pixel
// has neighbours.
class Coverage {
 public:
  enum class Beyond { Same, Nothing };  // what the border holds: its nearest pixel, or nothing

  explicit Coverage(QSize size)
      : width_(size.width() + 2),
        height_(size.height() + 2),
        bytes_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

  // All inside where the mask is not black.
  explicit Coverage(const QImage& mask) : Coverage(mask.size()) {
    for (int y = 0; y < mask.height(); ++y) {
      const auto* from = reinterpret_cast<const QRgb*>(mask.constScanLine(y));
      std::transform(from, from + mask.width(), row(y),
                     [](QRgb pixel) { return (pixel & RGB_MASK) == 0 ? uchar{0} : uchar{255}; });
    }
  }

  // Beyond x = 0 to width() - 1 lies the border.
  [[nodiscard]] uchar* row(int y) { return bytes_.data() + offset(y); }
  [[nodiscard]] const uchar* row(int y) const { return bytes_.data() + offset(y); }
  [[nodiscard]] int width() const { return width_ - 2; }
  [[nodiscard]] int height() const { return height_ - 2; }

  void fillBorder(Beyond beyond) {
    const auto held = [&](uchar nearest) { return beyond == Beyond::Same ? nearest : uchar{0}; };
    for (int y = 0; y < height(); ++y) {
      row(y)[-1] = held(row(y)[0]);
      row(y)[width()] = held(row(y)[width() - 1]);
    }
    std::transform(row(0) - 1, row(0) + width() + 1, row(-1) - 1, held);
    std::transform(row(height() - 1) - 1, row(height() - 1) + width() + 1, row(height()) - 1, held);
  }

  // Each pixel by a rule that is given it in three rows, of which it is in the middle one.
  template <class Rule>
  [[nodiscard]] Coverage made(const Rule& rule) const {
    Coverage out(QSize(width(), height()));
    for (int y = 0; y < height(); ++y) {
      const auto* above = row(y - 1);
      const auto* here = row(y);
      const auto* below = row(y + 1);
      auto* to = out.row(y);
      for (int x = 0; x < width(); ++x) to[x] = rule(above + x, here + x, below + x);
    }
    return out;
  }

  [[nodiscard]] QImage image() const {
    QImage picture(width(), height(), QImage::Format_Alpha8);
    for (int y = 0; y < height(); ++y) std::copy_n(row(y), width(), picture.scanLine(y));
    return picture;
  }

 private:
  [[nodiscard]] std::ptrdiff_t offset(int y) const { return static_cast<std::ptrdiff_t>(y + 1) * width_ + 1; }

  int width_;
  int height_;
  std::vector<uchar> bytes_;
};

// The steps of a slanting edge become soft; a straight edge stays sharp.
Coverage softened(Coverage inside) {
  inside.fillBorder(Coverage::Beyond::Same);
  return inside.made([](const uchar* above, const uchar* here, const uchar* below) {
    const bool isLevel = here[-1] == *here && here[1] == *here;
    const bool isUpright = *above == *here && *below == *here;
    if (isLevel || isUpright) return *here;
    int sum = 0;
    for (const auto* row : {above, here, below}) sum += row[-1] + row[0] + row[1];
    return static_cast<uchar>(sum / 9);
  });
}

Coverage shrunk(Coverage inside, int pixels) {
  for (; pixels > 0; --pixels) {
    inside.fillBorder(Coverage::Beyond::Nothing);
    inside = inside.made([](const uchar* above, const uchar* here, const uchar* below) {
      return std::min({*here, here[-1], here[1], *above, *below});
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

QImage rimAlong(const Coverage& inside, int width) {
  constexpr double kDark = 0.75;
  const auto within = shrunk(inside, width);
  const auto core = softened(shrunk(within, width));
  const auto soft = softened(within);
  QImage rim(inside.width(), inside.height(), QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < rim.height(); ++y) {
    const double light = lightAt(static_cast<double>(y) / rim.height());
    auto* to = reinterpret_cast<QRgb*>(rim.scanLine(y));
    for (int x = 0; x < rim.width(); ++x) {
      const int outer = 255 - soft.row(y)[x];
      const int inner = std::max(0, soft.row(y)[x] - core.row(y)[x]);
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
  const Coverage inside(stretchedMask(*mask, size_.device()));
  rim_ = rimAlong(inside, std::max(1, qRound(size_.scale())));
  inside_ = softened(inside).image();
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
