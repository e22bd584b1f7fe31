// What the keys do on the timeline.
#include "core/telling/translated.h"
#include "editor/timeline/timeline_hand.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr double kZoomStep = 1.25;
constexpr double kPage = 0.9;  // of what is in sight: the rest is seen before and behind

const std::vector<TimelineBlock>& rowWith(const TimelineBlocks& blocks, int clip) {
  const auto isIt = [&](const auto& block) { return block.clip == clip; };
  return std::any_of(blocks.music.begin(), blocks.music.end(), isIt) ? blocks.music : blocks.clips;
}

int lastNumber(const TimelineBlocks& blocks) {
  const int clips = blocks.clips.empty() ? 0 : blocks.clips.back().clip;
  return std::max(clips, blocks.music.empty() ? 0 : blocks.music.back().clip);
}

// The next clip of the movie from a number on; 0 for none.
int nextOf(const TimelineBlocks& blocks, int clip, int direction) {
  const int last = lastNumber(blocks);
  for (int n = clip + direction; n >= 1 && n <= last; n += direction) {
    if (blocks.of(n) != nullptr) return n;
  }
  return 0;
}

TimelineReading refusal(const char* reason) {
  return {.gesture = {}, .text = {}, .reason = translated(reason), .line = {}};
}

}  // namespace

bool TimelineHand::key(TimelineKey key, const TimelineHeld& held) {
  state_.saying.reset();
  switch (key) {
    case TimelineKey::ZoomIn:
      zoomBy(kZoomStep);
      return true;
    case TimelineKey::ZoomOut:
      zoomBy(1 / kZoomStep);
      return true;
    case TimelineKey::Whole:
      whole();
      return true;
    case TimelineKey::PageBack:
    case TimelineKey::PageOn:
      page(key == TimelineKey::PageOn ? kPage : -kPage);
      return true;
    case TimelineKey::Escape: {
      const bool hasWork = pressed_ || state_.edge;
      cancel();
      letGoOfEdge();
      return hasWork;
    }
    case TimelineKey::Before:
    case TimelineKey::After:
      go(key == TimelineKey::Before ? -1 : 1, held);
      return true;
    case TimelineKey::First:
    case TimelineKey::Last:
      goTo(key == TimelineKey::Last);
      return true;
    default:
      edit(key);
      return true;
  }
}

void TimelineHand::edit(TimelineKey key) {
  const auto* block = inHand();
  const TimelinePoint middle{state_.sight.width / 2, bandsOf(state_.sight, state_.blocks.lanes).pictures.y};
  if (state_.onlyShows) return sayOnlyShows(middle);
  if (block == nullptr)
    return sayAt(middle, translated(state_.blocks.empty() ? "There is no clip" : "Choose a clip first"));
  const int clip = block->clip;
  if (key == TimelineKey::EdgeIn) chooseEdge(ClipEdge::In);
  if (key == TimelineKey::EdgeOut) chooseEdge(ClipEdge::Out);
  if (key == TimelineKey::Open) acts_.openTrimmer(clip);
  if (key == TimelineKey::Remove) acts_.remove(clip);
  if (key == TimelineKey::Copy) refuse(*block, block->start, acts_.copy(clip));
  if (key == TimelineKey::Split) split();
}

// What was done leaves other blocks and nothing to say.
void TimelineHand::refuse(const TimelineBlock& block, double seconds, std::string reason) {
  if (!reason.empty()) say(block, {.gesture = {}, .text = {}, .reason = std::move(reason), .line = seconds});
}

void TimelineHand::sayAt(const TimelinePoint& at, std::string reason) {
  state_.saying = TimelineSaying{at, {}, std::move(reason)};
  ++state_.refusals;
}

void TimelineHand::sayOnlyShows(const TimelinePoint& at) { sayAt(at, translated("Stop the preview first")); }

void TimelineHand::say(const TimelineBlock& block, TimelineReading reading) {
  if (reading.text.empty() && reading.reason.empty()) return;
  const double x = state_.sight.xOf(reading.line.value_or(block.start));
  const auto bands = bandsOf(state_.sight, state_.blocks.lanes);
  const TimelinePoint at{std::clamp(x, kLanesLeft, state_.sight.width), bands.pictures.y};
  if (reading.text.empty()) return sayAt(at, std::move(reading.reason));
  state_.saying = TimelineSaying{at, std::move(reading.text), std::move(reading.reason)};
}

// What stands at it is seen until it is let go of; the same key again does that.
void TimelineHand::chooseEdge(ClipEdge edge) {
  const bool lets = state_.edge == edge;
  letGoOfEdge();
  if (lets) return;
  state_.edge = edge;
  const auto* block = inHand();
  acts_.showFrame(block->clip, edge == ClipEdge::In ? block->markIn : block->markOut);
}

void TimelineHand::letGoOfEdge() {
  if (std::exchange(state_.edge, std::nullopt)) acts_.endFrame();
}

void TimelineHand::go(int direction, const TimelineHeld& held) {
  if (state_.onlyShows) return;
  if (held.control) return moveClip(direction);
  if (state_.edge) return step(direction);
  if (inHand() == nullptr) return goTo(false);
  select(nextOf(state_.blocks, state_.marks.clip, direction));
}

void TimelineHand::goTo(bool last) {
  if (state_.onlyShows) return;
  const auto& blocks = state_.blocks;
  select(last ? nextOf(blocks, lastNumber(blocks) + 1, -1) : nextOf(blocks, 0, 1));
}

// Moves the chosen edge by a picture.
void TimelineHand::step(int direction) {
  const auto* block = inHand();
  if (block == nullptr) return;
  if (state_.settingKeyframes) return say(*block, heldMarks(*state_.edge));
  const auto reading = markStep(*block, *state_.edge, direction);
  say(*block, reading);
  const auto* mark = std::get_if<MarkGesture>(&reading.gesture);
  if (mark == nullptr) return;
  acts_.showFrame(mark->clip, mark->seconds);
  acts_.setMark(*mark);
}

void TimelineHand::moveClip(int direction) {
  const auto* block = inHand();
  if (block == nullptr) return;
  const auto& row = rowWith(state_.blocks, block->clip);
  const auto index = block - row.data();
  const auto count = static_cast<std::ptrdiff_t>(row.size());
  if (direction < 0 && index == 0) return say(*block, refusal("Nothing lies ahead of the first clip"));
  if (direction > 0 && index == count - 1) return say(*block, refusal("Nothing lies behind the last clip"));
  const auto at = [&](std::ptrdiff_t i) { return row[static_cast<std::size_t>(i)].clip; };
  if (direction < 0) return acts_.moveTo(block->clip, at(index - 1));
  acts_.moveTo(block->clip, index + 2 < count ? at(index + 2) : at(count - 1) + 1);
}

// At the playhead: the clip in hand where it is seen there, else the one that is.
void TimelineHand::split() {
  const double seconds = state_.marks.playhead;
  const auto* block = inHand();
  const bool isThere = block->start <= seconds && seconds < block->stop;
  const auto* parted = isThere ? block : state_.blocks.seenAt(seconds);
  if (parted == nullptr) return say(*block, refusal("No clip stands at the playhead"));
  refuse(*parted, seconds, acts_.split(parted->clip));
}

}  // namespace kvo
