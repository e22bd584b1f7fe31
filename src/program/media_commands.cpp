#include "program/media_commands.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/telling/messages.h"
#include "intake/clip_names.h"
#include "intake/media_filters.h"
#include "intake/refusals.h"

#include <algorithm>
#include <string_view>

namespace kvo {
namespace {

constexpr std::string_view kNoFolder = "C:\\";  // as a collection file has it ahead of the first addition

constexpr Long kUsesWithHint = 30;

std::string streamHint() {
  std::string text;
  for (const int line : {374, 375, 376, 377})
    text.append(text.empty() ? "" : kCrLf).append(LoadResString(line));
  return text;
}

}  // namespace

void MediaCommands::AddMedia() {
  FileChoice choice;
  if (const CommandPass pass(window_); pass) {
    choice = ports_.dialogs.openSeveral({std::string(LoadResString(386)),
                                         mediaFilters(),
                                         mediaFolder(settings_, ports_.desktop),
                                         {},
                                         LastFilterIndex_});
    LastFilterIndex_ = choice.filter;
  }
  if (std::any_of(choice.paths.begin(), choice.paths.end(), isUnmapped)) {
    ports_.boxes.show(refusedUnmapped(false));
    return;
  }
  mailbox_.takeFiles(choice.paths);
}

void MediaCommands::AddWebPage() { takeTyped(260, 259, {.IsWebPageAdd = true}); }

void MediaCommands::ViewStream() {
  if (const CommandPass pass(window_); pass && settings_.preferences().NoofUses < kUsesWithHint)
    ports_.boxes.show({std::string(LoadResString(378)), streamHint()});
  takeTyped(380, 379, {});
}

void MediaCommands::takeTyped(int title, int prompt, const AddManner& manner) {
  std::string address;
  if (const CommandPass pass(window_); pass)
    address = ports_.questions.ask(std::string(LoadResString(title)), std::string(LoadResString(prompt)), {})
                  .value_or("");
  if (address.empty()) return;
  // A page by its host's name alone.
  if (manner.IsWebPageAdd && !isAddress(address) && !address.starts_with(kSeparator))
    address.insert(0, "http://");
  mailbox_.takeAddress(address, manner);
}

std::string mediaFolder(const KVO2& settings, const Desktop& desktop) {
  const auto& last = settings.preferences().LoadFrom;
  return last.empty() || last == kNoFolder ? desktop.videosFolder() : last;
}

}  // namespace kvo
