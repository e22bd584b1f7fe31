#include "app/queue_links.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "core/telling/translated.h"
#include "render/queue/queue_rows.h"

#include <algorithm>

namespace kvo {

// Of the chosen one; empty where the queue has lost it meanwhile.
std::string QueueLinks::movie() const {
  const auto* row = chosen();
  const auto* job = row == nullptr ? nullptr : jobOf(parts_.runner.queue(), row->number);
  return job == nullptr ? std::string() : job->order.output;
}

void QueueLinks::choose(int row) { state_.row = row; }

void QueueLinks::tell(const Outcome& done) {
  if (!done) say(done.error().text);
  parts_.runner.start();
}

void QueueLinks::say(const std::string& text) {
  parts_.session.boxes.show({"KVO - Render Queue", text, BoxButtons::Ok, BoxIcon::Warning});
}

void QueueLinks::act() {
  const auto* job = chosen();
  if (job == nullptr || !queueKeys(state_).canAct) return;
  if (job->canView) {
    const auto file = movie();
    if (parts_.session.files.exists(file)) return parts_.view(file);
    return say(translated("%1 is not there any more", {file}));
  }
  tell(parts_.store.change([&](RenderQueue& queue) {
    return job->canGoOn ? resumeJob(queue, job->number) : pauseJob(queue, job->number);
  }));
}

void QueueLinks::openFolder() {
  const auto folder = std::string(folderPart(movie()));
  if (folder.empty() || parts_.desktop.openFile(folder)) return;
  say(translated("There is no program for %1", {folder}));
}

void QueueLinks::remove() {
  const auto* job = chosen();
  if (job == nullptr) return;
  tell(removeQueued(parts_.store, parts_.session.files, parts_.session.nameLocks, job->number));
}

void QueueLinks::clear() {
  tell(parts_.store.change([](RenderQueue& queue) -> Outcome {
    clearDone(queue);
    return {};
  }));
}

bool QueueLinks::mayLeave() {
  const auto& runner = parts_.runner;
  const auto* job = jobOf(runner.queue(), runner.running());
  if (job == nullptr || !job->isInOnePiece) return true;
  const auto answer = parts_.session.boxes.show(
      {"KVO - Render Queue",
       translated(
           "%1 is made in one piece. What is done of it, %2, is lost, and it begins anew at the next start. "
           "Do you wish to leave now ?",
           {fileNamePart(job->order.output), FormatMask(job->share * 100, "0") + "%"}),
       BoxButtons::YesNo, BoxIcon::Question});
  return answer == Answer::Yes;
}

void QueueLinks::move(int place) {
  const auto* job = chosen();
  const auto last = static_cast<int>(state_.Lst_Queue.size());
  if (job == nullptr || std::clamp(place, 1, last) == state_.row + 1) return;
  tell(parts_.store.change([&](RenderQueue& queue) { return moveJob(queue, job->number, place); }));
}

void QueueLinks::show() {
  state_.isOpen = true;
  ++state_.raises;
}

void QueueLinks::hide() { state_.isOpen = false; }

// The chosen one keeps the choice; where it is gone, what has come into its place gets it.
int QueueLinks::rowAmong(const std::vector<QueuedRow>& rows) const {
  const auto* before = chosen();
  const auto kept = std::ranges::find(rows, before == nullptr ? 0 : before->number, &QueuedRow::number);
  if (kept != rows.end()) return static_cast<int>(kept - rows.begin());
  return std::min(std::max(state_.row, 0), static_cast<int>(rows.size()) - 1);
}

void QueueLinks::changed() {
  auto now = state_;
  now.trouble = parts_.runner.trouble();
  now.glance = queueGlance(parts_.runner.queue(), now.trouble);
  now.Lst_Queue = queuedRows(parts_.runner.queue());
  now.canClear = std::ranges::find(parts_.runner.queue().jobs, JobState::Done, &QueueJob::state) !=
                 parts_.runner.queue().jobs.end();
  now.row = rowAmong(now.Lst_Queue);
  if (now == state_) return;
  if (!now.trouble.empty() && now.trouble != state_.trouble) parts_.session.log.LogError(now.trouble);
  state_ = std::move(now);
  parts_.window.queue = state_.glance;
  parts_.draw();
}

}  // namespace kvo
