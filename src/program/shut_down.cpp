#include "program/shut_down.h"

#include "core/telling/messages.h"

#include <array>
#include <string_view>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 6> kWorkFiles = {"\\KVOSamp.xtl", "\\KVORender.xtl", "\\KVORender.bat",
                                                        "\\Rendone.txt", "\\KVOProps.bat",  "\\KVOovl.bmp"};

constexpr int kTryAgain = 100;  // milliseconds

}  // namespace

ShutDown::ShutDown(const ProgramParts& parts, Mailbox& mailbox)
    : parts_(parts), mailbox_(mailbox), again_(parts.loop.timer([this] { tryAgain(); })) {}

// The work that was stopped for it has a while to come to its end, and may have something to tell.
void ShutDown::tryAgain() {
  if (!parts_.window.busy()) exit();
}

bool ShutDown::exit() {
  if (ended_) return true;
  const CommandPass pass(parts_.window);
  if (!pass) {
    if (!parts_.window.progress.abortText.empty()) again_->start(kTryAgain);
    parts_.window.progress.abort();
    if (busy_) busy_();
    return false;
  }
  again_->stop();  // who asked again was quicker
  if (mayLeave_ && !mayLeave_()) return false;
  parts_.commands.prepare();
  deleteWorkFiles(parts_.files, parts_.folder);
  parts_.loop.yield();
  parts_.loop.yield();
  parts_.settings.user.ShowWavWithVideo = false;
  if (!parts_.commands.mayLeaveChanges(LoadResString(345))) {
    parts_.list.PreviewMovie(parts_.collection.icurMov);
    parts_.list.show();
    return false;
  }
  mailbox_.close();
  parts_.window.face.visible = false;
  ended_ = true;
  return true;
}

void deleteWorkFiles(Files& files, const ProgramFolder& folder) {
  for (const auto name : kWorkFiles) files.remove(folder.beside(name));
}

}  // namespace kvo
