// Page curl: the first picture is turned like a page, from a corner, over a roll that crosses the screen.
#include "engine/picture/camera.h"
#include "engine/picture/drawing.h"
#include "engine/picture/planes.h"
#include "engine/transitions/registry.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>

namespace kvo::engine {
namespace {

constexpr double kRollRadius = 0.09;  // of the diagonal
constexpr double kShadow = 0.08;      // of the diagonal, on what is uncovered

// What is seen at a point of the screen.
enum class Seen : std::uint8_t { Second, Front, Back };

// The page is a sheet with its corner at 0 and `along` running to the far corner. It has been turned up to
// `line` and lies wound about a roll of `radius` there, its loose end flat on top of what is still in place.
struct Curl {
  cv::Point2d corner;
  cv::Point2d along;
  double line;
  double radius;
  double width;
  double height;

  [[nodiscard]] bool onPage(double x, double y) const {
    return x >= 0 && y >= 0 && x <= width && y <= height;
  }
};

struct Sight {
  Seen seen = Seen::Second;
  double x = 0;  // on the page
  double y = 0;
  double light = 1;
};

Sight sightAt(const Curl& c, double x, double y) {
  const double s = (x - c.corner.x) * c.along.x + (y - c.corner.y) * c.along.y;
  // The point of the page that stands at the distance u from the corner, in line with x, y.
  const auto pageAt = [&](double u) { return cv::Point2d{x + (u - s) * c.along.x, y + (u - s) * c.along.y}; };
  const auto back = [&](double u, double light, Sight& sight) {
    const auto p = pageAt(u);
    if (!c.onPage(p.x, p.y)) return false;
    sight = {Seen::Back, p.x, p.y, light};
    return true;
  };
  Sight sight;
  if (s > c.line) {
    if (back(2 * c.line - s - std::numbers::pi * c.radius, 1, sight)) return sight;
    return {Seen::Front, x, y, 1};
  }
  if (s > c.line - c.radius) {
    const double angle = std::asin(std::clamp((c.line - s) / c.radius, 0.0, 1.0));
    if (back(c.line - c.radius * (std::numbers::pi - angle), 0.55 + 0.45 * std::cos(angle), sight))
      return sight;
    const auto p = pageAt(c.line - c.radius * angle);
    if (c.onPage(p.x, p.y)) return {Seen::Front, p.x, p.y, 0.55 + 0.45 * std::cos(angle)};
  }
  const double diagonal = std::hypot(c.width, c.height);
  const double off = (c.line - c.radius - s) / (kShadow * diagonal);
  return {Seen::Second, x, y, off < 1 && off > 0 ? 0.5 + 0.5 * off : 1};
}

void paintPlane(const Curl& curl, bool showBack, int plane, const media::Picture& below,
                const media::Picture& above, media::Canvas& out) {
  const double scale = media::Picture::isChroma(plane) ? 2 : 1;
  cv::Mat target = planeOf(out, plane);
  cv::Mat mapX(target.size(), CV_32FC1);
  cv::Mat mapY(target.size(), CV_32FC1);
  cv::Mat light(target.size(), CV_32FC1);
  cv::Mat seen(target.size(), CV_8UC1);
  for (int y = 0; y < target.rows; ++y) {
    auto* toX = mapX.ptr<float>(y);
    auto* toY = mapY.ptr<float>(y);
    auto* bright = light.ptr<float>(y);
    auto* kind = seen.ptr<std::uint8_t>(y);
    for (int x = 0; x < target.cols; ++x) {
      const auto sight = sightAt(curl, (x + 0.5) * scale, (y + 0.5) * scale);
      toX[x] = static_cast<float>(sight.x / scale - 0.5);
      toY[x] = static_cast<float>(sight.y / scale - 0.5);
      bright[x] = static_cast<float>(sight.light);
      kind[x] = static_cast<std::uint8_t>(sight.seen);
    }
  }
  cv::Mat page;
  cv::remap(planeOf(below, plane), page, mapX, mapY, cv::INTER_LINEAR, cv::BORDER_REPLICATE);
  const float dark = media::Picture::blackOf(plane);
  const float paper = plane == 0 ? 225 : dark;  // the colour of the back
  for (int y = 0; y < target.rows; ++y) {
    const auto* on = page.ptr<std::uint8_t>(y);
    const auto* under = above.row(plane, y);
    auto* row = target.ptr<std::uint8_t>(y);
    for (int x = 0; x < target.cols; ++x) {
      const auto kind = static_cast<Seen>(seen.ptr<std::uint8_t>(y)[x]);
      if (plane == 3) {
        row[x] = kind == Seen::Second ? under[x] : on[x];
        continue;
      }
      float value = kind == Seen::Second ? under[x] : on[x];
      if (kind == Seen::Back) value = showBack ? 0.4F * value + 0.6F * paper : paper;
      row[x] = cv::saturate_cast<std::uint8_t>(dark + (value - dark) * light.ptr<float>(y)[x]);
    }
  }
}

}  // namespace

// The parameters "PageCurlA" (the corner: lowerleft, lowerright, upperleft, upperright) and "ShowABack" (the
// picture is seen, pale, on the back of the page; else the back is plain).
Result<PaintTransition> makePageCurl(const Params& params, int width, int height) {
  const auto from = params.word("pagecurla");
  const bool right = from.find("right") != std::string::npos;
  const bool lower = from.find("lower") != std::string::npos;
  const double diagonal = std::hypot(width, height);
  Curl curl{};
  curl.width = width;
  curl.height = height;
  curl.corner = {right ? curl.width : 0, lower ? curl.height : 0};
  curl.along = {(right ? -1 : 1) * width / diagonal, (lower ? -1 : 1) * height / diagonal};
  curl.radius = kRollRadius * diagonal;
  const bool showBack = params.flag("showaback");
  return PaintTransition([=](const media::Picture& below, const media::Picture& above, const Moment& moment,
                             media::Canvas& out) {
    if (moment.progress <= 0 || moment.progress >= 1)
      return drawAll(moment.progress <= 0 ? below : above, out);
    auto now = curl;
    now.line = unevenProgress(params, moment.progress) * (diagonal * (1 + kShadow) + curl.radius);
    for (int plane = 0; plane < out.planes(); ++plane) paintPlane(now, showBack, plane, below, above, out);
  });
}

}  // namespace kvo::engine
