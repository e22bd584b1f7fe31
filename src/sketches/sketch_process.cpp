#include "sketches/sketch_process.h"

#include <utility>

namespace kvo {
namespace {

constexpr int kLookEvery = 1000;  // milliseconds between two looks at how long it has been silent

}  // namespace

SketchProcess::SketchProcess(Ports ports, Heard heard)
    : ports_(std::move(ports)), heard_(std::move(heard)), timer_(ports_.loop.timer([this] { tick(); })) {
  ports_.order.hasInput = true;
}

void SketchProcess::want(const SketchOrder& order) {
  if (atWork_ && atWork_->path == order.path && atWork_->milliseconds == order.milliseconds &&
      (order.quiet || !atWork_->quiet))
    return;
  if (order.quiet) {
    later_.push_back(order);
  } else {
    std::erase(wanted_, order);
    wanted_.push_front(order);
    if (wanted_.size() > kMostWanted) wanted_.pop_back();
  }
  next();
}

void SketchProcess::next() {
  if (atWork_) return;
  auto& waiting = wanted_.empty() ? later_ : wanted_;
  if (waiting.empty()) return;
  atWork_ = std::move(waiting.front());
  waiting.pop_front();
  data_.clear();
  last_ = ports_.loop.now();
  const auto text = orderText(*atWork_) + '\0';
  if (process_ && process_->write(text)) return;
  if (start() && process_->write(text)) return;
  last_ -= std::chrono::milliseconds(kSketchPatience);  // the next tick takes it for silent
  timer_->start(1);
}

bool SketchProcess::start() {
  process_.reset();
  auto started = ports_.processes.start(ports_.loop, ports_.order,
                                        {.line = [this](std::string_view line) { hear(line); },
                                         .ended = [this](const ProcessEnd& /*end*/) { lose(); }});
  if (!started) return false;
  process_ = std::move(*started);
  timer_->start(kLookEvery);
  return true;
}

void SketchProcess::hear(std::string_view line) {
  if (!atWork_) return;
  last_ = ports_.loop.now();
  if (line == kSketchEnd) return finish();
  readSketchLine(line, data_);
}

void SketchProcess::finish() {
  const auto done = std::exchange(atWork_, std::nullopt);
  if (done && !done->quiet) heard_(*done, data_);
  next();
}

// Whatever it was at has no sketch; the next order gets another process.
void SketchProcess::lose() {
  process_.reset();
  timer_->stop();
  data_.clear();
  finish();
}

void SketchProcess::tick() {
  const auto silent = (ports_.loop.now() - last_).count();
  if (silent >= (atWork_ ? kSketchPatience : kSketchRest)) lose();
}

}  // namespace kvo
