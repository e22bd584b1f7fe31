#include "editor/timeline/timeline_hand.h"

#include "core/telling/translated.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kvo {
namespace {

constexpr double kDragFrom = 4;      // pixels until a press is a drag
constexpr double kScrollEdge = 24;   // pixels in which a drag scrolls
constexpr double kScrollStep = 16;   // pixels
constexpr double kWheelStep = 60;    // pixels a notch
constexpr double kWheelZoom = 1.25;  // a notch
constexpr int kTransitionTab = 3;
constexpr int kEffectTab = 4;
constexpr int kColourTab = 6;
constexpr int kOverlayTab = 7;

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

bool isMark(TimelinePart part) { return part == TimelinePart::MarkIn || part == TimelinePart::MarkOut; }

// Places are gone to also while a preview plays.
bool isPlace(TimelinePart part) { return part == TimelinePart::Ruler || part == TimelinePart::Playhead; }

// The tab that a part opens; none for one that is the clip itself.
std::optional<int> opensTab(TimelinePart part) {
  switch (part) {
    case TimelinePart::Wedge:
    case TimelinePart::WedgeEnd:
      return kTransitionTab;
    case TimelinePart::Effects:
    case TimelinePart::Keyframes:
      return kEffectTab;
    case TimelinePart::Colours:
      return kColourTab;
    case TimelinePart::Overlay:
      return kOverlayTab;
    default:
      return std::nullopt;
  }
}

}  // namespace

void TimelineHand::show(TimelineBlocks blocks) {
  state_.blocks = std::move(blocks);
  ++state_.revision;
  state_.hover = {};
  const int most = std::max(0, state_.blocks.lanes - bandsOf(state_.sight, state_.blocks.lanes).lanes);
  state_.sight.firstLane = std::min(state_.sight.firstLane, most);
  keepWhole();
}

void TimelineHand::takeInHand(int clip) {
  if (state_.marks.clip == clip) return;
  state_.marks.clip = clip;
  letGoOfEdge();
  if (const auto* block = inHand(); block != nullptr && !state_.drag)
    bringInSight(state_.sight, end(), block->start, block->stop);
}

void TimelineHand::stand(double seconds, bool inSight) {
  state_.marks.playhead = seconds;
  if (inSight && !pressed_) bringInSight(state_.sight, end(), seconds, seconds);
}

void TimelineHand::resize(double width, double height) {
  state_.sight.width = width;
  state_.sight.height = height;
  keepWhole();
}

void TimelineHand::zoom(double scale, double x) {
  if (state_.drag) return;
  isWhole_ = false;
  zoomTo(state_.sight, end(), scale, x);
}

void TimelineHand::zoomBy(double factor) {
  const auto& sight = state_.sight;
  const double playhead = sight.xOf(state_.marks.playhead);
  const bool isInSight = playhead >= kLanesLeft && playhead < sight.width;
  zoom(sight.scale * factor, isInSight ? playhead : (kLanesLeft + sight.width) / 2);
}

void TimelineHand::whole() {
  isWhole_ = true;
  keepWhole();
}

// What is in sight within the movie, or all of it.
void TimelineHand::keepWhole() {
  isWhole_ ? showWhole(state_.sight, end()) : scrollTo(state_.sight, end(), state_.sight.from);
}

void TimelineHand::scroll(double from) {
  isWhole_ = false;
  scrollTo(state_.sight, end(), from);
}

void TimelineHand::page(double pages) { scroll(state_.sight.from + pages * state_.sight.seconds()); }

double TimelineHand::zoomPart() const {
  const double part = std::log(state_.sight.scale / kLeastScale) / std::log(kLargestScale / kLeastScale);
  return std::clamp(part, 0.0, 1.0);
}

void TimelineHand::setZoomPart(double part) {
  const double wanted = kLeastScale * std::pow(kLargestScale / kLeastScale, std::clamp(part, 0.0, 1.0));
  zoomBy(wanted / state_.sight.scale);
}

void TimelineHand::select(int clip) {
  if (clip == 0 || clip == state_.marks.clip) return;
  takeInHand(clip);
  acts_.select(clip);
}

void TimelineHand::press(const TimelinePoint& at, const TimelineHeld& held) {
  state_.saying.reset();
  const auto hit = hitAt(state_.blocks, state_.sight, state_.marks, at);
  if (state_.onlyShows && !(isPlace(hit.part) && !held.shift)) return sayOnlyShows(at);
  if (hit.part == TimelinePart::Nothing) return;
  isWhole_ = false;
  pressed_ = TimelineDrag{hit, at, at, held};
  if (hit.clip != 0 && hit.clip != state_.marks.clip) {
    state_.marks.clip = hit.clip;  // as it lies: if it came in sight it would leave the pointer
    letGoOfEdge();
    acts_.select(hit.clip);
  }
  if (hit.part == TimelinePart::Ruler && !held.shift)
    carryOut(meaningOf(state_.blocks, state_.sight, state_.marks, *pressed_).gesture);
}

void TimelineHand::move(const TimelinePoint& at, const TimelineHeld& held) {
  if (!pressed_) {
    state_.hover = hitAt(state_.blocks, state_.sight, state_.marks, at);
    return;
  }
  pressed_->to = at;
  pressed_->held = held;
  if (state_.onlyShows) pressed_->held.shift = false;
  const auto& from = pressed_->from;
  if (!state_.drag && std::hypot(at.x - from.x, at.y - from.y) < kDragFrom) return;
  state_.drag = pressed_;
  read();
}

