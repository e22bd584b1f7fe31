#include "editor/timeline/timeline_hit.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kReach = 12;        // pixels to both sides of an edge of the clip in hand: 24 in all
constexpr double kPlainReach = 6;    // of any other edge
constexpr double kLeastMiddle = 12;  // of a block stay its own, however narrow it is

bool near(double x, double edge, double reach) { return std::abs(x - edge) <= reach; }

TimelinePart rulerPart(const TimelineSight& sight, const TimelineMarks& marks, double x) {
  if (near(x, sight.xOf(marks.playhead), kReach)) return TimelinePart::Playhead;
  if (marks.range && near(x, sight.xOf(marks.range->to), kReach)) return TimelinePart::RangeTo;
  if (marks.range && near(x, sight.xOf(marks.range->from), kReach)) return TimelinePart::RangeFrom;
  return TimelinePart::Ruler;
}

// Handles are 24 x 24 about their middle, as far as the block goes.
std::optional<TimelinePart> fadeAt(const SeenBlock& seen, const TimelineSight& sight,
                                   const TimelinePoint& at) {
  if (seen.fullLevel <= 0 || seen.box.width < 2 * kReach) return std::nullopt;
  for (const auto edge : {ClipEdge::In, ClipEdge::Out}) {
    const auto handle = fadeHandle(seen, sight, edge);
    const TimelineBox reach{std::max(handle.x - kReach, seen.box.x + kPlainReach), handle.y - kPlainReach,
                            2 * kReach, 2 * kReach};
    const bool isInside = at.x < seen.box.right() - kPlainReach;
    if (isInside && reach.holds(at))
      return edge == ClipEdge::In ? TimelinePart::FadeIn : TimelinePart::FadeOut;
  }
  return std::nullopt;
}

std::optional<TimelinePart> edgeAt(const SeenBlock& seen, double x, double outside) {
  const double inside = std::min(outside, std::max(0.0, seen.box.width - kLeastMiddle) / 2);
  if (x >= seen.box.x - outside && x <= seen.box.x + inside) return TimelinePart::MarkIn;
  if (x >= seen.box.right() - inside && x <= seen.box.right() + outside) return TimelinePart::MarkOut;
  return std::nullopt;
}

TimelineBox grown(const TimelineBox& badge) {
  if (badge.width <= 0) return {};
  return {badge.x - 2, badge.y - 3, badge.width + 4, 24};
}

TimelinePart clipPart(const SeenBlock& seen, const TimelineSight& sight, const TimelinePoint& at) {
  const bool hasWedge = seen.wedge.width > 0;
  for (std::size_t i = 0; i < kTimelineBadges; ++i) {
    if (grown(seen.badges[i]).holds(at)) return partOf(static_cast<TimelineBadge>(i));
  }
  if (const auto fade = fadeAt(seen, sight, at)) return *fade;
  if (hasWedge && at.y < seen.wedge.bottom() && near(at.x, seen.wedge.right(), kPlainReach))
    return TimelinePart::WedgeEnd;
  if (hasWedge && seen.wedge.holds(at)) return TimelinePart::Wedge;
  return edgeAt(seen, at.x, kPlainReach).value_or(TimelinePart::Clip);
}

TimelineHit clipAt(const std::vector<SeenBlock>& inSight, const TimelineSight& sight, int inHand,
                   const TimelinePoint& at) {
  // The grips of the clip in hand stand beside its pictures.
  const bool atPictures = bandsOf(sight, 1).pictures.y <= at.y;
  TimelineHit hit;
  for (const auto& seen : inSight) {
    const bool isInHand = seen.block->clip == inHand;
    const bool reaches =
        seen.wedge.width > 0 && at.y < seen.wedge.bottom() && near(at.x, seen.wedge.right(), kPlainReach);
    if (isInHand && reaches) return {TimelinePart::WedgeEnd, inHand};
    const bool isGrip = isInHand && atPictures && (seen.fullLevel <= 0 || at.y < seen.fullLevel);
    if (const auto edge = isGrip ? edgeAt(seen, at.x, kReach) : std::nullopt) return {*edge, inHand};
    if (seen.box.holds(at) || reaches) hit = {clipPart(seen, sight, at), seen.block->clip};
  }
  return hit;
}

TimelineHit musicAt(const std::vector<SeenBlock>& inSight, const TimelineSight& sight, int inHand,
                    const TimelinePoint& at) {
  TimelineHit hit;
  for (const auto& seen : inSight) {
    const bool isInHand = seen.block->clip == inHand;
    const TimelineBox reach{seen.box.x - kReach, seen.box.y, seen.box.width + 2 * kReach, seen.box.height};
    if (!(isInHand ? reach : seen.box).holds(at)) continue;
    const auto fade = fadeAt(seen, sight, at);
    const auto edge = edgeAt(seen, at.x, isInHand ? kReach : kPlainReach);
    const auto part = fade ? *fade : edge.value_or(TimelinePart::Music);
    hit = {part, seen.block->clip};
    if (isInHand) return hit;
  }
  return hit;
}

}  // namespace

TimelineHit hitAt(const TimelineBlocks& blocks, const TimelineSight& sight, const TimelineMarks& marks,
                  const TimelinePoint& at) {
  if (blocks.empty() || at.x < kLaneHeads || at.y < 0 || at.x >= sight.width) return {};
  const auto bands = bandsOf(sight, blocks.lanes);
  if (at.y < kRulerHeight) return {rulerPart(sight, marks, at.x), 0};
  if (bands.clips.holds(at)) return clipAt(clipsInSight(blocks, sight), sight, marks.clip, at);
  if (bands.music.holds(at)) return musicAt(musicInSight(blocks, sight), sight, marks.clip, at);
  return {};
}

int clipBehind(const TimelineBlocks& blocks, const TimelineSight& sight, double x) {
  if (blocks.clips.empty()) return 1;
  const double seconds = sight.secondsAt(x);
  for (auto i = blocks.firstBehind(seconds); i < blocks.clips.size(); ++i) {
    const auto& block = blocks.clips[i];
    if ((block.start + block.stop) / 2 > seconds) return block.clip;
  }
  return blocks.clips.back().clip + 1;
}

int musicBehind(const TimelineBlocks& blocks, const TimelineSight& sight, const TimelinePoint& at) {
  const auto bands = bandsOf(sight, blocks.lanes);
  const double seconds = sight.secondsAt(at.x);
  const double lane = (at.y - bands.music.y) / kMusicHeight + sight.firstLane;
  for (const auto& block : blocks.music) {
    const bool isBehind =
        blocks.isStacked ? block.lane + 0.5 > lane : (block.start + block.stop) / 2 > seconds;
    if (isBehind) return block.clip;
  }
  return (blocks.music.empty() ? blocks.clips : blocks.music).back().clip + 1;
}

}  // namespace kvo
