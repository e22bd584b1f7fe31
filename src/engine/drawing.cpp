#include "engine/drawing.h"

#include "engine/planes.h"
#include "media/pixel_rows.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <opencv2/imgproc.hpp>

namespace kvo::engine {
namespace {

using media::Picture;

// Whole samples of a plane that an area covers, within the plane.
cv::Rect samplesOf(const Area& area, const Picture& picture, int plane) {
  const double scale = Picture::isChroma(plane) ? 0.5 : 1;
  const auto at = [&](double v, int most) {
    return std::clamp(static_cast<int>(std::lround(std::clamp(v * scale, -1e6, 1e6))), 0, most);
  };
  const int left = at(area.x, picture.width(plane));
  const int top = at(area.y, picture.height(plane));
  return {left, top, at(area.x + area.width, picture.width(plane)) - left,
          at(area.y + area.height, picture.height(plane)) - top};
}

// Lays the samples `drawn`, of which `shares` (0 to 255) is to be seen, over a part of a plane.
struct Overlay {
  std::array<cv::Mat, 4> drawn{};
  std::array<cv::Mat, 4> shares{};
  std::array<cv::Rect, 4> at{};
};

void layOver(const Overlay& overlay, bool alpha, Picture& out) {
  std::vector<std::uint8_t> faded;
  std::vector<std::uint8_t> cover;
  for (int plane = 0; plane < out.planes(); ++plane) {
    const auto p = static_cast<std::size_t>(plane);
    const auto& at = overlay.at[p];
    const auto count = static_cast<std::size_t>(at.width);
    for (int y = 0; y < at.height; ++y) {
      auto* row = out.row(plane, at.y + y) + at.x;
      const auto* share = overlay.shares[p].ptr<std::uint8_t>(y);
      if (!alpha) {
        if (plane == 3) {
          const std::vector<std::uint8_t> all(count, 255);
          media::mixRowByShares(row, all.data(), share, row, count);
        } else {
          media::mixRowByShares(row, overlay.drawn[p].ptr<std::uint8_t>(y), share, row, count);
        }
        continue;
      }
      faded.resize(count);
      cover.resize(count);
      const auto black = Picture::blackOf(plane);
      // Alpha in the size of the plane stands in `drawn` of plane 3, or of its half in a chroma plane's
      // shares.
      media::fadeRow(overlay.drawn[p].ptr<std::uint8_t>(y), share, faded.data(), count, black);
      const auto* alphaRow =
          Picture::isChroma(plane)
              ? overlay.drawn[3].ptr<std::uint8_t>(std::min(2 * y, overlay.drawn[3].rows - 1))
              : overlay.drawn[3].ptr<std::uint8_t>(y);
      for (std::size_t x = 0; x < count; ++x) {
        const auto source = Picture::isChroma(plane)
                                ? std::min(2 * x, static_cast<std::size_t>(overlay.drawn[3].cols - 1))
                                : x;
        cover[x] = static_cast<std::uint8_t>(alphaRow[source] * share[x] / 255);
      }
      media::overRow(row, faded.data(), cover.data(), row, count, black);
    }
  }
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

Area wholeOf(const Picture& picture) {
  return {0, 0, static_cast<double>(picture.width()), static_cast<double>(picture.height())};
}

void drawAll(const Picture& picture, Picture& out) {
  for (int plane = 0; plane < out.planes(); ++plane) planeOf(picture, plane).copyTo(planeOf(out, plane));
}

void drawMoved(const Picture& picture, const Area& part, double x, double y, Picture& out) {
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
    planeOf(picture, plane)(part8(fromX + skipX, fromY + skipY))
        .copyTo(planeOf(out, plane)(part8(left + skipX, top + skipY)));
  }
}

void drawScaled(const Picture& picture, const Area& part, const Area& place, Picture& out) {
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
  Overlay overlay;
  for (int plane = 0; plane < std::max(out.planes(), picture.planes()); ++plane) {
    const auto p = static_cast<std::size_t>(plane);
    const auto from = samplesOf(part, picture, plane);
    overlay.at[p] = samplesOf(place, out, plane);
    if (from.empty() || overlay.at[p].empty()) return;
    if (plane >= picture.planes()) {
      planeOf(out, plane)(overlay.at[p]).setTo(255);
      continue;
    }
    const bool smaller = overlay.at[p].width <= from.width && overlay.at[p].height <= from.height;
    const int method = smaller ? cv::INTER_AREA : cv::INTER_CUBIC;
    if (picture.hasAlpha()) {
      cv::resize(planeOf(picture, plane)(from), overlay.drawn[p], overlay.at[p].size(), 0, 0, method);
      overlay.shares[p] = cv::Mat(overlay.at[p].size(), CV_8UC1, cv::Scalar(255));
    } else {
      auto target = planeOf(out, plane)(overlay.at[p]);
      cv::resize(planeOf(picture, plane)(from), target, target.size(), 0, 0, method);
    }
  }
  if (picture.hasAlpha()) layOver(overlay, true, out);
}

void drawTurned(const Picture& picture, const Area& part, const Corners& corners, const Look& look,
                Picture& out) {
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
  Overlay overlay;
  for (int plane = 0; plane < std::max(out.planes(), picture.planes()); ++plane) {
    const auto p = static_cast<std::size_t>(plane);
    const double scale = Picture::isChroma(plane) ? 0.5 : 1;
    const auto& at =
        overlay.at[p] = {static_cast<int>(x0 * scale), static_cast<int>(y0 * scale),
                         static_cast<int>((x1 - x0) * scale), static_cast<int>((y1 - y0) * scale)};
    const Corners flat = {cv::Point2d{part.x, part.y},
                          {part.x + part.width, part.y},
                          {part.x + part.width, part.y + part.height},
                          {part.x, part.y + part.height}};
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
    overlay.shares[p] = cv::Mat::zeros(at.size(), CV_8UC1);
    cv::fillConvexPoly(overlay.shares[p], outline.data(), 4, cv::Scalar(255 * std::min(look.opacity, 1.0)),
                       cv::LINE_AA, kFraction);
    if (plane >= picture.planes()) continue;
    const cv::Mat turn = cv::getPerspectiveTransform(from.data(), to.data());
    if (std::fabs(cv::determinant(turn)) < 1e-12) return;  // seen from its edge
    cv::warpPerspective(planeOf(picture, plane), overlay.drawn[p], turn, at.size(), cv::INTER_LINEAR,
                        cv::BORDER_REPLICATE);
    lighten(overlay.drawn[p], plane, look.light);
  }
  layOver(overlay, picture.hasAlpha(), out);
}

void drawColour(const Area& place, const media::YuvColour& colour, Picture& out) {
  const std::array<std::uint8_t, 4> values = {colour.y, colour.u, colour.v, 255};
  for (int plane = 0; plane < out.planes(); ++plane) {
    planeOf(out, plane)(samplesOf(place, out, plane)).setTo(values[static_cast<std::size_t>(plane)]);
  }
}

}  // namespace kvo::engine
