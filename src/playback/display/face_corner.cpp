#include "playback/display/face_corner.h"

#include <algorithm>
#include <cstdlib>

namespace kvo {
namespace {

// A desktop takes a moment to put a window that has covered the screen back, and its frame about it: until
// then where it is seen is not where it stands.
constexpr std::int64_t kSettleTime = 1500;  // milliseconds

// A window of which a desktop has only put its frame elsewhere has not been moved.
bool isNear(const ScreenPoint& a, const ScreenPoint& b) {
  constexpr int kFrame = 48;  // pixels, the highest title bar
  return std::max(std::abs(a.x - b.x), std::abs(a.y - b.y)) <= kFrame;
}

}  // namespace

bool FaceCorner::settles(std::int64_t now) const { return uncovered_ && now - *uncovered_ <= kSettleTime; }

void FaceCorner::beforeDrawing(const FaceOnScreen& face, std::int64_t now) {
  before_ = face;
  if (!face.visible || face.covers || settles(now)) return;
  corner_ = face.corner;
  toInside_ = {face.inside.left - corner_.x, face.inside.top - corner_.y};
}

// Where it stood before it covered the screen, when its frame is not back yet; and wholly on the screen after
// it has grown.
std::optional<ScreenPoint> FaceCorner::afterDrawing(const FaceOnScreen& face, std::int64_t now) {
  if (!face.visible || face.covers) return std::nullopt;
  const bool settled = !settles(now);
  if (before_.covers) uncovered_ = now;
  const bool isBare = before_.covers || (!settled && !face.isFramed);
  const ScreenPoint goal = isBare ? ScreenPoint{corner_.x + toInside_.x, corner_.y + toInside_.y} : corner_;
  const bool hasGrown =
      face.inside.width != before_.inside.width || face.inside.height != before_.inside.height;
  if (before_.covers || hasGrown || (!settled && face.corner != goal)) return goal;
  return std::nullopt;
}

ScreenPoint FaceCorner::cameFrom(const FaceOnScreen& left, std::int64_t now) {
  if (left.visible && !left.covers && !settles(now)) corner_ = left.corner;
  uncovered_.reset();
  if (left.isNormal) {
    home_ = corner_;
  } else if (isNear(corner_, home_)) {
    corner_ = home_;
  }
  return corner_;
}

ScreenPoint FaceCorner::atEnd(const FaceOnScreen& face) const {
  const auto corner = face.covers ? corner_ : face.corner;
  return !face.isNormal && isNear(corner, home_) ? home_ : corner;
}

}  // namespace kvo
