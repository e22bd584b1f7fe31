#include "render/cluster/cluster_render.h"

#include "base/text.h"

#include <algorithm>
#include <set>

namespace kvo {
namespace {

constexpr int kAskEvery = 1000;  // milliseconds
constexpr int kMostAttempts = 3;
constexpr int kMostSilences = 60;  // a controller that restarts is back by then
constexpr const char* kFarmDocument = "/render.xtl";
constexpr const char* kFarmProfile = "/render.prx";
constexpr const char* kFarmScript = "/render.sh";
constexpr std::size_t kMaxLog = 64U << 20U;  // bytes; a job says a line of progress five times a second

}  // namespace

FarmRender::FarmRender(Ports ports, std::function<void()> changed)
    : ports_(std::move(ports)),
      changed_(std::move(changed)),
      driver_(ports_.engine, [this] { hearJoining(); }),
      timer_(ports_.engine.loop.timer([this] { ask(); })) {}

Outcome FarmRender::run(const char* program, std::vector<std::string> arguments, Heard heard) {
  auto answer = std::make_shared<Answer>();
  auto process = ports_.engine.processes.start(
      ports_.engine.loop, {std::string("/usr/bin/") + program, std::move(arguments)},
      {.line = [answer](std::string_view line) { answer->lines.emplace_back(line); },
       .errorLine = [answer](std::string_view line) { answer->errors.emplace_back(line); },
       .ended =
           [this, answer, heard = std::move(heard)](const ProcessEnd& end) {
             answer->exitCode = end.exitCode;
             const auto hear = heard;  // it lives in the process, which ends here
             const auto ended = std::exchange(process_, nullptr);
             hear(*answer);
           }});
  if (!process) return process.error();
  process_ = std::move(*process);
  return {};
}

Outcome FarmRender::start(const FarmOrder& order) {
  auto& files = ports_.engine.files;
  order_ = order;
  const auto& folder = order_.render.workFolder;
  if (auto made = files.makeFolder(folder); !made) return made;
  if (auto done = writeDurably(files, folder + kFarmDocument, order.render.document); !done) return done;
  if (!order.profile.empty()) {
    order_.render.profileFile = folder + kFarmProfile;
    if (auto done = writeDurably(files, order_.render.profileFile, order.profile); !done) return done;
  }
  auto segments = ports_.segmentsOf(order_.render, folder + kFarmDocument);
  if (!segments) return segments.error();
  if (segments->empty()) return Error{"such a file is made in one piece, without a cluster"};
  segments_ = std::move(*segments);
  order_.shares = std::clamp(order.shares, 1, static_cast<int>(segments_.size()));
  const auto script = jobScript(ports_.engine.engine, order_.render, folder + kFarmDocument, order_.shares);
  if (auto done = writeDurably(files, folder + kFarmScript, script); !done) return done;
  state_ = {.phase = FarmPhase::Submitting, .segments = segments_.size()};
  count();
  if (unfinished().empty()) {
    join();
  } else {
    submit();
  }
  return {};
}

void FarmRender::count() {
  state_.made =
      static_cast<std::size_t>(std::count_if(segments_.begin(), segments_.end(), [&](const auto& path) {
        return ports_.engine.files.exists(path);
      }));
}

std::vector<int> FarmRender::unfinished() const {
  std::set<int> shares;
  for (std::size_t i = 0; i < segments_.size(); ++i) {
    if (!ports_.engine.files.exists(segments_[i]))
      shares.insert(static_cast<int>(i % static_cast<std::size_t>(order_.shares)) + 1);
  }
  return {shares.begin(), shares.end()};
}

void FarmRender::submit() {
  const auto& folder = order_.render.workFolder;
  const auto begun = run("sbatch", submitArguments(folder, folder + kFarmScript, unfinished()),
                         [this](const Answer& answer) { hearSubmitted(answer); });
  if (!begun) end(FarmPhase::Failed, begun.error().text);
}

void FarmRender::hearSubmitted(const Answer& answer) {
  for (const auto& line : answer.lines) {
    if (auto number = jobNumberIn(line)) job_ = std::move(*number);
  }
  if (state_.phase == FarmPhase::Stopping) return takeBack();
  if (answer.exitCode != 0 || job_.empty()) {
    return end(FarmPhase::Failed,
               answer.errors.empty() ? "the cluster has not taken the jobs" : answer.errors.back());
  }
  state_.phase = FarmPhase::Making;
  silences_ = 0;
  timer_->start(kAskEvery);
  changed_();
}

void FarmRender::ask() {
  count();
  // An answer that is late is waited for.
  if (process_) return changed_();
  const auto begun = run("squeue", askArguments(job_), [this](const Answer& answer) { hearAsked(answer); });
  if (!begun) return end(FarmPhase::Failed, begun.error().text);
  changed_();
}

void FarmRender::hearAsked(const Answer& answer) {
  if (state_.phase == FarmPhase::Stopping) return takeBack();
  const bool isForgotten = std::any_of(answer.errors.begin(), answer.errors.end(),
                                       [](const auto& line) { return saysForgotten(line); });
  if (answer.exitCode != 0 && !isForgotten) {
    if (++silences_ < kMostSilences) return;
    return end(FarmPhase::Failed,
               answer.errors.empty() ? "the cluster does not answer" : answer.errors.back());
  }
  silences_ = 0;
  if (answer.lines.empty()) hearArrayEnd();
}

void FarmRender::hearArrayEnd() {
  timer_->stop();
  job_.clear();
  count();
  const auto shares = unfinished();
  if (shares.empty()) return join();
  if (state_.attempt == kMostAttempts) return end(FarmPhase::Failed, whyUnfinished(shares.front()));
  ++state_.attempt;
  state_.phase = FarmPhase::Submitting;
  changed_();
  submit();
}

// What the job has said last.
std::string FarmRender::whyUnfinished(int share) const {
  const auto log = ports_.engine.files.read(jobLog(order_.render.workFolder, share), kMaxLog);
  std::string why = "the cluster has failed " + std::to_string(kMostAttempts) + " times at a segment";
  if (!log) return why;
  std::string_view rest = *log;
  while (!rest.empty()) {
    const auto line = nextLine(rest);
    if (line.starts_with("KVORender:") || holdsText(line, "error")) why = std::string(line);
  }
  return why;
}

void FarmRender::join() {
  state_.phase = FarmPhase::Joining;
  if (auto begun = driver_.start(order_.render); !begun) return end(FarmPhase::Failed, begun.error().text);
  changed_();
}

void FarmRender::hearJoining() {
  const auto& run = driver_.state();
  if (!run.ended()) return changed_();
  if (run.phase == EnginePhase::Done) return end(FarmPhase::Done);
  if (run.phase == EnginePhase::Stopped) return end(FarmPhase::Stopped);
  end(FarmPhase::Failed, whyFailed(run));
}

void FarmRender::stop() {
  if (state_.ended() || state_.phase == FarmPhase::Idle || state_.phase == FarmPhase::Stopping) return;
  timer_->stop();
  const bool joins = state_.phase == FarmPhase::Joining;
  state_.phase = FarmPhase::Stopping;
  if (joins) return driver_.stop();
  // What has been asked is answered first: it may be the number of the jobs.
  if (!process_) takeBack();
}

void FarmRender::takeBack() {
  if (job_.empty()) return end(FarmPhase::Stopped);
  const auto begun = run("scancel", {job_}, [this](const Answer& answer) {
    end(FarmPhase::Stopped, answer.exitCode == 0 || answer.errors.empty() ? "" : answer.errors.back());
  });
  if (!begun) end(FarmPhase::Stopped, begun.error().text);
}

void FarmRender::end(FarmPhase phase, std::string failure) {
  timer_->stop();
  state_.phase = phase;
  state_.failure = std::move(failure);
  const auto changed = changed_;  // what hears of it may destroy this
  changed();
}

}  // namespace kvo
