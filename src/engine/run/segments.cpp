#include "engine/run/segments.h"

#include "engine/document/active_set.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace kvo::engine {
namespace {

constexpr double kShortest = 4;  // seconds
constexpr double kUsual = 8;
// Within a clip a beginning costs up to a group of pictures of its source, so such segments are long.
constexpr double kLongest = 30;

// A frame at which a segment may begin, and how many layers are in the middle of their clips there.
struct Beginning {
  std::int64_t frame = 0;
  std::size_t entered = 0;
};

std::int64_t endOf(const Transition& transition, const FrameRate& rate) {
  const auto* progress = transition.params.find("progress");
  double end = transition.stop;
  if (progress != nullptr && !progress->number.keys.empty()) {
    end = std::min(end, transition.start + progress->number.keys.back().time);
  }
  return rate.frameFrom(end);
}

std::vector<Beginning> beginningsOf(const Timeline& timeline) {
  const auto& rate = timeline.frameRate;
  std::vector<ActiveSet::Range> shown;
  std::vector<std::int64_t> frames;
  for (const auto& layer : timeline.video) {
    shown.push_back({rate.frameFrom(layer.start), rate.frameFrom(layer.stop)});
    frames.push_back(shown.back().first);
    for (const auto& transition : layer.transitions) frames.push_back(endOf(transition, rate));
  }
  std::sort(frames.begin(), frames.end());
  frames.erase(std::unique(frames.begin(), frames.end()), frames.end());
  ActiveSet active(shown);
  std::vector<Beginning> beginnings;
  for (const auto frame : frames) {
    const auto& layers = active.at(frame);
    beginnings.push_back(
        {frame, static_cast<std::size_t>(std::count_if(
                    layers.begin(), layers.end(), [&](auto layer) { return shown[layer].first < frame; }))});
  }
  return beginnings;
}

}  // namespace

std::vector<Segment> segmentsOf(const Timeline& timeline, std::int64_t first, std::int64_t stop) {
  const auto frames = [&](double seconds) { return timeline.frameRate.frameFrom(seconds); };
  const auto beginnings = beginningsOf(timeline);
  std::vector<Segment> segments;
  auto from = first;
  while (stop - from >= frames(2 * kShortest)) {
    std::optional<Beginning> best;
    const auto worth = [&](const Beginning& b) {
      return std::pair(b.entered, std::abs(b.frame - from - frames(kUsual)));
    };
    auto next = std::lower_bound(beginnings.begin(), beginnings.end(), from + frames(kShortest),
                                 [](const Beginning& b, std::int64_t frame) { return b.frame < frame; });
    for (; next != beginnings.end() &&
           next->frame <= std::min(from + frames(kLongest), stop - frames(kShortest));
         ++next) {
      if (!best || worth(*next) < worth(*best)) best = *next;
    }
    const auto end = best ? best->frame : from + frames(kLongest);
    if (end > stop - frames(kShortest)) break;
    segments.push_back({from, end});
    from = end;
  }
  segments.push_back({from, stop});
  return segments;
}

}  // namespace kvo::engine
