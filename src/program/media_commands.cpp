#include "program/media_commands.h"

#include "core/telling/messages.h"

#include <string_view>
#include <vector>

namespace kvo {
namespace {

constexpr std::string_view kNoFolder = "C:\\";  // as a collection file has it ahead of the first addition

}  // namespace

void MediaCommands::AddMedia() {
  std::vector<std::string> paths;
  if (const CommandPass pass(window_); pass) {
    paths = ports_.dialogs.openSeveral(
        {std::string(LoadResString(386)), {{"All Files", "*"}}, mediaFolder(settings_, ports_.desktop), {}});
  }
  mailbox_.takeFiles(paths);
}

std::string mediaFolder(const KVO2& settings, const Desktop& desktop) {
  const auto& last = settings.preferences().LoadFrom;
  return last.empty() || last == kNoFolder ? desktop.videosFolder() : last;
}

}  // namespace kvo
