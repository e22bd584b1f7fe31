#include "engine/run/renderer.h"

#include "base/guarded.h"
#include "base/numbers.h"
#include "engine/run/frame_line.h"
#include "engine/run/stretches.h"
#include "engine/sound/mixer.h"
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

constexpr FrameRate kSoundSteps = 10;  // steps a second of a sound file
constexpr std::int64_t kStepSamples = kSampleRate / 10;

// The steps of a render, from `first` up to `stop`: frames of a movie, counted in the timeline, or parts of a
// sound file, counted from its start.
struct Plan {
  media::MovieFormat format;
  FrameRate steps{};
  std::int64_t first = 0;
  std::int64_t stop = 0;
  std::int64_t firstSample = 0;  // of the timeline
  std::int64_t lastSample = 0;

  [[nodiscard]] double seconds() const {
    return format.video ? steps.secondsAt(stop - first)
                        : static_cast<double>(lastSample - firstSample) / kSampleRate;
  }
  [[nodiscard]] std::int64_t sampleOf(std::int64_t step) const {
    if (step == stop) return lastSample;
    return firstSample + steps.unitsAt(step, kSampleRate) - steps.unitsAt(first, kSampleRate);
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
  if (isMovie) {
    plan.steps = timeline.frameRate;
    plan.stop = std::max<std::int64_t>(1, plan.steps.frameFrom(to));
    plan.first = std::min(plan.steps.frameFrom(slice.from), plan.stop - 1);
    plan.firstSample = plan.steps.unitsAt(plan.first, kSampleRate);
    plan.lastSample = plan.steps.unitsAt(plan.stop, kSampleRate);
  } else {
    plan.steps = kSoundSteps;
    plan.firstSample = std::llround(slice.from * kSampleRate);
    plan.lastSample = std::max<std::int64_t>(plan.firstSample + 1, std::llround(to * kSampleRate));
    plan.stop = (plan.lastSample - plan.firstSample + kStepSamples - 1) / kStepSamples;
  }
  return plan;
}

// Each source must be there and be a media file ahead of the first frame, and none may be the output.
Outcome checkSources(const Timeline& timeline, const RenderJob& job, const Files& files) {
  std::set<std::string> sources;
  for (const auto& file : pictureFiles(timeline.video)) sources.insert(file);
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

// Whether whole stretches can wait for their turn: encoded they are small, as pictures they may not be.
bool canWait(const media::VideoFormat& video) {
  constexpr double kFrames = 150;
  constexpr double kBytes = 56e6;
  return video.codec != media::VideoCodec::Raw || kFrames * 1.5 * video.width * video.height <= kBytes;
}

std::vector<Stretch> partsOf(const Timeline& timeline, const Plan& plan) {
  if (!canWait(*plan.format.video)) return {{plan.first, plan.stop}};
  return stretchesOf(timeline, plan.first, plan.stop);
}

// A worker to a core, as long as memory stays small: each holds the reference frames of what it decodes.
// Cores that are left help the decoders.
FrameLine::Crew crewFor(const media::VideoFormat& video, std::size_t stretches, media::DamageList& damage) {
  constexpr int kLargePicture = 1 << 20;  // pixels
  const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  const int most = video.width * video.height > kLargePicture ? 2 : 4;
  const int workers = std::min({cores, most, static_cast<int>(std::min<std::size_t>(stretches, 64))});
  return {workers, std::clamp(cores / workers, 1, 4), &damage};
}

// Frames as files have them, in order.
class Pictures {
 public:
  Pictures(const Timeline& timeline, const Plan& plan, const media::MovieWriter& writer,
           media::DamageList& damage)
      : Pictures(timeline, *plan.format.video, partsOf(timeline, plan), writer, damage) {}

  Outcome begin(const media::MovieWriter& writer) {
    auto encoder = writer.newVideoEncoder();
    if (!encoder) return encoder.error();
    encoder_.emplace(std::move(*encoder));
    return {};
  }

  Result<media::EncodedFrame> next() {
    auto frame = line_.next();
    if (!frame) return frame.error();
    const auto number = number_++;
    return frame->encoded ? Result<media::EncodedFrame>(std::move(frame->encoded))
                          : encoder_->encode(frame->picture, number);
  }

  [[nodiscard]] std::int64_t made() const { return line_.made(); }

 private:
  Pictures(const Timeline& timeline, const media::VideoFormat& video, const std::vector<Stretch>& stretches,
           const media::MovieWriter& writer, media::DamageList& damage)
      : line_(
            timeline, stretches,
            video.codec == media::VideoCodec::Raw ? FrameLine::NewEncoder()
                                                  : [&writer] { return writer.newVideoEncoder(); },
            crewFor(video, stretches.size(), damage)) {}

  FrameLine line_;
  std::optional<media::VideoEncoder> encoder_;  // of pictures that come as they are
  std::int64_t number_ = 0;
};

Outcome feed(const Timeline& timeline, const Plan& plan, media::MovieWriter& writer,
             media::DamageList& damage, const RenderWatch& watch) {
  std::optional<Mixer> mixer;
  if (plan.format.audio) mixer.emplace(timeline, plan.sampleOf(plan.first), &damage);
  std::optional<Pictures> pictures;
  if (plan.format.video) {
    pictures.emplace(timeline, plan, writer, damage);
    if (auto done = pictures->begin(writer); !done) return done;
  }
  std::vector<float> sound;
  for (auto number = plan.first; number < plan.stop; ++number) {
    if (pictures) {
      const auto frame = pictures->next();
      if (!frame) return frame.error();
      if (auto done = writer.writeVideo(*frame); !done) return done;
    }
    if (mixer) {
      const auto count = plan.sampleOf(number + 1) - plan.sampleOf(number);
      sound.resize(static_cast<std::size_t>(count) * kChannels);
      if (auto done = mixer->read(sound); !done) return done;
      if (auto done = writer.writeAudio(sound); !done) return done;
    }
    const auto made = pictures ? pictures->made() : number + 1 - plan.first;
    if (watch) watch(std::min(plan.steps.secondsAt(made), plan.seconds()), plan.seconds());
  }
  return writer.finish();
}

Result<RenderReport> renderUnguarded(const Timeline& timeline, const RenderJob& job, Files& files,
                                     const RenderWatch& watch) {
  const auto plan = planOf(timeline, job);
  if (!plan) return plan.error();
  if (auto done = checkSources(timeline, job, files); !done) return done.error();
  auto target = files.replace(job.output);
  if (!target) return target.error();
  auto writer = media::MovieWriter::open(**target, plan->format, job.output);
  if (!writer) return writer.error();
  media::DamageList damage;
  if (auto done = feed(timeline, *plan, *writer, damage, watch); !done) return done.error();
  if (auto done = (*target)->commit(); !done) return done.error();
  return RenderReport{plan->format.video ? plan->stop - plan->first : 0, plan->seconds(), (*target)->size(),
                      damage.all()};
}

}  // namespace

Result<RenderReport> render(const Timeline& timeline, const RenderJob& job, Files& files,
                            const RenderWatch& watch) {
  return guarded([&] { return renderUnguarded(timeline, job, files, watch); });
}

}  // namespace kvo::engine
