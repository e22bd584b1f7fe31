#include "engine/picture/drawing.h"

#include "engine/picture/planes.h"
#include "media/pixel_rows.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <opencv2/imgproc.hpp>

namespace kvo::engine {
namespace {

using media::Canvas;
using media::Picture;

// Whole pixels that an area covers, within a picture.
cv::Rect pixelsOf(const Area& area, const media::Planes& picture) {
  const auto at = [](double v, int most) {
    return std::clamp(static_cast<int>(std::lround(std::clamp(v, -1e6, 1e6))), 0, most);
  };
  const int left = at(area.x, picture.width());
  const int top = at(area.y, picture.height());
  return {left, top, at(area.x + area.width, picture.width()) - left,
          at(area.y + area.height, picture.height()) - top};
}

// The same, widened to whole samples of chroma.
cv::Rect evened(const cv::Rect& pixels) {
  const int left = pixels.x & ~1;
  const int top = pixels.y & ~1;
  return {left, top, ((pixels.x + pixels.width + 1) & ~1) - left,
          ((pixels.y + pixels.height + 1) & ~1) - top};
}

cv::Rect samplesOf(const cv::Rect& pixels, int plane) {
  return Picture::isChroma(plane) ? cv::Rect(pixels.x / 2, pixels.y / 2, pixels.width / 2, pixels.height / 2)
                                  : pixels;
}

cv::Mat halved(const cv::Mat& full) {
  cv::Mat half(full.rows / 2, full.cols / 2, CV_8UC1);
  for (int y = 0; y < half.rows; ++y) {
    media::halveRows(full.ptr<std::uint8_t>(2 * y), full.ptr<std::uint8_t>(2 * y + 1),
                     half.ptr<std::uint8_t>(y), static_cast<std::size_t>(half.cols));
  }
  return half;
}

// What is to be laid over a part of a picture.
struct Overlay {
  cv::Rect at;                     // pixels, even
  std::array<cv::Mat, 4> drawn{};  // the planes of the part; what is empty is left as it is
  cv::Mat share;                   // how much of each pixel is to be seen, 0 to 255; empty for all
};

// A sample of chroma is covered as the mean of its four pixels is.
void layOver(const Overlay& overlay, Canvas& out) {
  const bool alpha = !overlay.drawn[3].empty();
  // How much of what lies below each pixel is hidden.
  cv::Mat cover = alpha ? overlay.drawn[3] : overlay.share;
  if (alpha && !overlay.share.empty()) cover = overlay.drawn[3].mul(overlay.share, 1.0 / 255);
  const std::array<cv::Mat, 2> covers = {cover, halved(cover)};
  const std::array<cv::Mat, 2> shares = {overlay.share, alpha ? halved(overlay.share) : cv::Mat()};
  std::vector<std::uint8_t> faded(static_cast<std::size_t>(overlay.at.width));
  for (int plane = 0; plane < out.planes(); ++plane) {
    const auto at = samplesOf(overlay.at, plane);
    const auto count = static_cast<std::size_t>(at.width);
    const auto black = Picture::blackOf(plane);
    const std::size_t size = Picture::isChroma(plane) ? 1 : 0;
    const auto& drawn = overlay.drawn.at(static_cast<std::size_t>(plane));
    for (int y = 0; y < at.height && !drawn.empty(); ++y) {
      auto* row = out.row(plane, at.y + y) + at.x;
      const auto* hides = covers[size].ptr<std::uint8_t>(y);
      const auto* above = drawn.ptr<std::uint8_t>(y);
      if (!alpha) {
        media::mixRowByShares(row, above, hides, row, count);
        continue;
      }
      if (plane == 3) {
        above = hides;
      } else if (!overlay.share.empty()) {
        media::fadeRow(above, shares[size].ptr<std::uint8_t>(y), faded.data(), count, black);
        above = faded.data();
      }
      media::overRow(row, above, hides, row, count, black);
    }
  }
}

void drawInto(cv::Mat target, const ReadPlane& source) {
  const bool smaller = target.cols <= source.size().width && target.rows <= source.size().height;
  cv::resize(source, target, target.size(), 0, 0, smaller ? cv::INTER_AREA : cv::INTER_CUBIC);
}

void lighten(cv::Mat& samples, int plane, double light) {
  if (plane == 3 || light == 1) return;
  const double dark = Picture::blackOf(plane);
  if (light < 1) {
    samples.convertTo(samples, -1, light, dark * (1 - light));
  } else {
    const double white = plane == 0 ? 235 : 128;
    const double toWhite = std::min(light - 1, 1.0) / 2;
    samples.convertTo(samples, -1, 1 - toWhite, white * toWhite);
  }
}

}  // namespace

Area wholeOf(const media::Planes& picture) {
  return {0, 0, static_cast<double>(picture.width()), static_cast<double>(picture.height())};
}

void drawAll(const Picture& picture, Canvas& out) {
  for (int plane = 0; plane < out.planes(); ++plane) planeOf(picture, plane).copyTo(planeOf(out, plane));
}

void drawMoved(const Picture& picture, const Area& part, double x, double y, Canvas& out) {
  const auto toEven = [](double v) { return 2 * std::lround(std::clamp(v, -1e6, 1e6) / 2); };
  const long left = toEven(x);
  const long top = toEven(y);
  const long fromX = toEven(part.x);
  const long fromY = toEven(part.y);
  const long width = toEven(part.x + part.width) - fromX;
  const long height = toEven(part.y + part.height) - fromY;
  // What of the part lies within both pictures.
  const long skipX = std::max({0L, -left, -fromX});
  const long skipY = std::max({0L, -top, -fromY});
  const long shownX = std::min({width, out.width() - left, picture.width() - fromX}) - skipX;
  const long shownY = std::min({height, out.height() - top, picture.height() - fromY}) - skipY;
  if (shownX <= 0 || shownY <= 0) return;
  for (int plane = 0; plane < out.planes(); ++plane) {
    const int shift = Picture::isChroma(plane) ? 1 : 0;
    const auto part8 = [&](long px, long py) {
      return cv::Rect(static_cast<int>(px >> shift), static_cast<int>(py >> shift),
                      static_cast<int>(shownX >> shift), static_cast<int>(shownY >> shift));
    };
    planeOf(picture, plane)
        .part(part8(fromX + skipX, fromY + skipY))
        .copyTo(planeOf(out, plane)(part8(left + skipX, top + skipY)));
  }
}

void drawScaled(const Picture& picture, const Area& part, const Area& place, Canvas& out) {
  if (!(place.width > 0 && place.height > 0 && part.width > 0 && part.height > 0)) return;
  const auto whole = wholeOf(out);
  const bool inside = place.x >= 0 && place.y >= 0 && place.x + place.width <= whole.width &&
                      place.y + place.height <= whole.height;
  if (!inside) {
    drawTurned(picture, part,
               {cv::Point2d{place.x, place.y},
                {place.x + place.width, place.y},
                {place.x + place.width, place.y + place.height},
                {place.x, place.y + place.height}},
               {}, out);
    return;
  }
  const auto from = evened(pixelsOf(part, picture));
  const auto pixels = pixelsOf(place, out);
  if (from.empty() || pixels.empty()) return;
  Overlay overlay{evened(pixels), {}, {}};
  const bool evenPlace = pixels == overlay.at;
  for (int plane = 0; plane < picture.planes(); ++plane) {
    const auto source = planeOf(picture, plane).part(samplesOf(from, plane));
    const auto at = samplesOf(overlay.at, plane);
    if (!picture.hasAlpha() && (evenPlace || plane == 0)) {
      drawInto(planeOf(out, plane)(plane == 0 ? pixels : at), source);
      continue;
    }
    auto& drawn = overlay.drawn.at(static_cast<std::size_t>(plane));
    drawn = cv::Mat(at.size(), CV_8UC1, cv::Scalar(Picture::blackOf(plane)));
    drawInto(Picture::isChroma(plane) ? drawn : drawn(pixels - at.tl()), source);
  }
  if (out.hasAlpha() && !picture.hasAlpha()) planeOf(out, 3)(pixels).setTo(255);
  if (!evenPlace) {
    overlay.share = cv::Mat::zeros(overlay.at.size(), CV_8UC1);
    overlay.share(pixels - overlay.at.tl()).setTo(255);
  }
  if (picture.hasAlpha() || !evenPlace) layOver(overlay, out);
}

void drawTurned(const Picture& picture, const Area& part, const Corners& corners, const Look& look,
                Canvas& out) {
  double left = std::numeric_limits<double>::max();
  double top = left;
  double right = -left;
  double bottom = -left;
  for (const auto& corner : corners) {
    if (!(std::fabs(corner.x) < 1e5 && std::fabs(corner.y) < 1e5)) return;  // out of all sight
    left = std::min(left, corner.x);
    right = std::max(right, corner.x);
    top = std::min(top, corner.y);
    bottom = std::max(bottom, corner.y);
  }
  // Even edges around it, so that the chroma planes have the same part.
  const auto x0 = std::max(0, static_cast<int>(std::floor(left / 2)) * 2 - 2);
  const auto y0 = std::max(0, static_cast<int>(std::floor(top / 2)) * 2 - 2);
  const auto x1 = std::min(out.width(), static_cast<int>(std::ceil(right / 2)) * 2 + 2);
  const auto y1 = std::min(out.height(), static_cast<int>(std::ceil(bottom / 2)) * 2 + 2);
  if (x0 >= x1 || y0 >= y1 || look.opacity <= 0) return;

  constexpr int kFraction = 4;  // bits of a corner's fraction
  const Corners flat = {cv::Point2d{part.x, part.y},
                        {part.x + part.width, part.y},
                        {part.x + part.width, part.y + part.height},
                        {part.x, part.y + part.height}};
  Overlay overlay{{x0, y0, x1 - x0, y1 - y0}, {}, cv::Mat::zeros(y1 - y0, x1 - x0, CV_8UC1)};
  for (int plane = 0; plane < picture.planes(); ++plane) {
    const double scale = Picture::isChroma(plane) ? 0.5 : 1;
    const auto at = samplesOf(overlay.at, plane);
    std::array<cv::Point2f, 4> from;
    std::array<cv::Point2f, 4> to;
    std::array<cv::Point, 4> outline;
    for (std::size_t i = 0; i < 4; ++i) {
      // A sample's middle is its whole number here.
      from[i] = {static_cast<float>(flat[i].x * scale - 0.5), static_cast<float>(flat[i].y * scale - 0.5)};
      to[i] = {static_cast<float>(corners[i].x * scale - 0.5 - at.x),
               static_cast<float>(corners[i].y * scale - 0.5 - at.y)};
      outline[i] = {static_cast<int>(std::lround(to[i].x * (1 << kFraction))),
                    static_cast<int>(std::lround(to[i].y * (1 << kFraction)))};
    }
    if (plane == 0) {
      cv::fillConvexPoly(overlay.share, outline.data(), 4, cv::Scalar(255 * std::min(look.opacity, 1.0)),
                         cv::LINE_AA, kFraction);
    }
    const cv::Mat turn = cv::getPerspectiveTransform(from.data(), to.data());
    if (std::fabs(cv::determinant(turn)) < 1e-12) return;  // seen from its edge
    auto& drawn = overlay.drawn.at(static_cast<std::size_t>(plane));
    cv::warpPerspective(planeOf(picture, plane), drawn, turn, at.size(), cv::INTER_LINEAR,
                        cv::BORDER_REPLICATE);
    lighten(drawn, plane, look.light);
  }
  if (out.hasAlpha() && !picture.hasAlpha())
    overlay.drawn[3] = cv::Mat(overlay.at.size(), CV_8UC1, cv::Scalar(255));
  layOver(overlay, out);
}

void drawColour(const media::YuvColour& colour, Canvas& out) {
  const std::array<std::uint8_t, 4> values = {colour.y, colour.u, colour.v, 255};
  for (int plane = 0; plane < out.planes(); ++plane) out.fill(plane, values[static_cast<std::size_t>(plane)]);
}

}  // namespace kvo::engine
