#include "editor/timeline/timeline_gestures.h"

#include "base/numbers.h"
#include "core/telling/translated.h"
#include "vocabulary/transitions.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kSnap = 8;             // pixels
constexpr double kLeastSection = 0.01;  // seconds, of a clip whose pictures are not counted
constexpr double kLeastStill = 0.1;     // seconds
constexpr int kShortestTransition = 2;  // tenths: less is too short to be had
constexpr double kHalf = 0.5;

struct DragContext {
  const TimelineBlocks& blocks;
  const TimelineSight& sight;
  const TimelineMarks& marks;
  const TimelineDrag& drag;

  [[nodiscard]] double shift() const { return (drag.to.x - drag.from.x) / sight.scale; }
};

std::string tenthsText(int tenths) { return FormatMask(tenths / 10.0, "0.0"); }

// The nearest of some times, within reach of the pointer.
class Snap {
 public:
  Snap(const DragContext& context, double seconds)
      : seconds_(seconds),
        nearest_(seconds),
        reach_(context.drag.held.alt ? 0 : kSnap / context.sight.scale) {}

  void to(double candidate) {
    const double distance = std::abs(candidate - seconds_);
    if (distance >= reach_) return;
    reach_ = distance;
    nearest_ = candidate;
  }
  void toEdges(const TimelineBlock& block) {
    to(block.start);
    to(block.stop);
  }
  void toClips(const TimelineBlocks& blocks) {
    const auto behind = blocks.firstBehind(seconds_ - reach_);
    for (auto i = behind; i < blocks.clips.size() && blocks.clips[i].start <= seconds_ + reach_; ++i)
      toEdges(blocks.clips[i]);
    to(blocks.videoEnd);
  }
  void toMusic(const TimelineBlocks& blocks) {
    for (const auto& block : blocks.music) toEdges(block);
  }
  [[nodiscard]] double seconds() const { return nearest_; }

 private:
  double seconds_;
  double nearest_;
  double reach_;
};

// A mark at a picture of the file, or in a still's case at a tenth of a second.
TimelineReading stillLength(const TimelineBlock& block, double source) {
  const double seconds = std::max(kLeastStill, std::round(source * 10) / 10);
  TimelineReading out;
  out.gesture = MarkGesture{block.clip, ClipEdge::Out, seconds, 0};
  out.text = translated("Duration %1 s", {FormatMask(seconds, "0.0")});
  out.line = block.movieAt(seconds);
  return out;
}

TimelineReading markAt(const TimelineBlock& block, ClipEdge edge, double source) {
  const bool in = edge == ClipEdge::In;
  if (block.isStill && in)
    return {.gesture = {}, .text = {}, .reason = translated("A still has no Mark-In"), .line = {}};
  if (block.isStill) return stillLength(block, source);
  const double step = block.frameRate > 0 ? 1 / block.frameRate : kLeastSection;
  const double end = block.sourceLength > 0 ? block.sourceLength : block.markOut;
  const double least = in ? 0 : block.markIn + step;
  const double most = in ? block.markOut - step : end;
  const double held = std::clamp(source, std::min(least, most), std::max(least, most));
  const auto frame = block.frameRate > 0 ? toLongClamped(held * block.frameRate) : 0;
  double seconds = block.frameRate > 0 ? frame / block.frameRate : held;
  if (!in && seconds > end - step * kHalf)
    seconds = end;  // all that there is, also behind the last whole picture
  TimelineReading out;
  out.gesture = MarkGesture{block.clip, edge, seconds, frame};
  out.text = translated(in ? "Mark-In %1 s" : "Mark-Out %1 s", {FormatMask(seconds, "0.00")});
  if (block.frameRate > 0) out.text += "   " + translated("frame %1", {std::to_string(frame)});
  if (source < least - step)
    out.reason = translated(in ? "The file begins here" : "Mark-Out stays behind Mark-In");
  if (source > most + step)
    out.reason = translated(in ? "Mark-In stays ahead of Mark-Out" : "The file ends here");
  out.line = block.movieAt(seconds);
  return out;
}

