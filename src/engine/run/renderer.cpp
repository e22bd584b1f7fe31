#include "engine/run/renderer.h"

#include "base/guarded.h"
#include "base/numbers.h"
#include "engine/run/frame_line.h"
#include "engine/run/work_folder.h"
#include "engine/sound/mixer.h"
#include "media/audio_reader.h"
#include "media/media_facts.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <thread>
#include <utility>

namespace kvo::engine {
namespace {

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

// Steps, as RenderStep has them.
using Told = std::function<void(std::int64_t made, std::int64_t written, std::int64_t kept)>;

// Makes the segments of this process's share, and no movie.
Outcome makeShare(const Timeline& timeline, const RenderPlan& plan, const media::MovieWriter& writer,
                  const WorkFolder& work, const Told& told) {
  FrameLine line(
      timeline, plan.segments, [&writer] { return writer.newVideoEncoder(); }, plan.crew, nullptr, &work);
  return line.finish([&] { told(line.made(), 0, line.kept()); });
}

// Steps through the plan: a frame from the line and the sound that goes with it, into the writer.
Outcome pump(const Timeline& timeline, const RenderPlan& plan, const WorkFolder* work,
             media::MovieWriter& writer, media::DamageList& damage, std::uint64_t& pictureBytes,
             const Told& told) {
  std::optional<Mixer> mixer;
  if (plan.format.audio) mixer.emplace(timeline, plan.firstSample, &damage);
  std::optional<media::VideoEncoder> encoder;  // of frames that come as pictures
  std::optional<FrameLine> line;
  if (plan.format.video) {
    FrameLine::NewEncoder newEncoder = [&writer] { return writer.newVideoEncoder(); };
    if (!plan.encodesInSegments) {
      auto made = std::exchange(newEncoder, nullptr)();
      if (!made) return made.error();
      encoder.emplace(std::move(*made));
    }
    line.emplace(timeline, plan.segments, newEncoder, plan.crew, &damage, work);
  }
  std::vector<float> sound;
  for (auto step = plan.first; step < plan.stop; ++step) {
    if (line) {
      const auto frame = line->next([&] { told(line->made(), step - plan.first, line->kept()); });
      if (!frame) return frame.error();
      const auto encoded = encoder ? encoder->encode(frame->picture, step - plan.first)
                                   : Result<media::EncodedFrame>(frame->encoded);
      if (!encoded) return encoded.error();
      pictureBytes += encoded->bytes();
      if (auto done = writer.writeVideo(*encoded); !done) return done;
    }
    if (mixer) {
      const auto count = plan.sampleOf(step + 1) - plan.sampleOf(step);
      sound.resize(static_cast<std::size_t>(count) * media::kChannels);
      if (auto done = mixer->read(sound); !done) return done;
      if (auto done = writer.writeAudio(sound); !done) return done;
    }
    const auto made = line ? line->made() : step + 1 - plan.first;
    told(made, step + 1 - plan.first, line ? line->kept() : 0);
  }
  return writer.finish();
}

std::string kilobits(double bits) { return ShortText(std::round(bits / 1000)); }

// Encoders have floors, and the rate of a picture is a target.
std::vector<std::string> notesOf(const RenderPlan& plan, std::uint64_t pictureBytes) {
  constexpr double kClearlyMore = 1.25;
  std::vector<std::string> notes;
  const auto& sound = plan.format.sound;
  if (plan.format.audio && sound.bitRate > 0 && sound.bitRate < media::kLeastSoundBits) {
    notes.push_back("the sound has " + kilobits(media::kLeastSoundBits) +
                    " kbit/s, the least there is, not " + ShortText(sound.bitRate / 1000.0));
  }
  const double wanted = plan.format.video ? plan.format.video->bitRate : 0;
  const double bits = static_cast<double>(pictureBytes) * 8 / plan.seconds();
  if (wanted > 0 && bits > wanted * kClearlyMore)
    notes.push_back("the picture has " + kilobits(bits) + " kbit/s, not " + kilobits(wanted));
  return notes;
}

Result<RenderReport> renderUnguarded(const Timeline& given, const RenderJob& job, Files& files,
                                     const RenderWatch& watch) {
  const auto timeline = inRateOf(given, job);
  const auto plan = planRender(timeline, job, static_cast<int>(std::thread::hardware_concurrency()));
  if (!plan) return plan.error();
  if (auto done = checkSources(timeline, job, files); !done) return done.error();
  std::optional<WorkFolder> work;
  if (job.work && !plan->format.video && job.work->share) return Error{"a sound file has no segments"};
  if (job.work && plan->format.video) {
    auto opened = WorkFolder::open(timeline, *plan, job, files);
    if (!opened) return opened.error();
    work.emplace(std::move(*opened));
  }
  const bool isShare = work && job.work->share;
  auto target = files.replace(isShare ? work->draft() : job.output);
  if (!target) return target.error();
  auto writer = media::MovieWriter::open(**target, plan->format, job.output);
  if (!writer) return writer.error();
  media::DamageList damage;
  std::uint64_t pictureBytes = 0;
  const auto told = [&](std::int64_t made, std::int64_t written, std::int64_t kept) {
    const double total = plan->seconds();
    const auto secondsAt = [&](std::int64_t steps) { return std::min(plan->steps.secondsAt(steps), total); };
    if (watch) watch({secondsAt(made), total, (*target)->size(), secondsAt(written), secondsAt(kept)});
  };
  if (isShare) {
    // What the writer has begun is never committed: it tells what the encoders are like.
    if (auto done = makeShare(timeline, *plan, *writer, *work, told); !done) return done.error();
    return RenderReport{0, plan->seconds()};
  }
  if (auto done = pump(timeline, *plan, work ? &*work : nullptr, *writer, damage, pictureBytes, told); !done)
    return done.error();
  if (auto done = (*target)->commit(); !done) return done.error();
  if (work) work->sweep();
  return RenderReport{plan->format.video ? plan->stop - plan->first : 0, plan->seconds(), (*target)->size(),
                      damage.all(), notesOf(*plan, pictureBytes)};
}

}  // namespace

Result<RenderReport> render(const Timeline& timeline, const RenderJob& job, Files& files,
                            const RenderWatch& watch) {
  return guarded([&] { return renderUnguarded(timeline, job, files, watch); });
}

}  // namespace kvo::engine
