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
std::optional<engine::SegmentShare> shareIn(std::string_view text) {
  const auto slash = text.find('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const auto number = wholeIn(text.substr(0, slash));
  const auto of = wholeIn(text.substr(slash + 1));
  if (!number || !of || *number < 1 || *number > *of) return std::nullopt;
  return engine::SegmentShare{static_cast<std::size_t>(*number) - 1, static_cast<std::size_t>(*of)};
}

// What of the arguments changes the bytes of a movie: not where it goes, who starts it and with whom it is
// made. Which encoder makes it is known only when it is made.
std::string identityOf(const std::vector<std::string>& arguments) {
  constexpr std::array<std::string_view, 5> kBeside = {"/S", "/W", "/K", "/J", "/H"};
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

using Reader = Outcome (*)(EngineArguments& read, const std::string& value);

Outcome readOutput(EngineArguments& read, const std::string& value) {
  read.job.output = value;
  return {};
}

Outcome readProfile(EngineArguments& read, const std::string& value) {
  read.job.preset = presetNamed(value);
  if (read.job.preset != nullptr) return {};
  read.profile = wholeIn(value);
  if (read.profile && *read.profile >= 0 && *read.profile < kSystemProfiles) return {};
  return Error{"the profile " + value + " is neither a number from 0 to 25 nor the name of a preset"};
}

Outcome readStarter(EngineArguments& read, const std::string& value) {
  read.starter = wholeIn(value);
  if (read.starter && *read.starter >= 1) return {};
  return Error{"the process " + value + " is no number of one"};
}

Outcome readCodec(EngineArguments& read, const std::string& value) {
  read.job.codec = codecNamed(value);
  if (read.job.codec) return {};
  return Error{"there is no codec " + value + "; there are raw, mpeg4, h264, vp9 and av1"};
}

Outcome readQuality(EngineArguments& read, const std::string& value) {
  const auto number = wholeIn(value);
  read.job.quality = number.value_or(0);
  if (number && *number >= 1 && *number <= 63) return {};
  return Error{"the quality " + value + " is not a whole number from 1 to 63"};
}

Outcome readEffort(EngineArguments& read, const std::string& value) {
  read.job.effort = value;
  if (effortOf(value)) return {};
  return Error{"there is no effort " + value + "; they go from ultrafast to veryslow"};
}

Outcome readMegabytes(EngineArguments& read, const std::string& value) {
  const auto number = numberIn(value);
  read.job.megabytes = number.value_or(0);
  if (number && *number > 0 && *number <= 1e6) return {};
  return Error{"the size " + value + " is no number of megabytes"};
}

Outcome readEncoder(EngineArguments& read, const std::string& value) {
  const auto wish = encoderNamed(value);
  read.encoder = wish.value_or(EncoderWish::Software);
  if (wish) return {};
  return Error{"there is no encoder " + value + "; there are software, auto and hardware"};
}

Outcome readWorkFolder(EngineArguments& read, const std::string& value) {
  read.workFolder = value;
  return {};
}

Outcome readShare(EngineArguments& read, const std::string& value) {
  read.share = shareIn(value);
  if (read.share) return {};
  return Error{"the share " + value + " is not of the form 2/8"};
}

struct EngineOption {
  std::string_view name;
  Reader read;
};
constexpr std::array<EngineOption, 10> kOptions = {{{"/W", readOutput},
                                                    {"/P", readProfile},
                                                    {"/S", readStarter},
                                                    {"/C", readCodec},
                                                    {"/Q", readQuality},
                                                    {"/E", readEffort},
                                                    {"/M", readMegabytes},
                                                    {"/H", readEncoder},
                                                    {"/K", readWorkFolder},
                                                    {"/J", readShare}}};

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
  const std::size_t options = arguments.size() - 1;
  for (std::size_t i = 0; i < options; ++i) {
    const auto& option = arguments[i];
    if (option.starts_with("/[")) {
      read.job.slice = sliceIn(option);
      if (!read.job.slice) return Error{"the range " + option + " is not of the form /[1.50-4.00]"};
      continue;
    }
    const auto known = std::find_if(kOptions.begin(), kOptions.end(),
                                    [&](const auto& o) { return sameText(option, o.name); });
    if (known == kOptions.end()) return Error{"there is no option " + option};
    if (i + 1 >= options) return Error{"the option " + option + " needs a value"};
    if (auto done = known->read(read, arguments[++i]); !done) return done.error();
  }
  if (read.job.output.empty()) return Error{"no output file is named: /W OUTPUT"};
  if (read.share && read.workFolder.empty())
    return Error{"a share needs a folder for its segments: /K FOLDER"};
  if (!read.workFolder.empty())
    read.job.work = engine::Work{read.workFolder, identityOf(arguments), read.share};
  return read;
}

}  // namespace kvo
