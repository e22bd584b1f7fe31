#include "render/render_driver.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "render/batch_file.h"
#include "vocabulary/movie_presets.h"

namespace kvo {
namespace {

constexpr double kBytesOfMegabyte = 1e6;
constexpr std::size_t kMaxErrorLines = 100;
constexpr std::string_view kSaidBy = "KVORender: ";
constexpr const char* kDocument = "/KVORender.xtl";
constexpr const char* kBatchFile = "/KVORender.bat";
constexpr const char* kSentinel = "/Rendone.txt";
// Has the shell killed when this program ends; the engine does so with its shell.
constexpr const char* kTether = "/usr/bin/setpriv";

double mostBytes(const RenderOrder& order) {
  const auto* preset = presetNamed(order.preset);
  const double megabytes = order.megabytes > 0 || preset == nullptr ? order.megabytes : preset->megabytes;
  return megabytes * kBytesOfMegabyte;
}

}  // namespace

std::string reasonOf(std::string_view line) {
  if (line.starts_with(kSaidBy)) line.remove_prefix(kSaidBy.size());
  return std::string(line);
}

std::string whyFailed(const EngineRun& run) {
  if (!run.failure.empty() || run.engineSays.empty()) return run.failure;
  return reasonOf(run.engineSays.back());
}

std::string workFolderOf(const std::string& output) {
  return withSeparator(folderPart(output)).append(".rendering-").append(fileNamePart(output));
}

std::vector<std::string> engineArguments(const RenderOrder& order, const std::string& document,
                                         const std::string& share) {
  std::vector<std::string> arguments;
  if (order.range) {
    const auto& [from, to] = *order.range;
    arguments.push_back("/[" + FormatMask(from, "0.00") + "-" + FormatMask(to, "0.00") + "]");
  }
  if (order.profile) arguments.insert(arguments.end(), {"/P", std::to_string(*order.profile)});
  const auto add = [&](const char* option, const std::string& value) {
    if (!value.empty()) arguments.insert(arguments.end(), {option, value});
  };
  add("/P", order.preset);
  add("/C", order.codec);
  if (order.quality > 0) add("/Q", std::to_string(order.quality));
  add("/E", order.effort);
  if (order.megabytes > 0) add("/M", FormatMask(order.megabytes, "0.000"));
  add("/H", order.encoder);
  add("/K", order.workFolder);
  add("/J", share);
  arguments.insert(arguments.end(), {"/W", order.output, document});
  return arguments;
}

Outcome RenderDriver::prepare(const RenderOrder& order, const std::string& folder) {
  const auto document = folder + kDocument;
  const auto batchFile = folder + kBatchFile;
  sentinel_ = folder + kSentinel;
  ports_.files.remove(batchFile);
  ports_.files.remove(sentinel_);
  // The user knows nothing of these files.
  if (auto done = writeDurably(ports_.files, document, order.document); !done)
    return Error{replaced(done.error().text, document, "the timeline document")};
  EngineCall call{ports_.engine, engineArguments(order, document), order.profileFile};
  call.arguments.insert(call.arguments.end() - 3, {"/S", std::to_string(ports_.processes.ownNumber())});
  if (auto done = writeDurably(ports_.files, batchFile, batchScript(call, sentinel_)); !done)
    return Error{replaced(done.error().text, batchFile, "the timeline document")};
  return {};
}

Outcome RenderDriver::start(const RenderOrder& order) {
  if (process_) return Error{"a render is under way"};
  std::unique_ptr<TemporaryFolder> temporary;
  auto folder = order.folder;
  if (folder.empty()) {
    auto made = ports_.folders.make();
    if (!made) return made.error();
    temporary = std::move(*made);
    folder = temporary->path();
  }
  if (auto done = prepare(order, folder); !done) return done;
  auto process = ports_.processes.start(
      ports_.loop, {kTether, {"--pdeathsig", "KILL", "/bin/sh", folder + kBatchFile}, !ports_.sharesTerminal},
      {.line = [this](std::string_view line) { hear(line); },
       .errorLine = [this](std::string_view line) { hearError(line); },
       .ended = [this](const ProcessEnd& end) { hearEnd(end); }});
  if (!process) return process.error();
  folder_ = std::move(temporary);
  process_ = std::move(*process);
  begun_ = ports_.loop.now();
  output_ = order.output;
  shownAs_ = order.shownAs;
  state_ = {};
  state_.phase = EnginePhase::Running;
  state_.progress.most = mostBytes(order);
  return {};
}

void RenderDriver::forget() {
  if (!process_) state_ = {};
}

void RenderDriver::stop() {
  if (state_.phase != EnginePhase::Running) return;
  state_.phase = EnginePhase::Stopping;
  process_->stop();
  changed_();
}

void RenderDriver::abandon() {
  if (!process_) return;
  letGo();
  state_.phase = EnginePhase::Stopped;
}

bool RenderDriver::takeSentinel() {
  return !sentinel_.empty() && ports_.files.exists(sentinel_) && ports_.files.remove(sentinel_);
}

void RenderDriver::letGo() {
  process_.reset();
  folder_.reset();
  takeSentinel();
}

double RenderDriver::secondsSinceStart() const {
  return std::chrono::duration<double>(ports_.loop.now() - begun_).count();
}

void RenderDriver::hear(std::string_view line) {
  const auto word = readEngineLine(line);
  if (const auto* progress = std::get_if<EngineProgress>(&word)) hearProgress(*progress);
  if (const auto* damage = std::get_if<EngineDamage>(&word)) state_.damage.push_back(*damage);
  if (const auto* note = std::get_if<EngineNote>(&word)) state_.notes.push_back(note->text);
  if (const auto* report = std::get_if<EngineReport>(&word)) state_.report = *report;
  state_.progress.elapsed = secondsSinceStart();
  changed_();
}

void RenderDriver::hearProgress(const EngineProgress& movie) {
  auto& progress = state_.progress;
  if (progress.begunAt == 0) {
    progress.begunAt = secondsSinceStart();
    progress.begunWith = movie.done;
  }
  progress.movie = movie;
}

void RenderDriver::hearError(std::string_view line) {
  auto& lines = state_.engineSays;
  if (lines.size() == kMaxErrorLines) lines.erase(lines.begin());
  lines.push_back(shownAs_.empty() ? std::string(line) : replaced(line, output_, shownAs_));
}

void RenderDriver::hearEnd(const ProcessEnd& end) {
  letGo();
  state_.progress.elapsed = secondsSinceStart();
  // What tells of the movie has put it under its name, whatever has ended the engine then.
  if (end.exitCode == kExitDone ||
      (state_.phase == EnginePhase::Stopping && state_.report != EngineReport{})) {
    state_.phase = EnginePhase::Done;
  } else if (state_.phase == EnginePhase::Stopping) {
    state_.phase = EnginePhase::Stopped;
  } else {
    state_.phase = EnginePhase::Failed;
    if (end.exitCode > kExitUsage || state_.engineSays.empty())
      state_.failure = "the render engine ended with code " + std::to_string(end.exitCode);
  }
  // What hears of the end may destroy this.
  const auto changed = changed_;
  changed();
}

}  // namespace kvo
