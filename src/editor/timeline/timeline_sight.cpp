#include "editor/timeline/timeline_sight.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvo {
namespace {

constexpr double kGap = 8;    // pixels between ruler, clips and music
constexpr double kFoot = 22;  // below the music, for the scroll bar
constexpr double kSoundHeight = 25;
constexpr double kHeightWithSound = 90;  // of the lane of clips
constexpr double kLeastClips = 44;
constexpr double kFreeBehind = 0.1;  // of the width, behind the end
constexpr double kLeastTick = 80;    // pixels between marks with a time
constexpr double kBadgeTop = 3;
constexpr double kBadgeWidth = 20;
constexpr double kBadgeHeight = 13;
constexpr double kRoomForBadge = 44;  // pixels of a block
constexpr double kMusicLine = 15;     // from a lane's top to its full level, below its name
constexpr double kSoundLine = 4;      // the same of a clip's sound
constexpr double kHandleInside = 12;  // a handle stands so far from the block's end at least

struct TickSteps {
  double large = 0;  // seconds
  double small = 0;
};
constexpr std::array kTickSteps = {TickSteps{0.5, 0.1},  TickSteps{1, 0.2},     TickSteps{2, 0.5},
                                   TickSteps{5, 1},      TickSteps{10, 2},      TickSteps{15, 5},
                                   TickSteps{30, 5},     TickSteps{60, 10},     TickSteps{120, 30},
                                   TickSteps{300, 60},   TickSteps{600, 120},   TickSteps{1800, 300},
                                   TickSteps{3600, 600}, TickSteps{14400, 3600}};

std::string clockText(double seconds, bool withTenths) {
  const auto tenths = std::llround(seconds * 10);
  const auto whole = tenths / 10;
  const auto two = [](long long n) { return (n < 10 ? "0" : "") + std::to_string(n); };
  auto text = two(whole / 60 % 60) + ":" + two(whole % 60);
  if (whole >= 3600) text = std::to_string(whole / 3600) + ":" + text;
  return withTenths ? text + "." + std::to_string(tenths % 10) : text;
}

double leastScale(const TimelineSight& sight, double end) {
  return std::min(kLeastScale, wholeScale(sight, end));
}

// They stand beside each other, the first at the right.
void addBadges(SeenBlock& seen) {
  if (seen.openTo - seen.wedge.right() < kRoomForBadge) return;
  double right = seen.openTo - 4;
  for (std::size_t i = 0; i < kTimelineBadges; ++i) {
    if (seen.block->badges[i] == 0 || right - kBadgeWidth <= seen.wedge.right()) continue;
    seen.badges[i] = {right - kBadgeWidth, seen.box.y + kBadgeTop, kBadgeWidth, kBadgeHeight};
    right -= kBadgeWidth + 4;
  }
}

}  // namespace

double TimelineSight::seconds() const { return std::max(1.0, width - kLanesLeft - kLanesRight) / scale; }

double lastFrom(const TimelineSight& sight, double end) {
  return std::max(0.0, end - sight.seconds() * (1 - kFreeBehind));
}

double wholeScale(const TimelineSight& sight, double end) {
  const double room = std::max(1.0, sight.width - kLanesLeft - kLanesRight);
  return end > 0 ? std::min(kLargestScale, room / end) : kLargestScale;
}

void scrollTo(TimelineSight& sight, double end, double from) {
  sight.from = std::clamp(from, 0.0, lastFrom(sight, end));
}

void zoomTo(TimelineSight& sight, double end, double scale, double x) {
  const double there = sight.secondsAt(x);
  sight.scale = std::clamp(scale, leastScale(sight, end), kLargestScale);
  scrollTo(sight, end, there - (x - kLanesLeft) / sight.scale);
}

void showWhole(TimelineSight& sight, double end) {
  sight.scale = wholeScale(sight, end);
  sight.from = 0;
}

void bringInSight(TimelineSight& sight, double end, double start, double stop) {
  const double room = sight.seconds();
  const double margin = room * kFreeBehind;
  if (stop - start >= room - 2 * margin || start < sight.from) {
    if (start < sight.from || start > sight.from + room - margin) scrollTo(sight, end, start - margin);
  } else if (stop > sight.from + room) {
    scrollTo(sight, end, stop - room + margin);
  }
}

