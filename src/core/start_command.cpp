#include "core/start_command.h"

#include "base/paths.h"
#include "base/text.h"

#include <array>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 6> kSwitches = {"/PLAY", "/OPEN", "/EDIT", "/FULLSC", "/HUNPCT", "/C"};

// One of the switches, in capitals; or empty. A file of that name counts as a file.
std::string_view switchIn(std::string_view argument, const Files& files) {
  for (const auto word : kSwitches) {
    if (sameText(argument, word) && !files.exists(std::string(argument))) return word;
  }
  return {};
}

bool endsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && sameText(text.substr(text.size() - end.size()), end);
}

bool isAddress(std::string_view text) { return text.find("://") != std::string_view::npos; }

}  // namespace

StartCommand readStartCommand(const std::vector<std::string>& arguments, const Files& files) {
  StartCommand command;
  for (const auto& raw : arguments) {
    if (const auto word = switchIn(trimmed(raw), files); !word.empty()) {
      command.fullScreen |= word == "/FULLSC";
      command.hundredPercent |= word == "/HUNPCT";
      continue;
    }
    const bool thereOrTrusted = isAddress(raw) || raw.find(' ') != std::string::npos || files.exists(raw);
    if (raw.empty() || !thereOrTrusted) continue;
    if (endsWith(raw, ".INI") || endsWith(raw, ".KVO")) {
      command.collection = raw;
    } else {
      command.clips.push_back(raw);
    }
  }
  return command;
}

std::string handoverText(const std::vector<std::string>& arguments, const std::string& workingFolder,
                         const Files& files) {
  std::string text;
  for (const auto& argument : arguments) {
    const auto word = std::string(trimmed(argument));
    const bool isRelative =
        !word.empty() && word.front() != kSeparator && !isAddress(word) && files.exists(argument);
    text.append(text.empty() ? "" : "\n").append(isRelative ? withSeparator(workingFolder) + argument : word);
  }
  return text;
}

}  // namespace kvo
