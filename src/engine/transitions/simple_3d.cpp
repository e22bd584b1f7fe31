// Simple 3D: the first picture moves, turns, grows or shrinks in space and so uncovers the second; or the
// camera goes round and finds the second on the back of the first.
#include "engine/transitions/simple_3d.h"

#include "engine/transitions/registry.h"

#include <algorithm>
#include <cmath>

namespace kvo::engine {
namespace {

constexpr double kTurns = 360;        // degrees of a whole way in the plane
constexpr double kTiltDegrees = 180;  // about the x axis

double lastScale(const Params& params) {
  const auto word = params.word("scalea");
  if (word == "smaller") return 0;
  if (word == "larger") return 3;
  return params.number("scalea", 0, 1, 0, 100);
}

// The signed area of what is seen: negative from behind.
bool seenFromBehind(const Corners& c) {
  double area = 0;
  for (std::size_t i = 0; i < 4; ++i) area += c[i].cross(c[(i + 1) % 4]);
  return area < 0;
}

}  // namespace

Pose poseOf(const Params& params, int width, int height, double way) {
  const double first = params.number("initialscalea", 0, 1, 0, 100);
  const double scale = first + (lastScale(params) - first) * way;
  const double speed = params.number("movespeeda", 0, 1, 0, 100);
  const auto move = params.word("movea");
  Point shift;
  if (move == "left") shift.x = -speed * way * width;
  if (move == "right") shift.x = speed * way * width;
  if (move == "up") shift.y = -speed * way * height;
  if (move == "down") shift.y = speed * way * height;
  if (move == "in") shift.z = -std::min(0.9, 0.5 * speed * way) * 1.5 * width;
  if (move == "out") shift.z = speed * way * 1.5 * width;

  const auto rotate = params.word("rotatea");
  Point turn;
  if (rotate == "left") turn.z = -kTurns * way;
  if (rotate == "right") turn.z = kTurns * way;
  if (rotate == "up") turn.x = kTurns * way;
  if (rotate == "down") turn.x = -kTurns * way;
  if (params.flag("revolvecamera")) turn.x += kTiltDegrees * way;

  const auto centre = params.word("rotatecentera");
  Point pivot{width / 2.0, height / 2.0, 0};
  if (centre.find("left") != std::string::npos) pivot.x = 0;
  if (centre.find("right") != std::string::npos) pivot.x = width;
  if (centre.find("upper") != std::string::npos) pivot.y = 0;
  if (centre.find("lower") != std::string::npos) pivot.y = height;
  // About a corner a quarter of a turn takes a picture off the screen.
  if (!centre.empty()) turn.z *= 0.36;

  const Camera camera(width, height);
  const Point middle{width / 2.0, height / 2.0, 0};
  const double w = width;
  const double h = height;
  const std::array<Point, 4> flat = {Point{0, 0, 0}, {w, 0, 0}, {w, h, 0}, {0, h, 0}};
  Pose pose;
  for (std::size_t i = 0; i < flat.size(); ++i) {
    const Point scaled = middle + (flat[i] - middle) * scale;
    pose.corners[i] = camera.seen(pivot + turned(scaled - pivot, turn) + shift);
  }
  pose.back = seenFromBehind(pose.corners);
  return pose;
}

namespace {

// The first picture is on the front of a card and the second on its back, unless the switches say otherwise.
void paintFlip(const Params& params, const media::Picture& below, const media::Picture& above,
               double progress, media::Canvas& out) {
  drawColour({}, out);
  auto pose = poseOf(params, out.width(), out.height(), unevenProgress(params, progress));
  const auto shows = [&](const char* side, bool otherwise) {
    return params.find(side) == nullptr ? otherwise : params.flag(side);
  };
  const Look look{1, 1 - 0.4 * (1 - std::fabs(2 * progress - 1))};
  if (!pose.back) {
    if (shows("showafront", true)) return drawTurned(below, wholeOf(below), pose.corners, look, out);
    if (shows("showbfront", false)) drawTurned(above, wholeOf(above), pose.corners, look, out);
    return;
  }
  if (shows("showbback", true)) {
    // It stands on its head there, so that it is upright when it has come round.
    std::swap(pose.corners[0], pose.corners[3]);
    std::swap(pose.corners[1], pose.corners[2]);
    return drawTurned(above, wholeOf(above), pose.corners, look, out);
  }
  if (shows("showaback", false)) drawTurned(below, wholeOf(below), pose.corners, look, out);
}

void paint(const Params& params, const media::Picture& below, const media::Picture& above, double progress,
           media::Canvas& out) {
  if (progress <= 0 || progress >= 1) return drawAll(progress <= 0 ? below : above, out);
  if (params.flag("revolvecamera")) return paintFlip(params, below, above, progress, out);
  drawAll(above, out);
  const double way = unevenProgress(params, progress);
  const auto pose = poseOf(params, out.width(), out.height(), way);
  if (pose.back && !params.flag("showaback")) return;
  const double fadeStart = params.number("fadestarta", 0, 1, 0, 1);
  // What has not left by itself is gone at the end all the same.
  const double fadeFrom = fadeStart < 1 ? fadeStart : 0.85;
  const double opacity = std::clamp((1 - progress) / (1 - fadeFrom), 0.0, 1.0);
  drawTurned(below, wholeOf(below), pose.corners, {opacity, pose.back ? 1.6 : 1.0}, out);
}

}  // namespace

// The parameters of poseOf(), "FadeStartA" (a progress) and "ShowABack". Of what goes round "ShowAFront",
// "ShowABack", "ShowBFront" and "ShowBBack" say what is on either side.
Result<PaintTransition> makeSimple3D(const Params& params, int /*width*/, int /*height*/) {
  return PaintTransition([params](const media::Picture& below, const media::Picture& above,
                                  const Moment& moment,
                                  media::Canvas& out) { paint(params, below, above, moment.progress, out); });
}

}  // namespace kvo::engine
