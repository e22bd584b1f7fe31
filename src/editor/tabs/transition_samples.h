// The port to small pictures of transitions, made of the user's own clips: what the list of names is drawn
// with.
#pragma once

#include "ports/frame_source.h"

#include <functional>
#include <memory>
#include <string_view>

namespace kvo {

/// Of a sample, in pixels.
inline constexpr int kTransitionSampleWidth = 150;
inline constexpr int kTransitionSampleHeight = 90;
/// Pictures of one sample, evenly from its start to its end; the one behind the middle stands for it.
inline constexpr int kTransitionSampleSteps = 12;
inline constexpr int kTransitionSampleStill = 7;

class TransitionSamples {
 public:
  using Picture = std::shared_ptr<const FramePicture>;

  TransitionSamples() = default;
  TransitionSamples(const TransitionSamples&) = delete;
  TransitionSamples& operator=(const TransitionSamples&) = delete;
  virtual ~TransitionSamples() = default;

  /// Picture `step` (0 to kTransitionSampleSteps - 1) of the transition of that name. Null while it is being
  /// made; ask again when pictures have come.
  virtual Picture picture(std::string_view name, int step) = 0;
  /// Grows when other pictures have come: what is drawn is out of date.
  [[nodiscard]] virtual int revision() const = 0;
};

}  // namespace kvo
