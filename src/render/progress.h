// How far a render has come.
#pragma once

#include "render/engine_protocol.h"

#include <optional>
#include <string>

namespace kvo {

struct RenderProgress {
  EngineProgress movie;  ///< seconds of it
  double elapsed = 0;    ///< seconds of work so far
  double begunAt = 0;    ///< of these, when the first word came: opening the files is no measure of the rest
  double begunWith = 0;  ///< seconds of the movie that were made then
  double most = 0;       ///< bytes that the file is not to exceed; 0 for no limit
};

/// 0 to 1.
double shareDone(const RenderProgress& progress);

/// Seconds of the movie made in a second of work. Nothing before the first bit of it.
std::optional<double> speedOf(const RenderProgress& progress);

/// Seconds of work, as the speed since the first word has it. Nothing as above.
std::optional<double> secondsLeft(const RenderProgress& progress);

/// Bytes that the file will have, as those of the part that is written have it. Before that the most that it
/// may have, and nothing where there is no limit.
std::optional<double> bytesInAll(const RenderProgress& progress);

/// The time left as it is shown: what secondsLeft says, but in the second half of a render it never rises by
/// more than a fifth from one time to the next.
class SteadyTimeLeft {
 public:
  /// Seconds. Nothing as secondsLeft.
  std::optional<double> after(const RenderProgress& progress);

 private:
  std::optional<double> shown_;
};

/// "43 %, 0:12 left, 17.4 MB of about 40.1 MB"; what is not known is left out.
std::string madeText(const RenderProgress& progress, std::optional<double> secondsLeft);

/// " 43%  2.10 x real time  0:12 left"
std::string progressText(const RenderProgress& progress);

/// "1:05" or "1:01:05"; whole seconds, rounded up.
std::string clockText(double seconds);

/// "17.4 MB", "812 bytes"; powers of ten.
std::string bytesText(double bytes);

}  // namespace kvo
