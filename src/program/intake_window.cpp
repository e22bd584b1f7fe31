#include "program/intake_window.h"

#include "base/text.h"
#include "core/telling/messages.h"

namespace kvo {

void IntakeWindow::analysing(int number, int total, const std::string& name) {
  parts_.refusals.about(name);
  auto& progress = parts_.window.progress;
  progress.abortText = LoadResString(341);
  progress.done = number;
  progress.total = total;
  progress.status = std::string(LoadResString(390)) + std::to_string(number);
  if (total > 1) progress.status += " of " + std::to_string(total);
  const bool plain = number == 1 && parts_.settings.state.KVOIsInEditMode;
  progress.status.append(plain ? " Please Wait.." : LoadResString(391)).append(kCrLf).append(name);
  parts_.loop.yield();
}

void IntakeWindow::analysed() {
  parts_.window.progress = {};
  if (last_ > 0) parts_.list.select(last_);
  last_ = 0;
}

void IntakeWindow::added(int number) {
  parts_.list.addLast();
  last_ = number;
  whenJoined_(number);
}

}  // namespace kvo
