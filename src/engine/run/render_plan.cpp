#include "engine/run/render_plan.h"

#include "base/numbers.h"
#include "media/audio_reader.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvo::engine {
namespace {

using media::Container;
using media::kSampleRate;

constexpr FrameRate kSoundSteps = 10;  // a second
constexpr std::int64_t kStepSamples = kSampleRate / 10;

bool isWindowsMedia(Container container) {
  return container == Container::Wmv || container == Container::Wma;
}

// A third of what a quality lacks to 100: 97 is the finest that is worth its bits.
int quantiserOf(int quality) { return std::clamp((100 - quality + 1) / 3, 2, 31); }

void takeProfile(const EncodeProfile& profile, media::MovieFormat& format) {
  format.sound = {profile.sampleRate, profile.channels, profile.audioBits};
  if (!format.video || profile.width == 0) return;
  auto& video = *format.video;
  video.width = profile.width;
  video.height = profile.height;
  video.frameRate = profile.frameRate;
  video.bitRate = profile.videoBits;
  if (video.bitRate == 0) video.quantiser = quantiserOf(profile.quality);
}

Result<media::MovieFormat> formatOf(const Timeline& timeline, const RenderJob& job) {
  const auto container = media::containerOf(job.output);
  if (!container)
    return Error{"cannot write " + job.output + ": its name must end in .AVI, .WAV, .WMV or .WMA"};
  media::MovieFormat format{*container, {}, !timeline.audio.empty()};
  if (*container == Container::Avi || *container == Container::Wmv) {
    if (!timeline.hasVideo || timeline.video.empty()) {
      return Error{"cannot write " + job.output + ": there is no picture; a sound file ends in .WAV or .WMA"};
    }
    format.video = media::VideoFormat{*container == Container::Avi ? job.aviCodec : media::VideoCodec::Wmv2,
                                      timeline.width, timeline.height, timeline.frameRate, timeline.bitDepth};
  } else if (!format.audio) {
    return Error{"cannot write " + job.output + ": there is no sound"};
  }
  if (job.profile && isWindowsMedia(*container)) takeProfile(*job.profile, format);
  return format;
}

// What of the timeline is rendered, in seconds.
Result<Slice> sliceOf(const Timeline& timeline, const RenderJob& job) {
  const double length = timeline.length();
  const auto slice = job.slice.value_or(Slice{0, length});
  const double to = std::min(slice.to, length);
  if (slice.from >= 0 && slice.from < to) return Slice{slice.from, to};
  return Error{"the range " + FormatMask(slice.from, "0.00") + "-" + FormatMask(slice.to, "0.00") +
               " is not within the " + FormatMask(length, "0.00") + " s of the movie"};
}

void planFrames(const Slice& slice, RenderPlan& plan) {
  plan.steps = plan.format.video->frameRate;
  plan.stop = std::max<std::int64_t>(1, plan.steps.frameFrom(slice.to));
  plan.first = std::min(plan.steps.frameFrom(slice.from), plan.stop - 1);
  plan.firstSample = plan.steps.unitsAt(plan.first, kSampleRate);
  plan.stopSample = plan.steps.unitsAt(plan.stop, kSampleRate);
}

void planSound(const Slice& slice, RenderPlan& plan) {
  plan.steps = kSoundSteps;
  plan.firstSample = std::llround(slice.from * kSampleRate);
  plan.stopSample = std::max<std::int64_t>(plan.firstSample + 1, std::llround(slice.to * kSampleRate));
  plan.stop = (plan.stopSample - plan.firstSample + kStepSamples - 1) / kStepSamples;
}

// Whether whole segments can wait for their turn: encoded they are small, as pictures they may not be.
bool canWait(const media::VideoFormat& video) {
  constexpr double kFrames = 150;
  constexpr double kBytes = 56e6;
  return video.codec != media::VideoCodec::Raw || kFrames * 1.5 * video.width * video.height <= kBytes;
}

// A worker to a core, as long as memory stays small: each holds the reference frames of what it decodes.
// Cores that are left help the decoders.
Crew crewFor(const media::VideoFormat& video, std::size_t segments, int cores) {
  constexpr int kLargePicture = 1 << 20;  // pixels
  const int most = video.width * video.height > kLargePicture ? 2 : 4;
  const int workers = std::min({cores, most, static_cast<int>(std::min<std::size_t>(segments, 64))});
  return {workers, std::clamp(cores / workers, 1, 4)};
}

constexpr std::array<const char*, 4> kContainers = {"AVI", "WAV", "WMV", "WMA"};
constexpr std::array<const char*, 3> kCodecs = {"raw", "MPEG-4", "WMV 8"};

}  // namespace

double RenderPlan::seconds() const {
  return format.video ? steps.secondsAt(stop - first)
                      : static_cast<double>(stopSample - firstSample) / kSampleRate;
}

std::int64_t RenderPlan::sampleOf(std::int64_t step) const {
  if (step == stop) return stopSample;
  return firstSample + steps.unitsAt(step, kSampleRate) - steps.unitsAt(first, kSampleRate);
}

Timeline inRateOf(const Timeline& timeline, const RenderJob& job) {
  auto shaped = timeline;
  const auto container = media::containerOf(job.output);
  if (job.profile && job.profile->width > 0 && container == Container::Wmv)
    shaped.frameRate = job.profile->frameRate;
  return shaped;
}

Result<RenderPlan> planRender(const Timeline& timeline, const RenderJob& job, int cores) {
  const auto format = formatOf(timeline, job);
  if (!format) return format.error();
  const auto slice = sliceOf(timeline, job);
  if (!slice) return slice.error();
  RenderPlan plan{.format = *format};
  if (!plan.format.video) {
    planSound(*slice, plan);
    return plan;
  }
  planFrames(*slice, plan);
  const auto& video = *plan.format.video;
  plan.segments = job.work || canWait(video) ? segmentsOf(timeline, plan.first, plan.stop)
                                             : std::vector<Segment>{{plan.first, plan.stop}};
  plan.crew = crewFor(video, plan.segments.size(), std::max(1, cores));
  plan.encodesInSegments = job.work || video.codec != media::VideoCodec::Raw;
  return plan;
}

std::string toText(const RenderPlan& plan) {
  const auto range = [](std::int64_t first, std::int64_t stop) {
    return std::to_string(first) + "-" + std::to_string(stop);
  };
  std::string text = kContainers.at(static_cast<std::size_t>(plan.format.container));
  if (const auto& video = plan.format.video) {
    text += std::string(", ") + kCodecs.at(static_cast<std::size_t>(video->codec)) + " " +
            std::to_string(video->width) + " x " + std::to_string(video->height) + " at " +
            ShortText(static_cast<float>(video->frameRate.perSecond()));
  }
  text += (plan.format.audio ? ", sound\n" : "\n") + std::string("steps ") + range(plan.first, plan.stop) +
          ", samples " + range(plan.firstSample, plan.stopSample) + "\n";
  if (!plan.format.video) return text;
  text += "segments";
  for (const auto& segment : plan.segments) text += " " + range(segment.first, segment.stop);
  return text + "\nworkers " + std::to_string(plan.crew.workers) + ", threads of a decoder " +
         std::to_string(plan.crew.decoderThreads) + ", encoders " +
         std::to_string(plan.encodesInSegments ? plan.segments.size() : 1) + "\n";
}

}  // namespace kvo::engine
