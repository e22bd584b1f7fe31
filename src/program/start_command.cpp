#include "program/start_command.h"

#include "base/escaped_line.h"
#include "base/paths.h"
#include "base/text.h"
#include "intake/clip_names.h"

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

// "/NAME": a switch of other programs, or of another time.
bool isUnknownSwitch(std::string_view argument) {
  return argument.starts_with('/') && argument.find_first_of("/.", 1) == std::string_view::npos;
}

}  // namespace

bool namesCollection(std::string_view path) { return endsInText(path, ".INI") || endsInText(path, ".KVO"); }

std::string namedFile(const std::string& argument, const Files& files, const std::string& workingFolder) {
  auto name = absoluteName(argument, workingFolder);
  return isUnmapped(argument) && !files.exists(name) ? argument : name;
}

StartCommand readStartCommand(const std::vector<std::string>& arguments, const Files& files,
                              const std::string& workingFolder) {
  StartCommand command;
  for (const auto& raw : arguments) {
    if (const auto word = switchIn(trimmed(raw), files); !word.empty()) {
      command.fullScreen |= word == "/FULLSC";
      command.hundredPercent |= word == "/HUNPCT";
      continue;
    }
    if (raw.empty()) continue;
    auto name = namedFile(raw, files, workingFolder);
    const bool isRefused = isUnmapped(name);
    const bool thereOrTrusted = isAddress(raw) || isRefused || raw.find(' ') != std::string::npos ||
                                files.exists(name) || files.isFolder(name);
    if (!thereOrTrusted) {
      if (!isUnknownSwitch(trimmed(raw)) && !fileNamePart(name).empty())
        command.missing.push_back(std::move(name));
      continue;
    }
    if (namesCollection(name) && !isRefused) {
      command.collection = std::move(name);
    } else {
      command.clips.push_back(std::move(name));
    }
  }
  return command;
}

std::string handoverText(const std::vector<std::string>& arguments, const std::string& workingFolder,
                         const Files& files) {
  std::string text;
  for (const auto& argument : arguments) {
    const auto word = trimmed(argument);
    if (word.empty()) continue;
    const auto name = namedFile(argument, files, workingFolder);
    const bool isWord = !switchIn(word, files).empty() || (word == kRemovePreview && !files.exists(name));
    text.append(text.empty() ? "" : kCrLf).append(isWord ? word : escapedLine(name));
  }
  return text;
}

std::vector<std::string> handedOver(std::string_view text) {
  std::vector<std::string> arguments;
  while (!text.empty()) {
    if (const auto line = nextLine(text); !trimmed(line).empty()) arguments.push_back(unescapedLine(line));
  }
  return arguments;
}

}  // namespace kvo
