// The movie of the options, handed to the queue in place of being made at once.
#include "base/numbers.h"
#include "render/movie_render.h"
#include "render/render_texts.h"
#include "render/wm8_profile.h"
#include "vocabulary/encode_profiles.h"

namespace kvo {

void MovieRender::AddToQueue() {
  if (state_.isRunning || !ports_.enqueue) return;
  Job job;
  if (!readJob(false, job) || !askForName(job)) return;
  const auto range = job.range == std::pair(0.0, 0.0) ? std::nullopt : job.range;
  auto order = orderOf(job, job.file, range);
  if (!order) return;
  std::string profile;
  // The engine makes a WAV by itself.
  if (job.profile != kNoProfile && !job.audioOnly()) {
    if (job.profile < kSystemProfiles) order->profile = job.profile;
    profile = wm8ProfileBytes(job.profile, profileSize(), {});
  }
  remember(job);
  const auto added = ports_.enqueue(collectionName(), *order, profile);
  if (!added) ports_.editing.boxes.show(renderFailedBox(added.error().text));
  changed();
}

}  // namespace kvo
