// The port to small moving pictures of transitions and effects, made of the user's own clips: what the lists
// of their names are drawn with.
#pragma once

#include "ports/media_contents.h"

#include <functional>
#include <memory>
#include <string_view>

namespace kvo {

/// Pixels that a sample fits into, in the movie's shape.
inline constexpr int kTransitionSampleWidth = 150;
inline constexpr int kTransitionSampleHeight = 90;
inline constexpr int kEffectSampleWidth = 96;
inline constexpr int kEffectSampleHeight = 54;
/// Pictures of one sample, evenly from its start to its end; the one behind the middle stands for it.
inline constexpr int kSampleSteps = 12;
inline constexpr int kSampleStill = 7;

class MovingSamples {
 public:
  using Picture = std::shared_ptr<const FramePicture>;

  MovingSamples() = default;
  MovingSamples(const MovingSamples&) = delete;
  MovingSamples& operator=(const MovingSamples&) = delete;
  virtual ~MovingSamples() = default;

  /// Picture `step` (0 to kSampleSteps - 1) of the transition of that name, or of the effect with that number
  /// (1 to 42). Null while it is being made; ask again when pictures have come.
  virtual Picture picture(std::string_view name, int step) = 0;
  /// Grows when other pictures have come: what is drawn is out of date.
  [[nodiscard]] virtual int revision() const = 0;
  /// The user wants little to move: only the sample below the pointer.
  [[nodiscard]] virtual bool areCalm() const { return false; }
};

}  // namespace kvo
