// Renders that wait their turn, as data: what can be done to them, and the text that they are kept as.
#pragma once

#include "base/result.h"
#include "render/render_driver.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

enum class JobState {
  Waiting,
  Running,
  Paused,  ///< what is finished of it is kept
  Done,
  Failed,
};

struct QueueJob {
  int number = 0;  ///< its name for good: no other job gets it
  JobState state = JobState::Waiting;
  std::string title;    ///< whose movie it is
  std::string failure;  ///< a line, of one that failed
  double share = 0;     ///< how far it is, 0 to 1
  /// Nothing of it is kept before all of it stands: cut off, it begins anew.
  bool isInOnePiece = false;
  RenderOrder order;  ///< document and profile lie in files beside the queue's
};

/// In the order in which they are made.
struct RenderQueue {
  std::vector<QueueJob> jobs;
  int lastNumber = 0;
};

/// At the end; its number is the next one. Gives it back. Fails where a job that is to be made has the same
/// output: one would replace the other's movie unasked.
Result<QueueJob*> addJob(RenderQueue& queue, std::string title, RenderOrder order);

/// Nothing where there is no job of that number.
QueueJob* jobOf(RenderQueue& queue, int number);
const QueueJob* jobOf(const RenderQueue& queue, int number);

/// Whether a job of it goes on from what is finished of such an output.
bool hasOutput(const RenderQueue& queue, const std::string& output);

/// The one whose turn it is; nothing while none waits.
const QueueJob* nextJob(const RenderQueue& queue);

/// These fail with a line where there is no such job, and where it is not in a state for it: one that waits
/// or runs can be paused; one that is paused or has failed goes on, from what is finished of it, unless
/// another is to be made under its name.
Outcome pauseJob(RenderQueue& queue, int number);
Outcome resumeJob(RenderQueue& queue, int number);
Outcome removeJob(RenderQueue& queue, int number);
/// One that waits is being made.
Outcome beginJob(RenderQueue& queue, int number);
/// Takes those out whose movies stand.
void clearDone(RenderQueue& queue);
/// Brings it to a place, counted from 1; behind the last means there.
Outcome moveJob(RenderQueue& queue, int number, int place);

/// What was running when its program ended waits for its turn again.
void mendQueue(RenderQueue& queue);

/// Lines of a key and a value.
std::string queueText(const RenderQueue& queue);
/// What makes no sense in it is left out. Nothing for a text that is none of a queue; an empty one is a queue
/// without jobs.
std::optional<RenderQueue> readQueue(std::string_view text);

/// "waiting", "running", ...
std::string_view stateWord(JobState state);

}  // namespace kvo