TimelineReading markMeaning(const DragContext& c, const TimelineBlock& block, ClipEdge edge) {
  const double moved = (edge == ClipEdge::In ? block.start : block.stop) + c.shift();
  Snap snap(c, moved);
  const bool isMusic =
      c.blocks.music.data() <= &block && &block < c.blocks.music.data() + c.blocks.music.size();
  isMusic ? snap.toClips(c.blocks) : snap.toMusic(c.blocks);
  snap.to(c.marks.playhead);
  return markAt(block, edge, block.sourceAt(snap.seconds()));
}

std::string limitReason(const TimelineBlock& block, bool isFirst) {
  const auto limit = tenthsText(block.longestTransition);
  return isFirst ? translated("At most %1 s: half of the clip", {limit})
                 : translated("At most %1 s: the shorter of the two clips", {limit});
}

TimelineReading transitionOf(const DragContext& c, const TimelineBlock& block, double seconds) {
  const bool isFirst = &block == c.blocks.clips.data();
  TimelineReading out;
  if (block.longestTransition < kShortestTransition) {
    out.reason = translated(kTooShortForTransition);
    return out;
  }
  const int wanted = toLongClamped(seconds * 10);
  const int tenths = std::clamp(wanted, 0, block.longestTransition);
  const auto name = block.transition.empty() ? std::string(kFirstTransition) : block.transition;
  out.gesture = TransInGesture{block.clip, tenths};
  out.text = tenths == 0 ? translated("Cut") : name + " " + translated("%1 s", {tenthsText(tenths)});
  if (wanted > block.longestTransition) out.reason = limitReason(block, isFirst);
  return out;
}

// The wedge grows from the clip's front: what ends with the clip ahead stays where it is until it is let go.
TimelineReading wedgeMeaning(const DragContext& c, const TimelineBlock& block) {
  auto out = transitionOf(c, block, block.overlap + c.shift());
  if (const auto* made = std::get_if<TransInGesture>(&out.gesture))
    out.line = block.start + made->tenths / 10.0;
  return out;
}

// A clip whose place in the order stays is pushed over the one ahead, or back.
TimelineReading frontMeaning(const DragContext& c, const TimelineBlock& block) {
  const double shift = c.shift();
  const bool isFirst = &block == c.blocks.clips.data();
  TimelineReading out;
  if (isFirst && shift < 0) {
    out.reason = translated("Nothing lies ahead of the first clip");
  } else if (shift > 0 && (isFirst || block.overlap <= 0)) {
    out.reason = translated("Clips follow each other without a gap");
  } else {
    out = transitionOf(c, block, block.overlap - shift);
    if (const auto* made = std::get_if<TransInGesture>(&out.gesture))
      out.line = block.start + block.overlap - made->tenths / 10.0;
  }
  return out;
}

double placeAhead(const TimelineBlocks& blocks, int before) {
  const auto* block = blocks.of(before);
  return block != nullptr ? block->start : blocks.videoEnd;
}

TimelineReading clipMeaning(const DragContext& c, const TimelineBlock& block) {
  const int before = clipBehind(c.blocks, c.sight, c.drag.to.x);
  const auto index = &block - c.blocks.clips.data();
  const auto next = static_cast<std::size_t>(index) + 1;
  const int behind = next < c.blocks.clips.size() ? c.blocks.clips[next].clip : block.clip + 1;
  if (before == block.clip || before == behind) return frontMeaning(c, block);
  TimelineReading out;
  out.gesture = MoveGesture{block.clip, before};
  out.line = placeAhead(c.blocks, before);
  return out;
}

TimelineReading musicMeaning(const DragContext& c, const TimelineBlock& block) {
  const auto bands = bandsOf(c.sight, c.blocks.lanes);
  TimelineReading out;
  if (c.drag.to.y < bands.clips.bottom()) {
    out.reason = translated("Music lies under the clips");
    return out;
  }
  const int before = musicBehind(c.blocks, c.sight, c.drag.to);
  if (before == block.clip || before == block.clip + 1) return out;
  out.gesture = MoveGesture{block.clip, before};
  const auto* ahead = c.blocks.of(before);
  if (!c.blocks.isStacked) out.line = ahead != nullptr ? ahead->start : c.blocks.musicEnd;
  return out;
}

