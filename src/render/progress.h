// How far a render has come.
#pragma once

#include "render/engine_protocol.h"

#include <optional>
#include <string>

namespace kvo {

struct RenderProgress {
  EngineProgress movie;  ///< seconds of it
  double frameRate = 0;  ///< of the movie, frames a second; 0 for a sound file
  double elapsed = 0;    ///< seconds of work so far
};

/// 0 to 1.
double shareDone(const RenderProgress& progress);

/// Frames of the movie; 0 for a sound file.
std::int64_t framesDone(const RenderProgress& progress);
std::int64_t framesInAll(const RenderProgress& progress);

/// Frames made in a second of work. Nothing before the first one.
std::optional<double> framesPerSecond(const RenderProgress& progress);

/// Seconds of the movie made in a second of work. Nothing before the first bit of it.
std::optional<double> speedOf(const RenderProgress& progress);

/// Seconds of work, as the speed so far has it. Nothing as above.
std::optional<double> secondsLeft(const RenderProgress& progress);

/// " 43%  2.10 x real time  0:12 left"
std::string progressText(const RenderProgress& progress);

/// "1:05" or "1:01:05"; whole seconds, rounded up.
std::string clockText(double seconds);

/// "17.4 MB", "812 bytes"; powers of ten.
std::string bytesText(double bytes);

}  // namespace kvo
