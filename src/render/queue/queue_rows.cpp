#include "render/queue/queue_rows.h"

#include "base/numbers.h"
#include "base/paths.h"

namespace kvo {

std::vector<QueuedRow> queuedRows(const RenderQueue& queue) {
  std::vector<QueuedRow> rows;
  for (const auto& job : queue.jobs) {
    const bool isRunning = job.state == JobState::Running;
    rows.push_back({job.number, std::string(fileNamePart(job.order.output)),
                    isRunning ? FormatMask(job.share * 100, "0") + "%" : std::string(stateWord(job.state)),
                    job.failure, isRunning || job.state == JobState::Waiting,
                    job.state == JobState::Paused || job.state == JobState::Failed});
  }
  return rows;
}

}  // namespace kvo
