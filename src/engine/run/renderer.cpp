#include "engine/run/renderer.h"

#include "base/guarded.h"
#include "base/numbers.h"
#include "engine/run/frame_line.h"
#include "engine/run/size_aim.h"
#include "engine/run/watched_hardware.h"
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

// Each source must be there and be a media file ahead of the first frame, and none may be the output. A
// folder in the output's place would be noticed only when all is made.
Outcome checkSources(const Timeline& timeline, const RenderJob& job, const Files& files) {
  if (files.isFolder(job.output)) return Error{"cannot write " + job.output + ": it is a folder"};
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

// What the frames of a file have come to.
struct Pictures {
  std::uint64_t bytes = 0;
  bool areFinest = true;
};

Outcome writeAll(const Result<media::EncodedFrames>& frames, media::MovieWriter& writer, Pictures& pictures) {
  if (!frames) return frames.error();
  for (const auto& frame : *frames) {
    pictures.bytes += frame.bytes();
    pictures.areFinest = pictures.areFinest && frame.isFinest();
    if (auto done = writer.writeVideo(frame); !done) return done;
  }
  return {};
}

// Steps through the plan: a frame from the line and the sound that goes with it, into the writer.
Outcome pump(const Timeline& timeline, const RenderPlan& plan, const WorkFolder* work,
             media::MovieWriter& writer, media::DamageList& damage, Pictures& pictures, const Told& told) {
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
      auto encoded = encoder ? encoder->encode(frame->picture, step - plan.first)
                             : Result<media::EncodedFrames>(media::EncodedFrames{frame->encoded});
      if (auto done = writeAll(encoded, writer, pictures); !done) return done;
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
  if (encoder) {
    if (auto done = writeAll(encoder->finish(), writer, pictures); !done) return done;
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
  const double wanted = plan.format.video && plan.mostBytes == 0 ? plan.format.video->bitRate : 0;
  const double bits = static_cast<double>(pictureBytes) * 8 / plan.seconds();
  if (wanted > 0 && bits > wanted * kClearlyMore)
    notes.push_back("the picture has " + kilobits(bits) + " kbit/s, not " + kilobits(wanted));
  return notes;
}

// Tells the watch how far a render is. The passes of a movie that has to keep within a size lie behind each
// other: two are the rule, and each that is not foreseen takes most of what has been left for it.
class Teller {
 public:
  Teller(const RenderPlan& plan, const RenderWatch& watch)
      : plan_(plan), watch_(watch), to_(plan.mostBytes > 0 ? kOfTwo / 2 : 1) {}

  void nextPass() { from_ = std::exchange(to_, to_ < kOfTwo ? kOfTwo : to_ + (1 - to_) * kOfTwo); }
  void tell(std::int64_t made, std::int64_t written, std::int64_t kept, std::uint64_t bytes) const {
    const double share = from_ + (to_ - from_) * secondsAt(made) / plan_.seconds();
    say({share * plan_.seconds(), 0, bytes, secondsAt(written), secondsAt(kept)});
  }
  void end(std::uint64_t bytes) const { say({plan_.seconds(), 0, bytes, plan_.seconds()}); }

 private:
  static constexpr double kOfTwo = 0.9;

  [[nodiscard]] double secondsAt(std::int64_t steps) const {
    return std::min(plan_.steps.secondsAt(steps), plan_.seconds());
  }
  void say(RenderStep step) const {
    step.total = plan_.seconds();
    if (watch_) watch_(step);
  }

  const RenderPlan& plan_;
  const RenderWatch& watch_;
  double from_ = 0;  // of the whole: where this pass begins
  double to_;
};

// All that a file is made with.
struct Making {
  const Timeline& timeline;
  const RenderPlan& plan;
  const RenderJob& job;
  Files& files;
  media::DamageList& damage;
  Teller& teller;
  const WorkFolder* work;
};

struct MadeFile {
  std::unique_ptr<Replacement> target;
  Pictures pictures{};
};

Result<MadeFile> makeFile(const Making& making) {
  const auto& [timeline, plan, job, files, damage, teller, work] = making;
  const bool isShare = work != nullptr && job.work->share;
  auto target = files.replace(isShare ? work->draft() : job.output);
  if (!target) return target.error();
  MadeFile made{std::move(*target)};
  auto writer = media::MovieWriter::open(*made.target, plan.format, job.output);
  if (!writer) return writer.error();
  const Told told = [&](std::int64_t done, std::int64_t written, std::int64_t kept) {
    // Some muxers hold back what they have for seconds.
    making.teller.tell(done, written, kept, std::max(made.target->size(), made.pictures.bytes));
  };
  // What a share's writer has begun is never committed: it tells what the encoders are like.
  const auto done = isShare ? makeShare(timeline, plan, *writer, *work, told)
                            : pump(timeline, plan, work, *writer, damage, made.pictures, told);
  if (!done) return done.error();
  return made;
}

// Two passes, and more where the second misses the size.
Result<MadeFile> makeSizedFile(const Making& making) {
  SizeAim aim(making.plan);
  auto attempt = making.plan;  // with the bit rate of the try
  const Making trying{making.timeline, attempt,       making.job, making.files,
                      making.damage,   making.teller, making.work};
  attempt.format.video->bitRate = aim.bitRate();
  const auto noted = takeNotes(making.timeline, attempt, making.job.output,
                               [&](std::int64_t made) { making.teller.tell(made, 0, 0, 0); });
  if (!noted) return noted.error();
  for (;;) {
    making.teller.nextPass();
    auto made = makeFile(trying);
    if (!made) return made;
    const auto& [bytes, areFinest] = made->pictures;
    const auto fits = aim.judge(made->target->size(), bytes, areFinest);
    if (fits == Fits::Good) {
      making.teller.end(made->target->size());
      return made;
    }
    if (fits == Fits::Never) {
      return Error{"cannot write " + making.job.output + ": the movie does not go into " +
                   ShortText(static_cast<double>(attempt.mostBytes) / 1e6) + " MB"};
    }
    attempt.format.video->bitRate = aim.bitRate();
  }
}

Result<RenderReport> renderPlan(const Timeline& timeline, const RenderPlan& plan, const RenderJob& job,
                                Files& files, const RenderWatch& watch) {
  std::optional<WorkFolder> work;
  if (job.work && plan.encodesInSegments) {
    auto opened = WorkFolder::open(timeline, plan, job, files);
    if (!opened) return opened.error();
    work.emplace(std::move(*opened));
  } else if (job.work && job.work->share) {
    return Error{"cannot make a share of " + job.output + ": it is made in one piece"};
  }
  media::DamageList damage;
  Teller teller(plan, watch);
  const Making making{timeline, plan, job, files, damage, teller, work ? &*work : nullptr};
  if (work && job.work->share) {
    const auto made = makeFile(making);
    return made ? Result(RenderReport{0, plan.seconds()}) : made.error();
  }
  auto made = plan.mostBytes > 0 ? makeSizedFile(making) : makeFile(making);
  if (!made) return made.error();
  if (auto done = made->target->commit(); !done) return done.error();
  if (work) work->sweep();
  return RenderReport{plan.format.video ? plan.stop - plan.first : 0, plan.seconds(), made->target->size(),
                      damage.all(), notesOf(plan, made->pictures.bytes)};
}

// Whether anything of it stands in the work folder.
bool hasBegun(const Timeline& timeline, const RenderPlan& plan, const RenderJob& job, const Files& files) {
  if (!job.work) return false;
  const auto names = segmentFiles(timeline, plan, job, files);
  return std::any_of(names.begin(), names.end(),
                     [&](const auto& name) { return files.exists(job.work->folder + "/" + name); });
}

// What a second attempt tells goes on from how far the first has come.
RenderWatch goingOn(const RenderWatch& watch, const RenderStep& from) {
  return [watch, from](RenderStep step) {
    const double share = step.total > 0 ? step.done / step.total : 0;
    step.done = from.done + (step.total - from.done) * share;
    if (watch) watch(step);
  };
}

// By the device, as long as that works. A movie has one encoder from start to end: what was begun in software
// goes on so, and where the device fails it is made anew.
Result<RenderReport> renderInDevice(const Timeline& timeline, const RenderPlan& plan, const RenderJob& job,
                                    Files& files, const RenderWatch& watch) {
  WatchedHardware hardware(*plan.format.video->hardware);
  auto inDevice = plan, inSoftware = plan;
  inDevice.format.video->hardware = &hardware;
  inSoftware.format.video->hardware = nullptr;
  std::string why = "as it was begun";
  RenderStep reached;
  if (job.needsHardware || !hasBegun(timeline, inSoftware, job, files)) {
    auto made = renderPlan(timeline, inDevice, job, files, [&](const RenderStep& step) {
      reached = step;
      if (watch) watch(step);
    });
    const auto failure = hardware.failure();
    if (made || !failure || job.needsHardware) return made;
    why = failure->text;
  }
  auto made = renderPlan(timeline, inSoftware, job, files, goingOn(watch, reached));
  if (made) made->notes.push_back("the picture is encoded in software: " + why);
  return made;
}

Result<RenderReport> renderUnguarded(const Timeline& given, const RenderJob& job, Files& files,
                                     const RenderWatch& watch) {
  const auto timeline = inRateOf(given, job);
  const auto plan = planRender(timeline, job, static_cast<int>(std::thread::hardware_concurrency()));
  if (!plan) return plan.error();
  if (auto done = checkSources(timeline, job, files); !done) return done.error();
  if (plan->format.video && plan->format.video->hardware != nullptr)
    return renderInDevice(timeline, *plan, job, files, watch);
  return renderPlan(timeline, *plan, job, files, watch);
}

}  // namespace

Result<RenderReport> render(const Timeline& timeline, const RenderJob& job, Files& files,
                            const RenderWatch& watch) {
  return guarded([&] { return renderUnguarded(timeline, job, files, watch); });
}

}  // namespace kvo::engine
