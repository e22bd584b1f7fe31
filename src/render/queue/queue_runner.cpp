#include "render/queue/queue_runner.h"

#include "base/paths.h"
#include "core/telling/translated.h"
#include "render/output_hold.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kQueueLookEvery = 500;    // milliseconds
constexpr double kWorthTelling = 0.01;  // of a job, that the file hears of

bool keepsSegments(const Files& files, const std::string& workFolder) {
  bool keeps = false;
  files.eachBelow(workFolder, [&](const std::string& path) {
    keeps = keeps || path.ends_with(".segment");
    return !keeps;
  });
  return keeps;
}

}  // namespace

QueueRunner::QueueRunner(const Ports& ports, std::function<void()> changed)
    : ports_(ports),
      changed_(std::move(changed)),
      driver_(ports.engine, [this] { hear(); }),
      timer_(ports.engine.loop.timer([this] { look(); })) {}

void QueueRunner::start() {
  stops_ = false;
  failed_ = 0;
  timer_->start(kQueueLookEvery);
  look();
}

void QueueRunner::stop() {
  stops_ = true;
  driver_.stop();
}

bool QueueRunner::isIdle() const {
  return running_ == 0 && std::ranges::none_of(queue_.jobs, [](const QueueJob& job) {
           return job.state == JobState::Waiting || job.state == JobState::Running;
         });
}

bool QueueRunner::takeLock() {
  if (lock_) return true;
  auto held = ports_.locks.tryLock(ports_.store.runnerLock());
  isElsewhere_ = held && *held == nullptr;
  if (held) lock_ = std::move(*held);
  return lock_ != nullptr;
}

// What is running in the queue and not here has lost its runner, or its end could not be written down.
void QueueRunner::mend() {
  if (std::ranges::find(queue_.jobs, JobState::Running, &QueueJob::state) == queue_.jobs.end()) return;
  const auto mended = ports_.store.change([this](RenderQueue& queue) -> Outcome {
    mendQueue(queue);
    queue_ = queue;
    return {};
  });
  if (!mended) trouble_ = mended.error().text;
}

void QueueRunner::look() {
  auto read = ports_.store.read();
  trouble_ = read ? std::string() : read.error().text;
  if (!read) return changed_();
  queue_ = std::move(*read);
  // A folder is made for the queue with its first job, not for looking.
  const bool isNew = !lock_;
  if (!queue_.jobs.empty() && takeLock()) {
    // Another may have changed it until now.
    if (isNew) {
      if (auto now = ports_.store.read()) queue_ = std::move(*now);
    }
    follow();
  }
  changed_();
}

void QueueRunner::follow() {
  if (running_ > 0) {
    const auto* job = jobOf(queue_, running_);
    if (job == nullptr || job->state != JobState::Running) driver_.stop();
    return;
  }
  mend();
  if (const auto* next = nextFree(); next != nullptr && !stops_) begin(QueueJob(*next));
}

// What another render makes now, from the window or on the console, is made when that has ended.
const QueueJob* QueueRunner::nextFree() const {
  const auto found = std::ranges::find_if(queue_.jobs, [&](const QueueJob& job) {
    return job.state == JobState::Waiting && !isBeingMade(ports_.locks, job.order.output);
  });
  return found == queue_.jobs.end() ? nullptr : &*found;
}

// Nothing is begun that the queue cannot say of, nor what has been paused or taken out since it was looked
// at.
void QueueRunner::begin(const QueueJob& job) {
  bool waits = false;
  const auto noted = ports_.store.change([&](RenderQueue& queue) -> Outcome {
    waits = beginJob(queue, job.number).ok();
    queue_ = queue;
    return {};
  });
  trouble_ = noted ? std::string() : noted.error().text;
  if (!noted || !waits) return;
  const auto order = ports_.store.orderOf(job);
  const auto begun = order ? driver_.start(*order) : Outcome(order.error());
  if (!begun) {
    ++failed_;
    return write(job.number, [&](QueueJob& kept) {
      kept.state = JobState::Failed;
      kept.failure = begun.error().text;
      tellEnd(kept);
    });
  }
  running_ = job.number;
  order_ = *order;
  written_ = 0;
  ports_.store.tellShare(running_, 0);
  if (ports_.work != nullptr) awake_.emplace(*ports_.work);
}

void QueueRunner::hear() {
  if (driver_.state().ended()) return hearEnd();
  const double share = shareDone(driver_.state().progress);
  if (auto* job = jobOf(queue_, running_); job != nullptr) job->share = share;
  if (share >= written_ + kWorthTelling) {
    written_ = share;
    ports_.store.tellShare(running_, share);
  }
  changed_();
}

void QueueRunner::hearEnd() {
  const auto& run = driver_.state();
  const int number = std::exchange(running_, 0);
  const bool isLost = !keepsSegments(ports_.engine.files, order_.workFolder);
  awake_.reset();
  if (run.phase == EnginePhase::Failed) ++failed_;
  write(number, [&](QueueJob& job) {
    if (run.phase == EnginePhase::Done) {
      job.state = JobState::Done;
      job.share = 1;
    } else if (run.phase == EnginePhase::Failed) {
      job.state = JobState::Failed;
      job.failure = whyFailed(run);
    } else if (job.state == JobState::Running) {
      job.state = JobState::Waiting;
    }
    if (job.state != JobState::Done && isLost) job.share = 0;
  });
  // All that is kept for a job stays where the queue cannot tell of it.
  if (!trouble_.empty()) return changed_();
  const auto* ended = jobOf(queue_, number);
  if (ended != nullptr) tellEnd(*ended);
  if (ended == nullptr || run.phase == EnginePhase::Done) ports_.store.forget(number);
  // A movie that stands has no such folder any more; what is there now is somebody else's.
  if (ended == nullptr && run.phase != EnginePhase::Done && !hasOutput(queue_, order_.output))
    (void)dropWork(ports_.engine.files, ports_.locks, order_.output).ok();
  changed_();
}

void QueueRunner::tellEnd(const QueueJob& job) const {
  if (ports_.work == nullptr) return;
  const auto name = fileNamePart(job.order.output);
  if (job.state == JobState::Failed)
    ports_.work->tell("KVO5", translated("%1 could not be made.", {name}));
  else if (job.state == JobState::Done && nextJob(queue_) == nullptr)
    ports_.work->tell("KVO5", translated("%1 has been created !", {name}));
}

void QueueRunner::write(int number, const std::function<void(QueueJob&)>& change) {
  const auto done = ports_.store.change([&](RenderQueue& queue) -> Outcome {
    if (auto* job = jobOf(queue, number)) change(*job);
    queue_ = queue;
    return {};
  });
  trouble_ = done ? std::string() : done.error().text;
}

Outcome removeQueued(QueueStore& store, Files& files, NameLocks& locks, int number) {
  QueueJob gone;
  bool isShared = false;  // by another job of the same output
  auto done = store.change([&](RenderQueue& queue) {
    if (const auto* job = jobOf(queue, number)) gone = *job;
    auto removed = removeJob(queue, number);
    isShared = hasOutput(queue, gone.order.output);
    return removed;
  });
  if (!done) return done;
  store.forget(number);
  // Nothing is kept for a movie that stands. Where an engine is at work, its runner sweeps.
  if (isShared || gone.state == JobState::Done || isBeingMade(locks, gone.order.output)) return done;
  return dropWork(files, locks, gone.order.output);
}

}  // namespace kvo
