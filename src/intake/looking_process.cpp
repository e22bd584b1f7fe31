#include "intake/looking_process.h"

#include "intake/look_words.h"

namespace kvo {
namespace {

constexpr int kSlice = 20;  // milliseconds between two questions whether to stop

}  // namespace

LookAnswer LookingProcess::look(const std::string& path, const std::function<bool()>& stopped) {
  heard_ = {};
  answered_ = false;
  if (!ask(path)) return {LookEnd::Looked, {.errorText = "cannot start " + ports_.order.program}};
  const auto begun = ports_.loop.now();
  const auto end = [&] {
    while (!answered_) {
      if (ended_) return LookEnd::Crashed;
      if (stopped()) return LookEnd::Stopped;
      if ((ports_.loop.now() - begun).count() >= kPatience) return LookEnd::Hung;
      ports_.loop.wait(kSlice);
    }
    return LookEnd::Looked;
  }();
  if (end != LookEnd::Looked) process_.reset();
  return {end, std::move(heard_)};
}

// A process that has ended since the last file is no fault of this one.
bool LookingProcess::ask(const std::string& path) {
  const auto order = path + '\0';
  if (process_ && !ended_ && process_->write(order)) return true;
  return start() && process_->write(order);
}

Outcome LookingProcess::start() {
  process_.reset();
  ended_ = false;
  auto started = ports_.processes.start(ports_.loop, ports_.order,
                                        {.line =
                                             [this](std::string_view line) {
                                               answered_ = answered_ || line == kEndOfLook;
                                               if (!answered_) readLookLine(line, heard_);
                                             },
                                         .ended = [this](const ProcessEnd& /*end*/) { ended_ = true; }});
  if (!started) return started.error();
  process_ = std::move(*started);
  return {};
}

}  // namespace kvo
