#include "render/render_driver.h"

#include "base/numbers.h"
#include "base/text.h"

namespace kvo {
namespace {

constexpr std::size_t kMaxErrorLines = 100;

std::vector<std::string> argumentsOf(const RenderOrder& order, const std::string& document, int starter) {
  std::vector<std::string> arguments;
  if (order.range) {
    const auto& [from, to] = *order.range;
    arguments.push_back("/[" + FormatMask(from, "0.00") + "-" + FormatMask(to, "0.00") + "]");
  }
  if (!order.codec.empty()) arguments.insert(arguments.end(), {"/C", order.codec});
  arguments.insert(arguments.end(), {"/S", std::to_string(starter), "/W", order.output, document});
  return arguments;
}

}  // namespace

Outcome RenderDriver::start(const RenderOrder& order) {
  if (process_) return Error{"a render is under way"};
  auto folder = ports_.folders.make();
  if (!folder) return folder.error();
  const auto document = (*folder)->path() + "/movie.xtl";
  if (auto done = writeDurably(ports_.files, document, order.document); !done) {
    // The user knows nothing of that file.
    return Error{replaced(done.error().text, document, "the timeline document")};
  }
  auto process = ports_.processes.start(
      ports_.loop,
      {ports_.engine, argumentsOf(order, document, ports_.processes.ownNumber()), !order.sharesTerminal},
      {.line = [this](std::string_view line) { hear(line); },
       .errorLine = [this](std::string_view line) { hearError(line); },
       .ended = [this](const ProcessEnd& end) { hearEnd(end); }});
  if (!process) return process.error();
  folder_ = std::move(*folder);
  process_ = std::move(*process);
  begun_ = ports_.loop.now();
  state_ = {};
  state_.phase = RenderPhase::Running;
  state_.progress.frameRate = order.frameRate;
  return {};
}

void RenderDriver::stop() {
  if (state_.phase != RenderPhase::Running) return;
  state_.phase = RenderPhase::Stopping;
  process_->stop();
  changed_();
}

double RenderDriver::secondsSinceStart() const {
  return std::chrono::duration<double>(ports_.loop.now() - begun_).count();
}

void RenderDriver::hear(std::string_view line) {
  const auto word = readEngineLine(line);
  if (const auto* progress = std::get_if<EngineProgress>(&word)) state_.progress.movie = *progress;
  if (const auto* damage = std::get_if<EngineDamage>(&word)) state_.damage.push_back(*damage);
  if (const auto* report = std::get_if<EngineReport>(&word)) state_.report = *report;
  state_.progress.elapsed = secondsSinceStart();
  changed_();
}

void RenderDriver::hearError(std::string_view line) {
  auto& lines = state_.engineSays;
  if (lines.size() == kMaxErrorLines) lines.erase(lines.begin());
  lines.emplace_back(line);
}

void RenderDriver::hearEnd(const ProcessEnd& end) {
  process_.reset();
  folder_.reset();
  state_.progress.elapsed = secondsSinceStart();
  // What tells of the movie has put it under its name, whatever has ended the engine then.
  if (end.exitCode == kExitDone ||
      (state_.phase == RenderPhase::Stopping && state_.report != EngineReport{})) {
    state_.phase = RenderPhase::Done;
  } else if (state_.phase == RenderPhase::Stopping) {
    state_.phase = RenderPhase::Stopped;
  } else {
    state_.phase = RenderPhase::Failed;
    if (end.exitCode > kExitUsage || state_.engineSays.empty())
      state_.failure = "the render engine ended with code " + std::to_string(end.exitCode);
  }
  // What hears of the end may destroy this.
  const auto changed = changed_;
  changed();
}

}  // namespace kvo
