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
  auto& boxes = ports_.editing.boxes;
  RenderOrder order{.document = job.document,
                    .output = job.file,
                    .range = job.range,
                    .frameRate = ports_.editing.settings.preferences().OutPutFrameRate};
  if (order.range == std::pair(0.0, 0.0)) order.range.reset();
  if (order.range && order.range->second <= order.range->first) {
    boxes.show(rangeErrorBox());
    boxes.show(rangeFailedBox());
    return;
  }
  takePreset(job, order);
  std::string profile;
  // The engine makes a WAV by itself.
  if (job.profile != kNoProfile && !job.audioOnly()) {
    if (job.profile < kSystemProfiles) order.profile = job.profile;
    const auto size =
        state_.Chk_UseCodecOutputDimensions ? std::optional<OutputSize>() : std::optional(outputSize());
    profile = wm8ProfileBytes(job.profile, size, {});
  }
  remember(job);
  const auto added = ports_.enqueue(collectionName(), order, profile);
  if (!added) boxes.show(renderFailedBox(added.error().text));
  ports_.host.renderChanged();
}

}  // namespace kvo
