#include "render/cluster/slurm_words.h"

#include "base/text.h"
#include "render/batch_file.h"

#include <algorithm>

namespace kvo {

std::string jobScript(const std::string& engine, const RenderOrder& order, const std::string& document,
                      int shares) {
  constexpr std::string_view kShare = "%SHARE%";
  const auto arguments = engineArguments(order, document, std::string(kShare));
  std::string line = "exec " + shellQuoted(engine);
  for (const auto& argument : arguments) {
    line += argument == kShare ? " \"$SLURM_ARRAY_TASK_ID/" + std::to_string(shares) + "\""
                               : " " + shellQuoted(argument);
  }
  const auto profile = order.profileFile.empty() ? std::string("unset ") + kProfileVariable + "\n"
                                                 : std::string("export ") + kProfileVariable + "=" +
                                                       shellQuoted(order.profileFile) + "\n";
  return "#!/bin/sh\n" + profile + line + "\n";
}

std::string jobLog(const std::string& workFolder, int share) {
  return workFolder + "/job-" + std::to_string(share) + ".log";
}

std::vector<std::string> submitArguments(const std::string& workFolder, const std::string& script,
                                         const std::vector<int>& shares) {
  std::string array;
  for (const int share : shares) array += (array.empty() ? "" : ",") + std::to_string(share);
  // Of a "%" in the folder's name Slurm would make something else.
  const auto log = replaced(workFolder, "%", "%%") + "/job-%a.log";
  return {"--parsable",
          "--job-name=kvo5",
          "--array=" + array,
          "--output=" + log,
          "--open-mode=truncate",
          "--chdir=" + workFolder,
          script};
}

std::vector<std::string> askArguments(const std::string& job) {
  return {"--noheader", "--array", "--jobs=" + job, "--format=%T"};
}

std::optional<std::string> jobNumberIn(std::string_view line) {
  const auto number = trimmed(line.substr(0, line.find(';')));
  const bool isNumber = !number.empty() && std::all_of(number.begin(), number.end(),
                                                       [](char c) { return c >= '0' && c <= '9'; });
  return isNumber ? std::optional(std::string(number)) : std::nullopt;
}

bool saysForgotten(std::string_view line) { return holdsText(line, "invalid job id"); }

}  // namespace kvo
