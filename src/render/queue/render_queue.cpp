#include "render/queue/render_queue.h"

#include "base/escaped_line.h"
#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 5> kStateWords = {"waiting", "running", "paused", "done", "failed"};
constexpr std::string_view kHead = "KVO5 render queue";
constexpr std::string_view kJob = "[job]";

std::string exact(double number) { return FormatMask(number, "0.000000"); }
int wholeIn(std::string_view text) { return toLong(numberIn(text).value_or(0)).value_or(0); }

std::string rangeText(const RenderOrder& order) {
  return order.range ? exact(order.range->first) + "-" + exact(order.range->second) : std::string();
}

void readRangeOf(RenderOrder& order, std::string_view text) {
  const auto dash = text.find('-');
  if (dash == std::string_view::npos) return;
  const auto from = numberIn(text.substr(0, dash));
  const auto to = numberIn(text.substr(dash + 1));
  if (from && to) order.range = {*from, *to};
}

void readState(QueueJob& job, std::string_view text) {
  const auto* found = std::find(kStateWords.begin(), kStateWords.end(), text);
  if (found != kStateWords.end()) job.state = static_cast<JobState>(found - kStateWords.begin());
}

// A line of a job.
struct QueueRow {
  std::string_view key;
  std::string (*write)(const QueueJob& job);
  void (*read)(QueueJob& job, std::string_view text);
};

constexpr std::array kQueueRows = {
    QueueRow{"number", [](const QueueJob& job) { return std::to_string(job.number); },
             [](QueueJob& job, std::string_view text) { job.number = wholeIn(text); }},
    QueueRow{"state", [](const QueueJob& job) { return std::string(stateWord(job.state)); }, readState},
    QueueRow{"title", [](const QueueJob& job) { return job.title; },
             [](QueueJob& job, std::string_view text) { job.title = text; }},
    QueueRow{"failure", [](const QueueJob& job) { return job.failure; },
             [](QueueJob& job, std::string_view text) { job.failure = text; }},
    QueueRow{"share", [](const QueueJob& job) { return exact(job.share); },
             [](QueueJob& job, std::string_view text) {
               job.share = std::clamp(numberIn(text).value_or(0), 0.0, 1.0);
             }},
    QueueRow{"one piece", [](const QueueJob& job) { return std::string(job.isInOnePiece ? "1" : ""); },
             [](QueueJob& job, std::string_view text) { job.isInOnePiece = !text.empty(); }},
    QueueRow{"output", [](const QueueJob& job) { return job.order.output; },
             [](QueueJob& job, std::string_view text) { job.order.output = text; }},
    QueueRow{"range", [](const QueueJob& job) { return rangeText(job.order); },
             [](QueueJob& job, std::string_view text) { readRangeOf(job.order, text); }},
    QueueRow{"codec", [](const QueueJob& job) { return job.order.codec; },
             [](QueueJob& job, std::string_view text) { job.order.codec = text; }},
    QueueRow{"preset", [](const QueueJob& job) { return job.order.preset; },
             [](QueueJob& job, std::string_view text) { job.order.preset = text; }},
    QueueRow{"quality", [](const QueueJob& job) { return std::to_string(job.order.quality); },
             [](QueueJob& job, std::string_view text) { job.order.quality = wholeIn(text); }},
    QueueRow{"effort", [](const QueueJob& job) { return job.order.effort; },
             [](QueueJob& job, std::string_view text) { job.order.effort = text; }},
    QueueRow{"megabytes", [](const QueueJob& job) { return exact(job.order.megabytes); },
             [](QueueJob& job, std::string_view text) {
               job.order.megabytes = std::max(numberIn(text).value_or(0), 0.0);
             }},
    QueueRow{"encoder", [](const QueueJob& job) { return job.order.encoder; },
             [](QueueJob& job, std::string_view text) { job.order.encoder = text; }},
    QueueRow{"profile",
             [](const QueueJob& job) {
               return job.order.profile ? std::to_string(*job.order.profile) : std::string();
             },
             [](QueueJob& job, std::string_view text) {
               if (!text.empty()) job.order.profile = wholeIn(text);
             }},
    QueueRow{"profile file", [](const QueueJob& job) { return job.order.profileFile; },
             [](QueueJob& job, std::string_view text) { job.order.profileFile = text; }},
};

Error noJob(int number) { return {"there is no job " + std::to_string(number) + " in the queue"}; }

// Among those that are to be made, but for the job `number` itself.
Outcome aloneWith(const RenderQueue& queue, const std::string& output, int number) {
  const auto same = std::ranges::find_if(queue.jobs, [&](const QueueJob& job) {
    return job.number != number && job.order.output == output && job.state <= JobState::Paused;
  });
  if (same == queue.jobs.end()) return {};
  return Error{"cannot write " + output + ": job " + std::to_string(same->number) +
               " of the queue is going to make it"};
}

Error notNow(const QueueJob& job) {
  return {"job " + std::to_string(job.number) + " is " + std::string(stateWord(job.state))};
}

}  // namespace

