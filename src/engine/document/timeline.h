// A timeline document as the engine works on it: layers from bottom to top, every time in seconds of the
// timeline or of the source, as the document gives it.
#pragma once

#include "base/frame_rate.h"
#include "engine/document/params.h"
#include "media/picture.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kvo::engine {

struct EffectKind;
struct TransitionKind;

/// What happens to a clip's picture. Times count from the clip's start.
struct Effect {
  const EffectKind* kind = nullptr;  ///< of the registry, never null
  double start = 0;                  ///< seconds
  double stop = 0;
  Params params{};
};

/// How a layer comes in over what lies below.
struct Transition {
  const TransitionKind* kind = nullptr;  ///< of the registry, never null
  double start = 0;                      ///< timeline seconds
  double stop = 0;
  Params params{};

  /// 0 is what lies below, 1 the layer itself: by the parameter "Progress", else the share of the time.
  [[nodiscard]] double progressAt(double time) const;
};

struct Clip {
  std::string src{};
  double mstart = 0;  ///< source seconds
  double mstop = 0;
  double start = 0;  ///< timeline seconds
  double stop = 0;
  media::Fit fit = media::Fit::Stretch;

  /// Source seconds for each timeline second: the clip's speed.
  [[nodiscard]] double ratio() const { return (mstop - mstart) / (stop - start); }
  /// The source time shown at timeline time `t`.
  [[nodiscard]] double sourceTime(double t) const { return mstart + (t - start) * ratio(); }
};

/// A clip, or a composition of layers that is one towards what lies below.
struct Layer : Clip {
  std::vector<Effect> effects{};
  std::vector<Transition> transitions{};
  std::vector<Layer> inside{};  ///< bottom to top; of a composition, which has no source of its own
};

struct AudioClip : Clip {
  std::vector<Keyed> envelopes{};  ///< factors; all of them apply
};

struct Timeline {
  bool hasVideo = false;
  int bitDepth = 24;
  int width = 0;  ///< pixels
  int height = 0;
  FrameRate frameRate{};
  std::vector<Layer> video{};  ///< bottom to top
  std::vector<AudioClip> audio{};

  /// The end of the last clip, in seconds.
  [[nodiscard]] double length() const;
  /// How many frames that is.
  [[nodiscard]] std::int64_t frames() const { return frameRate.frameFrom(length()); }
};

/// Every file that the pictures are made from, those inside of compositions and the masks of transitions too.
std::vector<std::string> pictureFiles(const std::vector<Layer>& layers);

}  // namespace kvo::engine
