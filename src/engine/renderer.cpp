#include "engine/renderer.h"

#include "base/numbers.h"
#include "engine/bounded_queue.h"
#include "engine/compositor.h"
#include "engine/mixer.h"
#include "media/audio_reader.h"
#include "media/media_facts.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <thread>

namespace kvo::engine {
namespace {

using media::Container;
using media::kChannels;
using media::kSampleRate;

constexpr std::size_t kQueueRoom = 8;
constexpr double kSoundStep = 0.1;  // seconds of a step of a sound file

// What is handed to the encoder: a frame and the sound that goes with it.
struct Step {
  media::Picture picture;
  std::vector<float> sound;
};

// The steps of a render: frames of a movie, or tenths of a second of a sound file, from `first` up to `stop`.
struct Plan {
  media::MovieFormat format;
  double stepsPerSecond = 25;
  std::int64_t first = 0;
  std::int64_t stop = 0;
  std::int64_t lastSample = 0;

  [[nodiscard]] double seconds() const { return static_cast<double>(stop - first) / stepsPerSecond; }
  [[nodiscard]] std::int64_t sampleOf(std::int64_t step) const {
    const auto sample = std::llround(static_cast<double>(step) * kSampleRate / stepsPerSecond);
    return step == stop ? lastSample : std::min<std::int64_t>(sample, lastSample);
  }
};

Result<Plan> planOf(const Timeline& timeline, const RenderJob& job) {
  const auto container = media::containerOf(job.output);
  if (!container)
    return Error{"cannot write " + job.output + ": its name must end in .AVI, .WAV, .WMV or .WMA"};
  Plan plan;
  plan.format.container = *container;
  const bool isMovie = *container == Container::Avi || *container == Container::Wmv;
  if (isMovie) {
    if (!timeline.hasVideo || timeline.video.empty()) {
      return Error{"cannot write " + job.output + ": there is no picture; a sound file ends in .WAV or .WMA"};
    }
    plan.format.video =
        media::VideoFormat{*container == Container::Avi ? job.aviCodec : media::VideoCodec::Wmv2,
                           timeline.width, timeline.height, timeline.frameRate, timeline.bitDepth};
  }
  plan.format.audio = !timeline.audio.empty();
  if (!isMovie && !plan.format.audio) return Error{"cannot write " + job.output + ": there is no sound"};

  const double length = timeline.length();
  const auto slice = job.slice.value_or(Slice{0, length});
  const double to = std::min(slice.to, length);
  if (!(slice.from >= 0 && slice.from < to)) {
    return Error{"the range " + FormatMask(slice.from, "0.00") + "-" + FormatMask(slice.to, "0.00") +
                 " is not within the " + FormatMask(length, "0.00") + " s of the movie"};
  }
  plan.stepsPerSecond = isMovie ? timeline.frameRate : 1 / kSoundStep;
  plan.first = std::llround(slice.from * plan.stepsPerSecond);
  plan.stop = std::max<std::int64_t>(plan.first + 1,
                                     std::llround(isMovie ? std::round(to * plan.stepsPerSecond)
                                                          : std::ceil(to * plan.stepsPerSecond - 1e-9)));
  plan.lastSample = isMovie ? std::llround(static_cast<double>(plan.stop) * kSampleRate / plan.stepsPerSecond)
                            : std::llround(to * kSampleRate);
  return plan;
}

// Each source must be there and be a media file ahead of the first frame, and none may be the output.
Outcome checkSources(const Timeline& timeline, const RenderJob& job, const Files& files) {
  std::set<std::string> sources;
  for (const auto& clip : timeline.video) sources.insert(clip.src);
  for (const auto& clip : timeline.audio) sources.insert(clip.src);
  for (const auto& source : sources) {
    if (!files.exists(source)) return Error{"clip " + source + ": the file is missing"};
    if (files.sameFile(source, job.output)) {
      return Error{"cannot write " + job.output + ": it is one of the clips"};
    }
    if (auto done = media::checkInput(source); !done) return done;
  }
  return {};
}

// The thread that encodes. It ends when its queue is closed, or at the first failure.
class Encoder {
 public:
  explicit Encoder(media::MovieWriter writer)
      : writer_(std::move(writer)), queue_(kQueueRoom), thread_([this] { run(); }) {}
  Encoder(const Encoder&) = delete;
  Encoder& operator=(const Encoder&) = delete;
  ~Encoder() {
    queue_.close();
    if (thread_.joinable()) thread_.join();
  }

  // False when encoding has failed; finish() tells why.
  bool take(Step step) { return queue_.push(std::move(step)); }

  Outcome finish() {
    queue_.close();
    thread_.join();
    return outcome_ ? writer_.finish() : outcome_;
  }

 private:
  void run() {
    while (auto step = queue_.pop()) {
      if (step->picture) outcome_ = writer_.writeVideo(step->picture);
      if (outcome_ && !step->sound.empty()) outcome_ = writer_.writeAudio(step->sound);
      if (!outcome_) return queue_.close();
    }
  }

  media::MovieWriter writer_;
  BoundedQueue<Step> queue_;
  Outcome outcome_;
  std::thread thread_;
};

Outcome feed(const Timeline& timeline, const Plan& plan, Encoder& encoder, const RenderWatch& watch) {
  std::optional<Compositor> compositor;
  if (plan.format.video) compositor.emplace(timeline);
  std::optional<Mixer> mixer;
  if (plan.format.audio) mixer.emplace(timeline, plan.sampleOf(plan.first));

  for (auto number = plan.first; number < plan.stop; ++number) {
    Step step;
    if (compositor) {
      auto picture = compositor->frame(number);
      if (!picture) return picture.error();
      step.picture = std::move(*picture);
    }
    if (mixer) {
      const auto count = plan.sampleOf(number + 1) - plan.sampleOf(number);
      step.sound.resize(static_cast<std::size_t>(count) * kChannels);
      if (auto done = mixer->read(step.sound); !done) return done;
    }
    if (!encoder.take(std::move(step))) return {};
    if (watch) watch(static_cast<double>(number + 1 - plan.first) / plan.stepsPerSecond, plan.seconds());
  }
  return {};
}

}  // namespace

Result<RenderReport> render(const Timeline& timeline, const RenderJob& job, Files& files,
                            const RenderWatch& watch) {
  const auto plan = planOf(timeline, job);
  if (!plan) return plan.error();
  if (auto done = checkSources(timeline, job, files); !done) return done.error();
  auto target = files.replace(job.output);
  if (!target) return target.error();
  auto writer = media::MovieWriter::open(**target, plan->format, job.output);
  if (!writer) return writer.error();
  {
    Encoder encoder(std::move(*writer));
    if (auto done = feed(timeline, *plan, encoder, watch); !done) return done.error();
    if (auto done = encoder.finish(); !done) return done.error();
  }
  if (auto done = (*target)->commit(); !done) return done.error();
  return RenderReport{plan->format.video ? plan->stop - plan->first : 0,
                      plan->format.video
                          ? plan->seconds()
                          : static_cast<double>(plan->lastSample - plan->sampleOf(plan->first)) / kSampleRate,
                      (*target)->size()};
}

}  // namespace kvo::engine