std::string_view stateWord(JobState state) { return kStateWords.at(static_cast<std::size_t>(state)); }

Result<QueueJob*> addJob(RenderQueue& queue, std::string title, RenderOrder order) {
  if (auto alone = aloneWith(queue, order.output, 0); !alone) return alone.error();
  order.workFolder = workFolderOf(order.output);
  queue.jobs.push_back(
      {++queue.lastNumber, JobState::Waiting, std::move(title), {}, 0, false, std::move(order)});
  return &queue.jobs.back();
}

const QueueJob* jobOf(const RenderQueue& queue, int number) {
  const auto found = std::ranges::find(queue.jobs, number, &QueueJob::number);
  return found == queue.jobs.end() ? nullptr : &*found;
}

QueueJob* jobOf(RenderQueue& queue, int number) {
  const auto found = std::ranges::find(queue.jobs, number, &QueueJob::number);
  return found == queue.jobs.end() ? nullptr : &*found;
}

bool hasOutput(const RenderQueue& queue, const std::string& output) {
  return std::ranges::any_of(queue.jobs, [&](const QueueJob& job) {
    return job.state != JobState::Done && job.order.output == output;
  });
}

const QueueJob* nextJob(const RenderQueue& queue) {
  const auto found = std::ranges::find(queue.jobs, JobState::Waiting, &QueueJob::state);
  return found == queue.jobs.end() ? nullptr : &*found;
}

Outcome pauseJob(RenderQueue& queue, int number) {
  auto* job = jobOf(queue, number);
  if (job == nullptr) return noJob(number);
  if (job->state != JobState::Waiting && job->state != JobState::Running) return notNow(*job);
  job->state = JobState::Paused;
  return {};
}

Outcome resumeJob(RenderQueue& queue, int number) {
  auto* job = jobOf(queue, number);
  if (job == nullptr) return noJob(number);
  if (job->state != JobState::Paused && job->state != JobState::Failed) return notNow(*job);
  if (auto alone = aloneWith(queue, job->order.output, number); !alone) return alone;
  job->state = JobState::Waiting;
  job->failure.clear();
  return {};
}

// How far it gets on what is kept of it is told by its first word.
Outcome beginJob(RenderQueue& queue, int number) {
  auto* job = jobOf(queue, number);
  if (job == nullptr) return noJob(number);
  if (job->state != JobState::Waiting) return notNow(*job);
  job->state = JobState::Running;
  job->share = 0;
  return {};
}

Outcome removeJob(RenderQueue& queue, int number) {
  const auto gone = std::erase_if(queue.jobs, [&](const QueueJob& job) { return job.number == number; });
  return gone == 0 ? Outcome(noJob(number)) : Outcome();
}

void clearDone(RenderQueue& queue) {
  std::erase_if(queue.jobs, [](const QueueJob& job) { return job.state == JobState::Done; });
}

Outcome moveJob(RenderQueue& queue, int number, int place) {
  const auto* job = jobOf(queue, number);
  if (job == nullptr) return noJob(number);
  auto& jobs = queue.jobs;
  auto moved = *job;
  jobs.erase(jobs.begin() + (job - jobs.data()));
  const auto at = std::clamp<std::ptrdiff_t>(place - 1, 0, std::ssize(jobs));
  jobs.insert(jobs.begin() + at, std::move(moved));
  return {};
}

void mendQueue(RenderQueue& queue) {
  for (auto& job : queue.jobs) {
    if (job.state == JobState::Running) job.state = JobState::Waiting;
  }
}

std::string queueText(const RenderQueue& queue) {
  std::string text = std::string(kHead) + "\nlast=" + std::to_string(queue.lastNumber) + "\n";
  for (const auto& job : queue.jobs) {
    text += std::string(kJob) + "\n";
    for (const auto& row : kQueueRows)
      text += std::string(row.key) + "=" + escapedLine(row.write(job)) + "\n";
  }
  return text;
}

std::optional<RenderQueue> readQueue(std::string_view text) {
  RenderQueue queue;
  if (!text.empty() && nextLine(text) != kHead) return std::nullopt;
  while (!text.empty()) {
    const auto line = nextLine(text);
    if (line == kJob) queue.jobs.emplace_back();
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    const auto key = line.substr(0, equals);
    const auto value = unescapedLine(line.substr(equals + 1));
    if (key == "last") queue.lastNumber = wholeIn(value);
    const auto* row = std::ranges::find(kQueueRows, key, &QueueRow::key);
    if (row != kQueueRows.end() && !queue.jobs.empty()) row->read(queue.jobs.back(), value);
  }
  std::erase_if(queue.jobs, [](const QueueJob& job) { return job.number < 1 || job.order.output.empty(); });
  for (auto& job : queue.jobs) {
    job.order.workFolder = workFolderOf(job.order.output);
    queue.lastNumber = std::max(queue.lastNumber, job.number);
  }
  return queue;
}

}  // namespace kvo
