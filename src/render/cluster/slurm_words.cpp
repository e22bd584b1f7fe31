#include "render/cluster/slurm_words.h"

#include "base/fnv.h"
#include "base/text.h"
#include "render/batch_file.h"

#include <algorithm>

namespace kvo {
namespace {

// A job's last line, with its exit code and the number of its array.
constexpr const char* kEnded = "the share has ended with";

// By which the arrays of a work folder are found again.
std::string jobName(const std::string& workFolder) { return "kvo5-" + std::to_string(fnv1a(workFolder)); }

}  // namespace

std::string jobScript(const std::string& engine, const RenderOrder& order, const std::string& document,
                      int shares) {
  constexpr std::string_view kShare = "%SHARE%";
  const auto arguments = engineArguments(order, document, std::string(kShare));
  auto line = shellQuoted(engine);
  for (const auto& argument : arguments) {
    line += argument == kShare ? " \"$SLURM_ARRAY_TASK_ID/" + std::to_string(shares) + "\""
                               : " " + shellQuoted(argument);
  }
  const auto profile = order.profileFile.empty() ? std::string("unset ") + kProfileVariable + "\n"
                                                 : std::string("export ") + kProfileVariable + "=" +
                                                       shellQuoted(order.profileFile) + "\n";
  return "#!/bin/sh\n" + profile + line + "\ncode=$?\necho \"" + kEnded +
         " $code $SLURM_ARRAY_JOB_ID\" >&2\nexit $code\n";
}

std::string jobErrors(const std::string& workFolder, int share) {
  return workFolder + "/job-" + std::to_string(share) + ".err";
}

std::vector<std::string> submitArguments(const std::string& workFolder, const std::string& script,
                                         const std::vector<int>& shares) {
  std::string array;
  for (const int share : shares) array += (array.empty() ? "" : ",") + std::to_string(share);
  // Of a "%" in the folder's name Slurm would make something else.
  const auto job = replaced(workFolder, "%", "%%") + "/job-%a";
  return {"--parsable",
          "--job-name=" + jobName(workFolder),
          "--array=" + array,
          "--output=" + job + ".log",
          "--error=" + job + ".err",
          "--open-mode=truncate",
          "--chdir=" + workFolder,
          script};
}

std::vector<std::string> askArguments(const std::string& job) {
  return {"--noheader", "--array", "--jobs=" + job, "--format=%T"};
}

std::vector<std::string> searchArguments(const std::string& workFolder) {
  return {"--noheader", "--me", "--name=" + jobName(workFolder), "--format=%F"};
}

std::optional<std::string> jobNumberIn(std::string_view line) {
  const auto number = trimmed(line.substr(0, line.find(';')));
  const bool isNumber = !number.empty() && std::all_of(number.begin(), number.end(),
                                                       [](char c) { return c >= '0' && c <= '9'; });
  return isNumber ? std::optional(std::string(number)) : std::nullopt;
}

bool saysEnded(std::string_view line) { return line.starts_with(kEnded); }

bool saysFailed(std::string_view line, const std::string& job) {
  return saysEnded(line) && line.ends_with(" " + job) && !line.starts_with(std::string(kEnded) + " 0 ");
}

bool saysForgotten(std::string_view line) { return holdsText(line, "invalid job id"); }

}  // namespace kvo
