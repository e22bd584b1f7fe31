#include "render/queue/queue_rows.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "core/telling/translated.h"

#include <algorithm>

namespace kvo {
namespace {

std::string percentOf(const QueueJob& job) { return FormatMask(job.share * 100, "0") + "%"; }

// How many there are in a state: as one, or with their number.
std::string counted(const RenderQueue& queue, JobState state, const char* one, const char* more) {
  const auto count = std::ranges::count(queue.jobs, state, &QueueJob::state);
  if (count == 0) return {};
  return count == 1 ? translated(one) : translated(more, {std::to_string(count)});
}

}  // namespace

std::vector<QueuedRow> queuedRows(const RenderQueue& queue) {
  std::vector<QueuedRow> rows;
  for (const auto& job : queue.jobs) {
    const bool isRunning = job.state == JobState::Running;
    rows.push_back({job.number, std::string(fileNamePart(job.order.output)),
                    isRunning ? percentOf(job) : std::string(stateWord(job.state)), job.failure,
                    isRunning || job.state == JobState::Waiting,
                    job.state == JobState::Paused || job.state == JobState::Failed,
                    job.state == JobState::Failed, job.isInOnePiece, job.state == JobState::Done});
  }
  return rows;
}

WorkGlance queueGlance(const RenderQueue& queue, const std::string& trouble) {
  if (!trouble.empty()) return {translated("The queue has stopped"), trouble, 0, true};
  WorkGlance glance;
  const auto add = [&](const std::string& words) {
    if (!words.empty()) glance.text += (glance.text.empty() ? "" : ", ") + words;
  };
  const auto running = std::ranges::find(queue.jobs, JobState::Running, &QueueJob::state);
  if (running != queue.jobs.end()) {
    glance.share = running->share;
    glance.about = translated("%1 is being made in the background", {fileNamePart(running->order.output)});
    add(percentOf(*running));
  }
  add(counted(queue, JobState::Waiting, "1 render waits", "%1 renders wait"));
  const auto failed = counted(queue, JobState::Failed, "1 render failed", "%1 renders failed");
  add(failed);
  glance.isBad = !failed.empty();
  if (glance.text.empty())
    add(counted(queue, JobState::Paused, "1 render is paused", "%1 renders are paused"));
  if (glance.about.empty() && !glance.text.empty()) glance.about = translated("Renders in the background");
  return glance;
}

}  // namespace kvo