// What the drag means now. Where it is a look, it is looked at already.
void TimelineHand::read() {
  const auto part = state_.drag->hit.part;
  state_.reading = isMark(part) && state_.settingKeyframes
                       ? heldMarks(part == TimelinePart::MarkIn ? ClipEdge::In : ClipEdge::Out)
                       : meaningOf(state_.blocks, state_.sight, state_.marks, *state_.drag);
  state_.saying.reset();
  if (!state_.reading.text.empty() || !state_.reading.reason.empty())
    state_.saying = TimelineSaying{state_.drag->to, state_.reading.text, state_.reading.reason};
  if (const auto* mark = std::get_if<MarkGesture>(&state_.reading.gesture))
    acts_.showFrame(mark->clip, mark->seconds);
  if (std::holds_alternative<SeekGesture>(state_.reading.gesture)) carryOut(state_.reading.gesture);
}

void TimelineHand::carryOut(const TimelineGesture& gesture) {
  std::visit(Overloaded{[](std::monostate) {}, [&](const MoveGesture& g) { acts_.moveTo(g.clip, g.before); },
                        [&](const MarkGesture& g) { acts_.setMark(g); },
                        [&](const TransInGesture& g) { acts_.setTransIn(g); },
                        [&](const FadeGesture& g) { acts_.setFade(g); },
                        [&](const SeekGesture& g) {
                          state_.marks.playhead = g.seconds;
                          acts_.seek(g.seconds);
                        },
                        [&](const RangeGesture& g) {
                          state_.marks.range = g.range;
                          acts_.setRange(g.range);
                        }},
             gesture);
}

void TimelineHand::release() {
  const auto pressed = std::exchange(pressed_, std::nullopt);
  const bool wasDrag = std::exchange(state_.drag, std::nullopt).has_value();
  const auto reading = std::exchange(state_.reading, {});
  if (!pressed) return;
  state_.saying.reset();
  if (!wasDrag) return click(pressed->hit);
  if (isMark(pressed->hit.part)) acts_.endFrame();
  if (!std::holds_alternative<SeekGesture>(reading.gesture)) carryOut(reading.gesture);
}

void TimelineHand::click(const TimelineHit& hit) {
  if (const auto tab = opensTab(hit.part)) acts_.openTab(*tab, hit.clip);
}

void TimelineHand::leave() {
  if (!pressed_) state_.hover = {};
}

void TimelineHand::cancel() {
  const bool showedFrame = state_.drag && isMark(state_.drag->hit.part);
  pressed_.reset();
  state_.drag.reset();
  state_.reading = {};
  state_.saying.reset();
  if (showedFrame) acts_.endFrame();
}

void TimelineHand::doubleClick(const TimelinePoint& at) {
  if (state_.onlyShows) return;
  const auto hit = hitAt(state_.blocks, state_.sight, state_.marks, at);
  cancel();
  if (hit.clip == 0 || opensTab(hit.part)) return;
  select(hit.clip);
  acts_.openTrimmer(hit.clip);
}

bool TimelineHand::scrollOn() {
  if (!state_.drag) return false;
  const double x = state_.drag->to.x;
  const int direction = x < kLanesLeft + kScrollEdge ? -1 : x > state_.sight.width - kScrollEdge ? 1 : 0;
  if (direction == 0) return false;
  const double was = state_.sight.from;
  scroll(was + direction * kScrollStep / state_.sight.scale);
  if (state_.sight.from == was) return false;
  pressed_->from.x -= (state_.sight.from - was) * state_.sight.scale;
  state_.drag = pressed_;
  read();
  return true;
}

void TimelineHand::wheel(const TimelinePoint& at, double across, double along, const TimelineHeld& held) {
  auto& sight = state_.sight;
  const auto bands = bandsOf(sight, state_.blocks.lanes);
  if (held.control) return zoom(sight.scale * std::pow(kWheelZoom, along), at.x);
  if (bands.music.holds(at) && state_.blocks.lanes > bands.lanes && across == 0) {
    const int lane = sight.firstLane - static_cast<int>(std::lround(along));
    sight.firstLane = std::clamp(lane, 0, state_.blocks.lanes - bands.lanes);
    return;
  }
  scroll(sight.from - (across + along) * kWheelStep / sight.scale);
}

void TimelineHand::pinch(const TimelinePoint& at, double factor) { zoom(state_.sight.scale * factor, at.x); }

void TimelineHand::openMenu(const TimelinePoint& at, int x, int y) {
  if (state_.onlyShows) return sayOnlyShows(at);
  const auto hit = hitAt(state_.blocks, state_.sight, state_.marks, at);
  select(hit.clip);
  acts_.openMenu(hit.clip, x, y);
}

void TimelineHand::openMenuInHand(int x, int y) {
  if (!state_.onlyShows) acts_.openMenu(state_.marks.clip, x, y);
}

void TimelineHand::dragFiles(const TimelinePoint& at) {
  const auto& blocks = state_.blocks;
  const int before = clipBehind(blocks, state_.sight, at.x);
  const auto* block = blocks.of(before);
  state_.drop = TimelineDrop{before, block != nullptr ? block->start : blocks.videoEnd};
}

void TimelineHand::dropFiles(const std::vector<std::string>& files) {
  const auto drop = std::exchange(state_.drop, std::nullopt);
  if (drop && !files.empty()) acts_.insertFiles(files, drop->before);
}

}  // namespace kvo
