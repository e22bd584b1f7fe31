#include "render/hardware_trial.h"

#include "base/exit_codes.h"
#include "render/engine_protocol.h"

#include <utility>

namespace kvo {

HardwareTrial::HardwareTrial(Ports ports, std::function<void()> known)
    : ports_(std::move(ports)), known_(std::move(known)), patience_(ports_.loop.timer([this] {
        process_.reset();
        fail("it does not answer");
      })) {}

void HardwareTrial::begin() {
  if (std::exchange(hasBegun_, true)) return;
  tryNext();
}

void HardwareTrial::tryNext() {
  if (next_ == ports_.encoders.size()) {
    found_ = FoundHardware{{}, why_};
    return known_();
  }
  said_.clear();
  auto started = ports_.processes.start(ports_.loop, {ports_.engine, {kTryEncoder, ports_.encoders[next_]}},
                                        {.errorLine = [this](std::string_view line) { said_ = line; },
                                         .ended =
                                             [this](const ProcessEnd& end) {
                                               const auto ended = std::exchange(process_, nullptr);
                                               hearEnd(end.exitCode);
                                             }});
  if (!started) return fail(started.error().text);
  process_ = std::move(*started);
  patience_->start(kPatience);
}

void HardwareTrial::hearEnd(int exitCode) {
  if (exitCode != kExitDone) return fail(said_.empty() ? "it crashes" : said_);
  patience_->stop();
  found_ = FoundHardware{ports_.encoders[next_], {}};
  known_();
}

void HardwareTrial::fail(const std::string& why) {
  patience_->stop();
  why_ += (why_.empty() ? "" : "; ") + ports_.encoders[next_++] + ": " + why;
  tryNext();
}

}  // namespace kvo
