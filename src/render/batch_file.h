// The file that a render is started by: a script for the shell that runs the engine and then leaves a sign
// that it has ended.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

struct EngineCall {
  std::string engine;                    ///< path of its program
  std::vector<std::string> arguments{};  ///< any bytes but 0
  std::string profileFile{};             ///< that is in force for it; empty for none
};

/// A text as one word of a shell, whatever is in it.
std::string shellQuoted(std::string_view text);

/// The script, its lines ended by LF. `sentinel` is the file that stands when the engine has ended; the
/// script ends with the engine's exit code.
std::string batchScript(const EngineCall& call, std::string_view sentinel);

}  // namespace kvo
