#include "engine/run/render_plan.h"

#include "base/numbers.h"
#include "media/audio_reader.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvo::engine {
namespace {

using media::kSampleRate;

constexpr FrameRate kSoundSteps = 10;  // a second
constexpr std::int64_t kStepSamples = kSampleRate / 10;

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

// Sound that leaves little for the picture is made smaller, within what can be listened to.
int soundBitsWithin(double bits, int usual) {
  constexpr double kShareOfSound = 0.25;
  constexpr double kLeast = 32000;
  return static_cast<int>(std::clamp(bits * kShareOfSound, kLeast, static_cast<double>(usual)));
}

void takePreset(const RenderJob& job, media::MovieFormat& format) {
  const auto* preset = job.preset;
  if (preset != nullptr) format.sound.bitRate = preset->soundBits;
  if (!format.video) return;
  auto& video = *format.video;
  if (preset != nullptr) {
    const auto sides = fittedTo(*preset, {video.width, video.height});
    video.width = sides.width;
    video.height = sides.height;
    video.quality = preset->quality;
    video.effort = effortOf(preset->effort).value_or(video.effort);
  }
  if (job.quality > 0) video.quality = job.quality;
  video.effort = effortOf(job.effort).value_or(video.effort);
}

Error cannotWrite(const RenderJob& job, const std::string& why) {
  return Error{"cannot write " + job.output + ": " + why};
}

// Why this kind of file cannot be made as the job says.
Outcome checkWishes(OutputKind kind, const RenderJob& job) {
  const auto codecs = codecsOf(kind);
  if (job.codec && std::find(codecs.begin(), codecs.end(), *job.codec) == codecs.end()) {
    std::string words;
    for (const auto codec : codecs) words.append(words.empty() ? "" : " and ").append(codecWord(codec));
    return cannotWrite(job, "it takes no codec " + std::string(codecWord(*job.codec)) +
                                (words.empty() ? std::string() : "; there is " + words));
  }
  if (job.preset != nullptr && job.preset->kind != kind) {
    return cannotWrite(job, "the preset " + std::string(job.preset->name) + " makes a ." +
                                std::string(movieFileOf(job.preset->kind).extension));
  }
  if (mostMegabytes(job) > 0 && kind != OutputKind::Mp4)
    return cannotWrite(job, "only an MP4 keeps within a size");
  return {};
}

Result<media::MovieFormat> formatOf(const Timeline& timeline, const RenderJob& job) {
  const auto kind = outputKindOf(job.output);
  if (!kind) return cannotWrite(job, "its name must end in " + extensionsText(false));
  if (auto done = checkWishes(*kind, job); !done) return done.error();
  const auto& file = movieFileOf(*kind);
  media::MovieFormat format{*kind, {}, !timeline.audio.empty() && file.sound.has_value()};
  if (file.hasPicture) {
    if (!timeline.hasVideo || timeline.video.empty())
      return cannotWrite(job, "there is no picture; a sound file ends in " + extensionsText(true));
    format.video = media::VideoFormat{job.codec.value_or(file.codec), timeline.width, timeline.height,
                                      timeline.frameRate, timeline.bitDepth};
  } else if (!format.audio) {
    return cannotWrite(job, "there is no sound");
  }
  if (job.profile && isWindowsMedia(*kind)) takeProfile(*job.profile, format);
  if (!isWindowsMedia(*kind)) takePreset(job, format);
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

void planPictures(const Slice& slice, RenderPlan& plan) {
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

// Whether a movie's frames can be laid behind each other from encoders that know nothing of each other. The
// encoder of AV1 is several threads of its own, and the colours of a GIF are those of the file.
bool encodesApart(VideoCodec codec) {
  return codec != VideoCodec::Raw && codec != VideoCodec::Av1 && codec != VideoCodec::Gif;
}

// Of an encoder: where there are few segments, its own threads keep the cores busy. The frames depend on
// their number, so it goes by the movie and not by the machine.
int encoderThreads(VideoCodec codec, std::size_t segments, bool apart) {
  constexpr std::size_t kWanted = 4;
  if (codec != VideoCodec::H264 && codec != VideoCodec::Vp9) return 1;
  return static_cast<int>(apart ? std::max<std::size_t>(kWanted / segments, 1) : kWanted);
}

// Bits a second for the picture of a movie that has to keep within a size.
Outcome planSize(const RenderJob& job, RenderPlan& plan) {
  constexpr double kBitsOfAPixel = 0.055;  // below that a smaller picture looks better
  constexpr double kLeastBits = 12000;
  // What the file says of each frame of picture and sound, and of itself, in bits.
  constexpr double kOfPicture = 20 * 8;
  constexpr double kOfSound = 12 * 8;
  constexpr double kHead = 2000 * 8;
  auto& video = *plan.format.video;
  plan.mostBytes = static_cast<std::uint64_t>(mostMegabytes(job) * 1e6);
  const double bits = static_cast<double>(plan.mostBytes) * 8 / plan.seconds();
  double left = bits - video.frameRate.perSecond() * kOfPicture - kHead / plan.seconds();
  if (plan.format.audio) {
    auto& sound = plan.format.sound.bitRate;
    if (sound == 0) sound = movieFileOf(plan.format.container).soundBits;
    sound = soundBitsWithin(bits, sound);
    left -= sound + kOfSound * kSampleRate / 1024;
  }
  if (left < kLeastBits)
    return cannotWrite(job,
                       "a movie of this length does not go into " + ShortText(mostMegabytes(job)) + " MB");
  video.bitRate = static_cast<int>(std::min(left, 2e9));
  const double pixels = static_cast<double>(video.width) * video.height * video.frameRate.perSecond();
  const double factor = std::min(1.0, std::sqrt(left / (pixels * kBitsOfAPixel)));
  const auto side = [&](int pixelsOfIt) {
    return std::max(16, static_cast<int>(std::lround(pixelsOfIt * factor / 2)) * 2);
  };
  if (factor < 1) {
    video.width = side(video.width);
    video.height = side(video.height);
  }
  video.pass = media::Pass::Second;
  video.notes = job.scratch + "/passes";
  return {};
}

// Whether whole segments can wait for their turn: encoded they are small, as pictures they may not be.
bool canWait(const media::VideoFormat& video) {
  constexpr double kFrames = 150;
  constexpr double kBytes = 56e6;
  return encodesApart(video.codec) || kFrames * 1.5 * video.width * video.height <= kBytes;
}

// A worker to a core, as long as memory stays small: each holds the reference frames of what it decodes. Some
// devices have no more than two encoders at a time. Cores that are left help the decoders.
Crew crewFor(const media::VideoFormat& video, std::size_t segments, int cores) {
  constexpr int kLargePicture = 1 << 20;  // pixels
  const int most = video.width * video.height > kLargePicture || video.hardware != nullptr ? 2 : 4;
  const int workers = std::min({cores, most, static_cast<int>(std::min<std::size_t>(segments, 64))});
  return {workers, std::clamp(cores / workers, 1, 4)};
}

constexpr std::array<const char*, 8> kCodecs = {"raw", "MPEG-4", "WMV 8",  "H.264",
                                                "VP9", "AV1",    "ProRes", "GIF"};

}  // namespace

double mostMegabytes(const RenderJob& job) {
  return job.megabytes > 0 || job.preset == nullptr ? job.megabytes : job.preset->megabytes;
}

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
  const auto kind = outputKindOf(job.output);
  if (job.profile && job.profile->width > 0 && kind == OutputKind::Wmv)
    shaped.frameRate = job.profile->frameRate;
  if (job.preset != nullptr && shaped.frameRate.perSecond() > job.preset->mostRate)
    shaped.frameRate = *FrameRate::fromDecimal(job.preset->mostRate);
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
  planPictures(*slice, plan);
  if (mostMegabytes(job) > 0) {
    if (auto done = planSize(job, plan); !done) return done.error();
  }
  auto& video = *plan.format.video;
  const bool isShare = job.work && job.work->share;
  if (video.codec == VideoCodec::H264 && plan.mostBytes == 0 && !isShare) video.hardware = job.hardware;
  const bool keepsRaw = job.work && video.codec == VideoCodec::Raw;  // through files, so that none waits
  plan.segments = keepsRaw || canWait(video) ? segmentsOf(timeline, plan.first, plan.stop)
                                             : std::vector<Segment>{{plan.first, plan.stop}};
  plan.crew = crewFor(video, plan.segments.size(), std::max(1, cores));
  plan.encodesInSegments = (keepsRaw || encodesApart(video.codec)) && plan.mostBytes == 0;
  video.threads = encoderThreads(video.codec, plan.segments.size(), plan.encodesInSegments);
  return plan;
}

std::string toText(const RenderPlan& plan) {
  const auto range = [](std::int64_t first, std::int64_t stop) {
    return std::to_string(first) + "-" + std::to_string(stop);
  };
  std::string text(movieFileOf(plan.format.container).extension);
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
         std::to_string(plan.encodesInSegments ? plan.segments.size() : 1) +
         (plan.format.video->hardware == nullptr
              ? std::string()
              : " of " + std::string(plan.format.video->hardware->name())) +
         "\n";
}

}  // namespace kvo::engine
