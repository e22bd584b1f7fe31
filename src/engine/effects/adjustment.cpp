// The class that adjusts colours (its internal name "Standard") and that eases a picture in or out in space
// ("Simple3D").
#include "engine/effects/by_image.h"
#include "engine/effects/registry.h"
#include "engine/picture/drawing.h"
#include "engine/transitions/simple_3d.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace kvo::engine {
namespace {

using media::Picture;

// What becomes of each value of a channel.
using Curve = std::array<std::uint8_t, 256>;

Curve curveOf(double gain, double contrast, double gamma) {
  Curve curve{};
  const double factor = std::max(0.0, 1 + contrast / 2);
  const double exponent = gamma >= 0 ? 1 / (1 + gamma / 10) : 1 - gamma / 10;
  for (std::size_t i = 0; i < curve.size(); ++i) {
    double v = static_cast<double>(i) / 255 * gain;
    v = std::pow(std::clamp((v - 0.5) * factor + 0.5, 0.0, 1.0), exponent);
    curve[i] = static_cast<std::uint8_t>(std::lround(v * 255));
  }
  return curve;
}

void adjustColours(cv::Mat& bgr, const Params& params, double time) {
  const auto level = [&](const char* name, double otherwise, double least, double most) {
    return params.number(name, time, otherwise, least, most);
  };
  if (params.flag("desaturate")) {
    cv::Mat grey;
    cv::cvtColor(bgr, grey, cv::COLOR_BGR2GRAY);
    cv::cvtColor(grey, bgr, cv::COLOR_GRAY2BGR);
  }
  const double contrast = level("contrast", 0, -2, 20);
  const double gamma = level("gamma", 0, -1000, 1000);
  const std::array<double, 3> gains = {1 + level("blue", 0, -1, 10) - level("yellow", 0, -10, 1),
                                       1 + level("green", 0, -1, 10) - level("magenta", 0, -10, 1),
                                       1 + level("red", 0, -1, 10) - level("cyan", 0, -10, 1)};
  std::array<Curve, 3> curves;
  for (std::size_t i = 0; i < curves.size(); ++i)
    curves[i] = curveOf(std::max(gains[i], 0.0), contrast, gamma);
  cv::Mat table(1, 256, CV_8UC3);
  for (int v = 0; v < 256; ++v) {
    const auto at = static_cast<std::size_t>(v);
    table.at<cv::Vec3b>(0, v) = {curves[0][at], curves[1][at], curves[2][at]};
  }
  cv::LUT(bgr, table, bgr);
  const double threshold = level("threshold", 0, 0, 1) * 255;
  if (threshold > 0) {
    cv::Mat grey;
    cv::cvtColor(bgr, grey, cv::COLOR_BGR2GRAY);
    bgr.setTo(cv::Scalar::all(0), grey < threshold);
  }
}

// "EaseDuration" counts how much faster the motion begins than it ends.
double easedWay(const Params& params, double way) {
  const double ease = params.number("exponentialprogressduration", 0, 0, 0, 100) * 10;
  return ease > 0 ? std::log1p(ease * way) / std::log1p(ease) : way;
}

bool isInPlace(const Corners& corners, const Picture& picture) {
  const cv::Point2d far(picture.width(), picture.height());
  return cv::norm(corners[0]) < 0.01 && cv::norm(corners[2] - far) < 0.01 &&
         cv::norm(corners[1] - cv::Point2d(far.x, 0)) < 0.01;
}

Picture moveInSpace(const Params& params, const Picture& picture, const EffectMoment& moment) {
  const double way = moment.length > 0 ? std::clamp(moment.time / moment.length, 0.0, 1.0) : 0;
  auto pose = poseOf(params, picture.width(), picture.height(), easedWay(params, way));
  if (isInPlace(pose.corners, picture)) return picture;
  auto out = media::Canvas::clear(picture.width(), picture.height());
  const auto shown = withAlpha(picture);
  if (pose.back && !params.flag("showaback")) return share(std::move(out));
  drawTurned(shown, wholeOf(shown), pose.corners, {1, pose.back ? 0.8 : 1.0}, out);
  return share(std::move(out));
}

// Of Simple3D: the picture is somewhere else in each frame.
bool movesInSpace(const Params& params) { return params.word("internalname") != "standard"; }

// Standard: "Desaturate", then "Red", "Green", "Blue" and "Cyan", "Magenta", "Yellow" (added to, and taken
// off, a channel, as shares of it), "Contrast" (0 leaves it), "Gamma" (0 leaves it, 10 doubles it) and
// "Threshold" (0 to 1: what is darker turns black). Simple3D: as the transition of that name, over the
// clip's length, with nothing around the picture.
DrawEffect makeAdjustment(const Params& params, int /*width*/, int /*height*/) {
  if (!movesInSpace(params)) {
    return [params](const Picture& picture, const EffectMoment& moment) {
      return share(byImage(picture, [&](cv::Mat& bgr) { adjustColours(bgr, params, moment.time); }));
    };
  }
  return [params](const Picture& picture, const EffectMoment& moment) {
    return moveInSpace(params, picture, moment);
  };
}

}  // namespace

const DrawnEffect effects::Ease{makeAdjustment, movesInSpace};

}  // namespace kvo::engine
