// What a frame is made of: which layers, at which times of their sources, by which effects and transitions.
// Plain data, decided ahead of any file or pixel; a Stack carries it out.
#pragma once

#include "engine/document/active_set.h"
#include "engine/document/timeline.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace kvo::engine {

/// The sides of a timeline's pictures, in pixels: its own, rounded up to even.
struct FrameSize {
  int width = 0;
  int height = 0;
};
FrameSize frameSizeOf(const Timeline& timeline);

/// An effect that is at work.
struct PlannedEffect {
  std::size_t number = 0;  ///< among the layer's
  double time = 0;         ///< seconds since its start
};

/// A layer that is on screen, or that comes in now.
struct PlannedLayer {
  std::size_t number = 0;  ///< among the layers of its stack
  const Layer* layer = nullptr;
  double sourceTime = 0;  ///< seconds of the clip's file
  std::vector<PlannedEffect> effects{};
  const Transition* transition = nullptr;  ///< null: it simply lies over what is below
  double progress = 1;                     ///< of the transition; at 0 nothing of the layer is seen
  double time = 0;                         ///< seconds since the transition's start
  std::vector<PlannedLayer> inside{};      ///< of a composition of which something is seen
};

/// From bottom to top. What a layer without alpha hides is only known when it is drawn, and stands here too.
using FramePlan = std::vector<PlannedLayer>;

/// Plans one frame after the other; forward is cheap.
class FramePlanner {
 public:
  /// `timeline` outlives the planner and what it plans.
  explicit FramePlanner(const Timeline& timeline);

  /// The plan of frame `number`, counted from 0; empty where there is no clip.
  FramePlan at(std::int64_t number);

 private:
  FramePlanner(const std::vector<Layer>& layers, const FrameRate& rate, const FrameSize& size);

  const std::vector<Layer>& layers_;
  FrameRate rate_;
  FrameSize size_;
  ActiveSet active_;
  std::map<std::size_t, FramePlanner> inside_;  // of the compositions on screen, by their numbers
};

/// A line for each layer, effect and transition, what lies inside of a composition set in:
///
///     clip a.avi at 1.48
///       effect Blur at 0.48: pixelradius 20
///       transition Fade 0.55 at 0.44
///
/// Parameters have the values that they have at the time.
std::string toText(const FramePlan& plan);

/// Whether a layer's effects can make something else of the same picture in another frame.
bool changesByItself(const Layer& layer);

}  // namespace kvo::engine
