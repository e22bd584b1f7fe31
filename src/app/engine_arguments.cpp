#include "app/engine_arguments.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kvo {
namespace {

// "/[1.50-4.00]", with blanks inside the brackets or behind them.
std::optional<engine::Slice> sliceIn(std::string_view text) {
  text = trimmed(text);
  if (!text.ends_with(']')) return std::nullopt;
  text = text.substr(2, text.size() - 3);
  const auto dash = text.find('-');
  if (dash == std::string_view::npos) return std::nullopt;
  const auto from = numberIn(text.substr(0, dash));
  const auto to = numberIn(text.substr(dash + 1));
  if (!from || !to || *from < 0 || *to <= *from) return std::nullopt;
  return engine::Slice{*from, *to};
}

std::optional<int> wholeIn(std::string_view text) {
  const auto number = numberIn(text);
  const auto whole = number ? toLong(*number) : std::nullopt;
  return whole && *whole == *number ? whole : std::nullopt;
}

// "2/8": the second of eight.
std::optional<engine::Share> shareIn(std::string_view text) {
  const auto slash = text.find('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const auto number = wholeIn(text.substr(0, slash));
  const auto of = wholeIn(text.substr(slash + 1));
  if (!number || !of || *number < 1 || *number > *of) return std::nullopt;
  return engine::Share{static_cast<std::size_t>(*number) - 1, static_cast<std::size_t>(*of)};
}

std::optional<media::VideoCodec> codecNamed(std::string_view name) {
  if (sameText(name, "raw")) return media::VideoCodec::Raw;
  if (sameText(name, "mpeg4")) return media::VideoCodec::Mpeg4;
  return std::nullopt;
}

// What of the arguments changes the bytes of a movie: not where it goes, who starts it and with whom it is
// made.
std::string identityOf(const std::vector<std::string>& arguments) {
  constexpr std::array<std::string_view, 4> kBeside = {"/S", "/W", "/K", "/J"};
  std::string identity;
  for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
    const auto& argument = arguments[i];
    if (std::any_of(kBeside.begin(), kBeside.end(), [&](auto o) { return sameText(argument, o); })) {
      ++i;
    } else {
      identity += argument + "\n";
    }
  }
  return identity;
}

}  // namespace

Result<std::optional<SheetArguments>> readSheetArguments(const std::vector<std::string>& arguments) {
  if (arguments.empty() || arguments.front() != "--sheet") return std::optional<SheetArguments>();
  if (arguments.size() < 3) return Error{"--sheet needs a file to write and at least one document"};
  SheetArguments sheet{arguments[1], {arguments.begin() + 2, arguments.end()}};
  if (!endsInText(sheet.output, ".png"))
    return Error{"cannot write " + sheet.output + ": its name must end in .png"};
  return std::optional(std::move(sheet));
}

Result<EngineArguments> readEngineArguments(const std::vector<std::string>& arguments) {
  if (arguments.empty()) return Error{"no document is named"};
  EngineArguments read;
  read.document = arguments.back();
  std::string workFolder;
  std::optional<engine::Share> share;
  const std::size_t options = arguments.size() - 1;
  for (std::size_t i = 0; i < options; ++i) {
    const auto& option = arguments[i];
    if (option.starts_with("/[")) {
      read.job.slice = sliceIn(option);
      if (!read.job.slice) return Error{"the range " + option + " is not of the form /[1.50-4.00]"};
      continue;
    }
    constexpr std::array<std::string_view, 6> kWithValue = {"/P", "/C", "/S", "/W", "/K", "/J"};
    if (std::none_of(kWithValue.begin(), kWithValue.end(), [&](auto o) { return sameText(option, o); })) {
      return Error{"there is no option " + option};
    }
    if (i + 1 >= options) return Error{"the option " + option + " needs a value"};
    const auto& value = arguments[++i];
    if (sameText(option, "/K")) {
      workFolder = value;
    } else if (sameText(option, "/J")) {
      share = shareIn(value);
      if (!share) return Error{"the share " + value + " is not of the form 2/8"};
    } else if (sameText(option, "/W")) {
      read.job.output = value;
    } else if (sameText(option, "/P")) {
      read.profile = wholeIn(value);
      if (!read.profile || *read.profile < 0 || *read.profile >= kSystemProfiles) {
        return Error{"the profile " + value + " is not a number from 0 to 25"};
      }
    } else if (sameText(option, "/S")) {
      read.starter = wholeIn(value);
      if (!read.starter || *read.starter < 1) return Error{"the process " + value + " is no number of one"};
    } else {
      const auto codec = codecNamed(value);
      if (!codec) return Error{"there is no codec " + value + "; there are raw and mpeg4"};
      read.job.aviCodec = *codec;
    }
  }
  if (read.job.output.empty()) return Error{"no output file is named: /W OUTPUT"};
  if (share && workFolder.empty()) return Error{"a share needs a folder for its segments: /K FOLDER"};
  if (!workFolder.empty()) read.job.work = engine::Work{workFolder, identityOf(arguments), share};
  return read;
}

}  // namespace kvo
