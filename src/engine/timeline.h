// A timeline document as the engine works on it: tracks of clips from bottom to top, every time in seconds of
// the timeline or of the source, as the document gives it.
#pragma once

#include "engine/transitions/registry.h"
#include "media/picture.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kvo::engine {

/// A parameter that changes over time. Times count from the start of what it belongs to.
struct Keyed {
  struct Key {
    double time = 0;
    double value = 0;
    bool linear = true;  ///< runs to its value from the key before; else jumps there
  };
  double value = 0;  ///< at time 0
  std::vector<Key> keys;

  /// The value at `time` seconds; the last key's value holds on.
  [[nodiscard]] double at(double time) const;
};

struct Transition {
  std::string clsid;
  double start = 0;  ///< timeline seconds
  double stop = 0;
  TransitionParams params{};  ///< the other parameters
  Keyed progress;             ///< 0 is what lies below, 1 the clip itself
};

struct Clip {
  std::string src;
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

struct VideoClip : Clip {
  std::vector<Transition> transitions;
};

struct AudioClip : Clip {
  std::vector<Keyed> envelopes;  ///< factors; all of them apply
};

struct Timeline {
  bool hasVideo = false;
  int bitDepth = 24;
  int width = 0;  ///< pixels
  int height = 0;
  double frameRate = 25;         ///< frames a second
  std::vector<VideoClip> video;  ///< bottom to top
  std::vector<AudioClip> audio;

  /// The end of the last clip, in seconds.
  [[nodiscard]] double length() const;

  /// The first frame whose time is `seconds` or later. Times of a document are rounded to a few decimals, so
  /// one that lies a hundredth of a frame behind still counts.
  [[nodiscard]] std::int64_t frameFrom(double seconds) const;
};

}  // namespace kvo::engine
