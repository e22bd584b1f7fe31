// What the render engine tells while it works: lines of text on its standard output, written and read here.
//   progress DONE TOTAL BYTES IN KEPT
//                                 seconds of the movie, a few times a second; the file's bytes so far and the
//                                 seconds that are in them; how much of what is done an earlier run had made
//   damage KIND FROM TO FILE      the "picture" or "sound" of these seconds of a file is missing
//   note TEXT                     where the movie is not made as was asked
//   done FRAMES SECONDS BYTES     the file is in place
// A failure is one line on its standard error.
#pragma once

#include "base/exit_codes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace kvo {

/// Seconds of the movie.
struct EngineProgress {
  double done = 0;
  double total = 0;
  double bytes = 0;    ///< of the file so far
  double written = 0;  ///< seconds that these hold
  double kept = 0;     ///< seconds of `done` that an earlier run had made
  bool operator==(const EngineProgress&) const = default;
};

struct EngineDamage {
  bool isSound = false;  ///< else the picture
  double from = 0;       ///< seconds after the clip's start
  double to = 0;
  std::string file;
  bool operator==(const EngineDamage&) const = default;
};

/// A line for the user.
struct EngineNote {
  std::string text;
  bool operator==(const EngineNote&) const = default;
};

struct EngineReport {
  std::int64_t frames = 0;  ///< 0 for a sound file
  double seconds = 0;
  std::uint64_t bytes = 0;
  bool operator==(const EngineReport&) const = default;
};

/// The environment variable that names the profile file of a render without a profile's number.
inline constexpr const char* kProfileVariable = "KVO5_PROFILE";

/// What the engine is called with, and the name of an encoder of a device behind it, to try that one: it ends
/// with 0 where a picture was encoded, else with a line that says why not.
inline constexpr const char* kTryEncoder = "--try-encoder";

/// Nothing stands for a line that makes no sense.
using EngineWord = std::variant<std::monostate, EngineProgress, EngineDamage, EngineNote, EngineReport>;

/// Without the end of the line.
std::string engineLine(const EngineProgress& progress);
std::string engineLine(const EngineDamage& damage);
std::string engineLine(const EngineNote& note);
std::string engineLine(const EngineReport& report);

EngineWord readEngineLine(std::string_view line);

/// "holiday.avi: the picture from 1.20 to 1.84 s cannot be decoded; the one ahead stands"
std::string damageText(const EngineDamage& damage);

}  // namespace kvo