TimelineBands bandsOf(const TimelineSight& sight, int lanes) {
  const double top = kRulerHeight + kGap;
  const double room = sight.height - top - kGap - kFoot;
  const int most = std::max(1, static_cast<int>((room - kHeightWithSound) / kMusicHeight));
  TimelineBands bands;
  bands.lanes = std::clamp(lanes, 1, most);
  const double music = bands.lanes * kMusicHeight;
  const double clips = std::max(kLeastClips, room - music);
  const double sound = clips >= kHeightWithSound ? kSoundHeight : 0;
  const double width = std::max(0.0, sight.width - kLaneHeads - 2);
  const double left = kLaneHeads + 2;
  bands.clips = {left, top, width, clips};
  bands.pictures = {left, top + kTitleHeight, width, clips - kTitleHeight - sound};
  bands.sound = {left, bands.pictures.bottom(), width, sound};
  bands.music = {left, bands.clips.bottom() + kGap, width, music};
  return bands;
}

std::vector<TimelineTick> rulerTicks(const TimelineSight& sight) {
  auto steps = kTickSteps.back();
  for (const auto& row : kTickSteps) {
    if (row.large * sight.scale < kLeastTick) continue;
    steps = row;
    break;
  }
  std::vector<TimelineTick> ticks;
  const auto every = std::llround(steps.large / steps.small);
  // A time whose mark is out of sight may reach in.
  const double first = std::max(0.0, sight.from - kLeastTick / sight.scale);
  for (auto n = static_cast<long long>(std::floor(first / steps.small));; ++n) {
    const double seconds = static_cast<double>(n) * steps.small;
    const double x = sight.xOf(seconds);
    if (x >= sight.width) return ticks;
    ticks.push_back({x, n % every == 0 ? clockText(seconds, steps.large < 1) : std::string()});
  }
}

std::vector<SeenBlock> clipsInSight(const TimelineBlocks& blocks, const TimelineSight& sight) {
  const auto bands = bandsOf(sight, blocks.lanes);
  std::vector<SeenBlock> seen;
  double drawnTo = kLaneHeads;
  for (auto i = blocks.firstBehind(sight.secondsAt(drawnTo)); i < blocks.clips.size();) {
    const auto& block = blocks.clips[i];
    const double left = sight.xOf(block.start);
    if (left >= sight.width) break;
    auto& shown = seen.emplace_back();
    shown.block = &block;
    shown.box = {left, bands.clips.y, std::max(1.0, block.length() * sight.scale), bands.clips.height};
    const double wedge = std::min(block.overlap * sight.scale, shown.box.width);
    shown.wedge = {left, bands.clips.y, wedge, bands.pictures.bottom() - bands.clips.y};
    if (block.isHeard && bands.sound.height > 0) shown.fullLevel = bands.sound.y + kSoundLine;
    const bool hasNext = i + 1 < blocks.clips.size();
    shown.openTo =
        hasNext ? std::min(shown.box.right(), sight.xOf(blocks.clips[i + 1].start)) : shown.box.right();
    addBadges(shown);
    drawnTo = std::max(drawnTo, std::floor(shown.box.right()));
    const bool isNarrow = shown.box.width < 2;
    i = isNarrow ? std::max(i + 1, blocks.firstBehind(sight.secondsAt(drawnTo + 1))) : i + 1;
  }
  return seen;
}

std::vector<SeenBlock> musicInSight(const TimelineBlocks& blocks, const TimelineSight& sight) {
  const auto bands = bandsOf(sight, blocks.lanes);
  std::vector<SeenBlock> seen;
  for (const auto& block : blocks.music) {
    const int lane = block.lane - sight.firstLane;
    const double left = sight.xOf(block.start);
    if (lane < 0 || lane >= bands.lanes || left >= sight.width) continue;
    if (sight.xOf(block.stop) <= kLaneHeads) continue;
    auto& shown = seen.emplace_back();
    shown.block = &block;
    shown.box = {left, bands.music.y + lane * kMusicHeight, std::max(1.0, block.length() * sight.scale),
                 kMusicHeight};
    shown.openTo = shown.box.right();
    shown.fullLevel = shown.box.y + kMusicLine;
  }
  return seen;
}

TimelinePoint fadeHandle(const SeenBlock& seen, const TimelineSight& sight, ClipEdge edge) {
  const auto& block = *seen.block;
  const double inside = std::min(kHandleInside, seen.box.width / 2);
  const double x = edge == ClipEdge::In
                       ? std::max(sight.xOf(block.start + block.fadeIn), seen.box.x + inside)
                       : std::min(sight.xOf(block.stop - block.fadeOut), seen.box.right() - inside);
  return {x, seen.fullLevel};
}

}  // namespace kvo
