#include "render/cluster/cluster_render.h"

#include "base/paths.h"
#include "base/text.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

namespace kvo {
namespace {

using std::chrono::seconds;

constexpr int kAskEvery = 1000;  // milliseconds
constexpr int kMostAttempts = 3;
constexpr seconds kMostAnswer{30};    // that a question waits for its answer
constexpr seconds kMostSilence{300};  // a controller that restarts is back by then
constexpr seconds kMostStopping{10};
// What a client of a shared folder knows of it is at most a minute old, as NFS has it where nobody says
// otherwise.
constexpr seconds kMostSettling{60};
constexpr const char* kClusterDocument = "/render.xtl";
constexpr const char* kClusterProfile = "/render.prx";
constexpr const char* kClusterScript = "/render.sh";
constexpr std::size_t kMaxErrors = 16U << 20U;  // bytes
constexpr std::size_t kMostToldLines = 10;

}  // namespace

ClusterRender::ClusterRender(Ports ports, std::function<void()> changed)
    : ports_(std::move(ports)),
      changed_(std::move(changed)),
      driver_(ports_.engine, [this] { hearJoining(); }),
      timer_(ports_.engine.loop.timer([this] { tick(); })) {}

Outcome ClusterRender::run(const char* program, std::vector<std::string> arguments, Heard heard) {
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
  asked_ = ports_.engine.loop.now();
  return {};
}

bool ClusterRender::isLate(std::chrono::milliseconds since, std::chrono::milliseconds most) const {
  return ports_.engine.loop.now() - since >= most;
}

Outcome ClusterRender::start(const ClusterOrder& order) {
  auto& files = ports_.engine.files;
  order_ = order;
  const auto& folder = order_.render.workFolder;
  if (auto made = files.makeFolder(folder); !made) return made;
  if (auto done = writeDurably(files, folder + kClusterDocument, order.render.document); !done) return done;
  if (!order.profile.empty()) {
    order_.render.profileFile = folder + kClusterProfile;
    if (auto done = writeDurably(files, order_.render.profileFile, order.profile); !done) return done;
  }
  auto segments = ports_.segmentsOf(order_.render, folder + kClusterDocument);
  if (!segments) return segments.error();
  if (segments->empty()) return Error{"such a file is made in one piece, without a cluster"};
  segments_ = std::move(*segments);
  order_.shares = std::clamp(order.shares, 1, static_cast<int>(segments_.size()));
  const auto script =
      jobScript(ports_.engine.engine, order_.render, folder + kClusterDocument, order_.shares);
  if (auto done = writeDurably(files, folder + kClusterScript, script); !done) return done;
  state_ = {.segments = segments_.size()};
  look();
  if (unfinished().empty()) {
    join();
  } else {
    submit();
  }
  return {};
}

// By the list of what is in the folder: to open it has a shared folder's server asked anew, while the look-up
// of a name may be answered from memory, where it is not there yet.
void ClusterRender::look() {
  std::set<std::string, std::less<>> there;
  ports_.engine.files.eachBelow(order_.render.workFolder, [&](const std::string& path) {
    there.emplace(fileNamePart(path));
    return true;
  });
  made_.clear();
  for (const auto& segment : segments_) made_.push_back(there.contains(fileNamePart(segment)));
  state_.made = static_cast<std::size_t>(std::count(made_.begin(), made_.end(), true));
}

std::vector<int> ClusterRender::unfinished() const {
  std::set<int> shares;
  for (std::size_t i = 0; i < made_.size(); ++i) {
    if (!made_[i]) shares.insert(static_cast<int>(i % static_cast<std::size_t>(order_.shares)) + 1);
  }
  return {shares.begin(), shares.end()};
}

void ClusterRender::submit() {
  const auto& folder = order_.render.workFolder;
  timer_->stop();
  job_.clear();
  hasEnded_ = false;
  state_.phase = ClusterPhase::Submitting;
  const auto begun =
      run("squeue", searchArguments(folder), [this](const Answer& answer) { hearFound(answer); });
  if (!begun) end(ClusterPhase::Failed, begun.error().text);
}

// Two arrays at the same segments would only be in each other's way.
void ClusterRender::hearFound(const Answer& answer) {
  if (state_.phase == ClusterPhase::Stopping) return takeBack();
  for (const auto& line : answer.lines) {
    if (auto number = jobNumberIn(line)) return follow(std::move(*number));
  }
  handIn();
}

void ClusterRender::handIn() {
  const auto& folder = order_.render.workFolder;
  const auto begun = run("sbatch", submitArguments(folder, folder + kClusterScript, unfinished()),
                         [this](const Answer& answer) { hearSubmitted(answer); });
  if (!begun) end(ClusterPhase::Failed, begun.error().text);
}

void ClusterRender::hearSubmitted(const Answer& answer) {
  for (const auto& line : answer.lines) {
    if (auto number = jobNumberIn(line)) job_ = std::move(*number);
  }
  if (state_.phase == ClusterPhase::Stopping) return takeBack();
  if (answer.exitCode != 0 || job_.empty()) {
    return end(ClusterPhase::Failed,
               answer.errors.empty() ? "the cluster has not taken the jobs" : answer.errors.back());
  }
  follow(job_);
}

void ClusterRender::follow(std::string job) {
  job_ = std::move(job);
  state_.phase = ClusterPhase::Making;
  heard_ = ports_.engine.loop.now();
  timer_->start(kAskEvery);
  changed_();
}

void ClusterRender::tick() {
  if (state_.phase == ClusterPhase::Stopping) return giveUp();
  look();
  if (hasEnded_) return settle();
  if (!process_) return ask();
  if (!isLate(asked_, kMostAnswer)) return changed_();
  process_.reset();
  hearSilence("the cluster does not answer");
}

void ClusterRender::ask() {
  const auto begun = run("squeue", askArguments(job_), [this](const Answer& answer) { hearAsked(answer); });
  if (!begun) {
    silence_ = begun.error().text;
    return endTaken(false);
  }
  changed_();
}

void ClusterRender::hearAsked(const Answer& answer) {
  const bool isForgotten = std::any_of(answer.errors.begin(), answer.errors.end(),
                                       [](const auto& line) { return saysForgotten(line); });
  if (answer.exitCode != 0 && !isForgotten)
    return hearSilence(answer.errors.empty() ? "the cluster does not answer" : answer.errors.back());
  heard_ = ports_.engine.loop.now();
  if (!answer.lines.empty()) return;
  hasEnded_ = true;
  ended_ = heard_;
  look();
  settle();
}

void ClusterRender::hearSilence(const std::string& why) {
  if (!isLate(heard_, kMostSilence)) return;
  silence_ = why;
  state_.phase = ClusterPhase::Stopping;
  stopped_ = ports_.engine.loop.now();
  takeBack();
}

// Behind the end of the jobs. What they have made may be seen late; what has failed will not come.
void ClusterRender::settle() {
  const auto shares = unfinished();
  if (shares.empty()) return join();
  const bool allFailed = std::ranges::all_of(shares, [this](int share) { return hasFailed(share); });
  if (!allFailed && !isLate(ended_, kMostSettling)) return changed_();
  handInAgain(shares);
}

void ClusterRender::handInAgain(const std::vector<int>& shares) {
  state_.says = saidBy(shares.front());
  if (state_.attempt < kMostAttempts) {
    ++state_.attempt;
    state_.phase = ClusterPhase::Submitting;
    changed_();
    return submit();
  }
  auto why = "the cluster has failed " + std::to_string(kMostAttempts) + " times at a segment";
  for (const auto& line : state_.says) {
    if (line.starts_with("KVORender:") || holdsText(line, "error")) why = reasonOf(line);
  }
  end(ClusterPhase::Failed, std::move(why));
}

bool ClusterRender::hasFailed(int share) const {
  const auto errors = ports_.engine.files.read(jobErrors(order_.render.workFolder, share), kMaxErrors);
  std::string_view rest = errors ? *errors : std::string_view();
  while (!rest.empty()) {
    if (saysFailed(nextLine(rest), job_)) return true;
  }
  return false;
}

std::vector<std::string> ClusterRender::saidBy(int share) const {
  const auto errors = ports_.engine.files.read(jobErrors(order_.render.workFolder, share), kMaxErrors);
  std::vector<std::string> lines;
  std::string_view rest = errors ? *errors : std::string_view();
  while (!rest.empty()) {
    const auto line = nextLine(rest);
    if (line.empty() || saysEnded(line)) continue;
    if (lines.size() == kMostToldLines) lines.erase(lines.begin());
    lines.emplace_back(line);
  }
  return lines;
}

void ClusterRender::join() {
  timer_->stop();
  state_.phase = ClusterPhase::Joining;
  ports_.letGo();
  if (auto begun = driver_.start(order_.render); !begun) return end(ClusterPhase::Failed, begun.error().text);
  changed_();
}

void ClusterRender::hearJoining() {
  const auto& run = driver_.state();
  if (!run.ended()) return changed_();
  if (run.phase == EnginePhase::Done) return end(ClusterPhase::Done);
  if (run.phase == EnginePhase::Stopped) return end(ClusterPhase::Stopped);
  end(ClusterPhase::Failed, whyFailed(run));
}

void ClusterRender::stop() {
  if (state_.ended() || state_.phase == ClusterPhase::Idle || state_.phase == ClusterPhase::Stopping) return;
  const auto before = std::exchange(state_.phase, ClusterPhase::Stopping);
  if (before == ClusterPhase::Joining) return driver_.stop();
  stopped_ = ports_.engine.loop.now();
  timer_->start(kAskEvery);
  // Of what has been asked only the number of the jobs is worth to be waited for.
  if (before == ClusterPhase::Submitting) return;
  process_.reset();
  takeBack();
}

void ClusterRender::takeBack() {
  if (job_.empty() || hasEnded_) return endTaken(true);
  const auto begun = run("scancel", {job_}, [this](const Answer& answer) {
    const bool isDone = answer.exitCode == 0 || answer.errors.empty();
    endTaken(isDone, isDone ? "" : answer.errors.back());
  });
  if (!begun) endTaken(false, begun.error().text);
}

void ClusterRender::giveUp() {
  if (!isLate(stopped_, kMostStopping)) return;
  process_.reset();
  endTaken(false, "the cluster does not answer");
}

void ClusterRender::endTaken(bool isBack, const std::string& says) {
  state_.mayGoOn = !isBack;
  auto text = silence_.empty() ? says : silence_;
  if (!isBack) text += job_.empty() ? "; it may have taken the jobs" : "; job " + job_ + " may go on";
  end(silence_.empty() ? ClusterPhase::Stopped : ClusterPhase::Failed, std::move(text));
}

void ClusterRender::end(ClusterPhase phase, std::string failure) {
  timer_->stop();
  state_.phase = phase;
  state_.failure = std::move(failure);
  const auto changed = changed_;  // what hears of it may destroy this
  changed();
}

}  // namespace kvo