TimelineReading fadeMeaning(const DragContext& c, const TimelineBlock& block, ClipEdge edge) {
  const bool in = edge == ClipEdge::In;
  const int most = static_cast<int>(block.length() * 10 / 2);
  const double seconds = in ? block.fadeIn + c.shift() : block.fadeOut - c.shift();
  const int wanted = toLongClamped(seconds * 10);
  const int tenths = std::clamp(wanted, 0, most);
  TimelineReading out;
  out.gesture = FadeGesture{block.clip, edge, tenths};
  const auto length = tenths == 0 ? translated("- Cut") : tenthsText(tenths) + "s";
  out.text = translated(in ? "Fade In Over %1" : "Fade Out Over %1", {length});
  if (wanted > most) out.reason = translated("At most %1 s: half of the clip", {tenthsText(most)});
  out.line = in ? block.start + tenths / 10.0 : block.stop - tenths / 10.0;
  return out;
}

double rulerTime(const DragContext& c, double seconds, bool toPlayhead) {
  Snap snap(c, seconds);
  snap.toClips(c.blocks);
  if (toPlayhead) snap.to(c.marks.playhead);
  return std::clamp(snap.seconds(), 0.0, c.blocks.end());
}

TimelineReading seekMeaning(const DragContext& c) {
  const double seconds = rulerTime(c, c.sight.secondsAt(c.drag.to.x), false);
  return {.gesture = SeekGesture{seconds},
          .text = translated("%1 s", {FormatMask(seconds, "0.00")}),
          .reason = {},
          .line = {}};
}

TimelineReading rangeMeaning(const DragContext& c, double fixed) {
  const double moved = rulerTime(c, c.sight.secondsAt(c.drag.to.x), true);
  const TimelineRange range{std::min(fixed, moved), std::max(fixed, moved)};
  return {
      .gesture = RangeGesture{range},
      .text = translated("From %1 to %2 s", {FormatMask(range.from, "0.00"), FormatMask(range.to, "0.00")}),
      .reason = {},
      .line = {}};
}

TimelineReading rulerMeaning(const DragContext& c) {
  const auto& range = c.marks.range;
  if (range && c.drag.hit.part == TimelinePart::RangeFrom) return rangeMeaning(c, range->to);
  if (range && c.drag.hit.part == TimelinePart::RangeTo) return rangeMeaning(c, range->from);
  if (!c.drag.held.shift) return seekMeaning(c);
  return rangeMeaning(c, rulerTime(c, c.sight.secondsAt(c.drag.from.x), true));
}

}  // namespace

TimelineReading meaningOf(const TimelineBlocks& blocks, const TimelineSight& sight,
                          const TimelineMarks& marks, const TimelineDrag& drag) {
  const DragContext c{blocks, sight, marks, drag};
  const auto* block = blocks.of(drag.hit.clip);
  if (block == nullptr) {
    const bool isRuler = drag.hit.part >= TimelinePart::Ruler;
    return isRuler ? rulerMeaning(c) : TimelineReading{};
  }
  switch (drag.hit.part) {
    case TimelinePart::MarkIn:
      return markMeaning(c, *block, ClipEdge::In);
    case TimelinePart::MarkOut:
      return markMeaning(c, *block, ClipEdge::Out);
    case TimelinePart::FadeIn:
      return fadeMeaning(c, *block, ClipEdge::In);
    case TimelinePart::FadeOut:
      return fadeMeaning(c, *block, ClipEdge::Out);
    case TimelinePart::Wedge:
    case TimelinePart::WedgeEnd:
      return wedgeMeaning(c, *block);
    case TimelinePart::Music:
      return musicMeaning(c, *block);
    default:
      return clipMeaning(c, *block);
  }
}

TimelineReading markStep(const TimelineBlock& block, ClipEdge edge, int pictures) {
  const double step = block.isStill ? kLeastStill : block.frameRate > 0 ? 1 / block.frameRate : kLeastSection;
  const double now = edge == ClipEdge::In ? block.markIn : block.markOut;
  return markAt(block, edge, now + pictures * step);
}

TimelineReading heldMarks(ClipEdge edge) {
  return {.gesture = {},
          .text = {},
          .reason = translated(edge == ClipEdge::In ? "Cannot re-set Mark-In point while setting Keyframes"
                                                    : "Cannot re-set Mark-Out point while setting Keyframes"),
          .line = {}};
}

}  // namespace kvo
