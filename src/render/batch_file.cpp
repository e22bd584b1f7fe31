#include "render/batch_file.h"

#include "base/text.h"
#include "render/engine_protocol.h"

namespace kvo {

// Between single quotes a shell sees nothing but the quote itself.
std::string shellQuoted(std::string_view text) { return "'" + replaced(text, "'", "'\\''") + "'"; }

std::string batchScript(const EngineCall& call, std::string_view sentinel) {
  std::string line;
  if (!call.profileFile.empty())
    line = std::string(kProfileVariable) + "=" + shellQuoted(call.profileFile) + " ";
  line += shellQuoted(call.engine);
  for (const auto& argument : call.arguments) line += " " + shellQuoted(argument);
  return "#!/bin/sh\n" + line + "\ncode=$?\necho >" + shellQuoted(sentinel) + "\nexit $code\n";
}

}  // namespace kvo
