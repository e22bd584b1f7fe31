#include "app/commands.h"

#include "app/clip_summary.h"
#include "app/cluster_command.h"
#include "app/console_render.h"
#include "app/queue_command.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "editor/compiler/collection_faults.h"
#include "editor/compiler/compile_options.h"
#include "editor/compiler/document_check.h"
#include "editor/compiler/durations.h"
#include "render/output_hold.h"
#include "render/render_texts.h"
#include "render/system_profile.h"
#include "render/wm8_profile.h"
#include "vocabulary/encode_profiles.h"

#include <algorithm>
#include <filesystem>

namespace kvo {
namespace {

std::string clipName(int number, const Movie& clip) {
  return "clip " + std::to_string(number) + " " + clipFile(clip);
}

std::string faultText(const Compiled& made, const CollectionFault& fault) {
  return fault.clip == 0 ? fault.text
                         : clipName(fault.clip, *made.clips[fault.clip].record) + ": " + fault.text;
}

// What a clip holds, and where it stands; a page or a stream has no times that are known.
std::string clipText(Session& session, const TimelineClip& clip) {
  const auto& record = *clip.record;
  auto text = FormatMask(clip.number, "####") + "  " + clipFile(record) + "\n      ";
  if (record.IsHTML() || record.IsStream() || isAddress(clipFile(record)))
    return text + clipSummary(record, nullptr) + "\n";
  const auto facts = session.streams.facts(clipFile(record));
  text += clipSummary(record, facts ? &*facts : nullptr) + "\n      section " +
          FormatMask(clip.LoopStart.number(), "0.00") + " to " + FormatMask(clip.LoopEnd.number(), "0.00") +
          " s, speed " + ShortText(speedOf(clip)) + ", in the movie " + FormatMask(clip.place.start, "0.00") +
          " to " + FormatMask(clip.place.stop, "0.00") + " s";
  if (!isCut(clip.TransType))
    text += ", " + clip.TransType + " of " + ShortText(secondsFromTenths(clip.TransIn)) + " s";
  return text + "\n";
}

// The document of a collection, unless a fault stands in its way. What was wrong with its reading is told.
Result<std::string> compileWithoutFaults(Session& session, const ReadReport& report,
                                         std::optional<int> previewPower,
                                         std::optional<PictureSides> size = std::nullopt) {
  auto made = session.compile(previewPower, size);
  const auto faults = collectionFaults(made, session.streams, session.files, report);
  for (const auto& fault : faults) {
    if (fault.clip == 0 && !fault.stopsRender) warn(fault.text);
  }
  const auto stops = std::find_if(faults.begin(), faults.end(), [](const auto& f) { return f.stopsRender; });
  if (stops != faults.end()) return Error{faultText(made, *stops)};
  return std::move(made.text);
}

// The movie is composed in the size that it is going to have.
PictureSides sidesOf(const CommandLine& line, const KVO2& settings) {
  const auto& p = settings.preferences();
  const auto sides = line.size.value_or(PictureSides{heldWidth(p.RenderWidth), heldHeight(p.RenderHeight)});
  return line.preset != nullptr ? fittedTo(*line.preset, sides) : sides;
}

// What is left of a render that nobody wants to go on with, now that the movie stands. A job of the queue may
// want to.
void dropOldWork(Session& session, const std::string& output) {
  const auto queue = QueueStore(session.files, queueFolder(session.folder), warn).read();
  const auto whole = absoluteName(output, std::filesystem::current_path().string());
  if (queue && !hasOutput(*queue, whole)) (void)dropWork(session.files, session.nameLocks, output).ok();
}

}  // namespace

int runPresets() {
  for (const auto& preset : moviePresets()) {
    print(std::string(preset.name) + blanks(10 - preset.name.size()) + presetText(preset, preset.megabytes) +
          (preset.megabytes > 0 ? ", unless you say another size\n" : "\n"));
  }
  return kExitDone;
}

Result<RenderOrder> renderOrder(Session& session, const CommandLine& line) {
  const auto report = session.open(line.collection);
  if (!report) return report.error();
  if (session.files.sameFile(line.collection, line.output)) {
    return Error{"cannot write " + line.output + ": it is the collection"};
  }
  if (line.rate) session.settings.change().OutPutFrameRate = static_cast<Single>(*line.rate);
  const auto rate = session.settings.preferences().OutPutFrameRate;
  if (line.preset != nullptr && rate > line.preset->mostRate)
    session.settings.change().OutPutFrameRate = static_cast<Single>(line.preset->mostRate);

  const auto text = compileWithoutFaults(session, *report, std::nullopt, sidesOf(line, session.settings));
  if (!text) return text.error();
  if (auto sound = checkDocument(*text); !sound)
    return Error{"cannot write the timeline document: " + sound.error().text};
  RenderOrder order{.document = *text,
                    .output = line.output,
                    .codec = line.codec,
                    .preset = line.preset != nullptr ? std::string(line.preset->name) : std::string(),
                    .quality = line.quality,
                    .effort = line.effort,
                    .megabytes = line.megabytes};
  if (line.encoder != EncoderWish::Software) order.encoder = encoderWord(line.encoder);
  if (line.range) order.range = {line.range->from, line.range->to};
  if (line.profile && *line.profile < kSystemProfiles) order.profile = line.profile;
  return order;
}

std::string ownProfile(const CommandLine& line) {
  if (!line.profile) return {};
  const auto size = line.size ? std::optional(OutputSize{line.size->width, line.size->height}) : std::nullopt;
  return wm8ProfileBytes(*line.profile, size, {});
}

int runRender(Session& session, const CommandLine& line, const std::string& engine) {
  auto made = renderOrder(session, line);
  if (!made) return fail(made.error().text);
  auto& order = *made;
  if (line.slurmJobs > 0) return renderOnCluster(session, order, ownProfile(line), line.slurmJobs, engine);
  if (line.resume) order.workFolder = workFolderOf(line.output);
  SystemProfile profile({session.files, session.nameLocks, session.folder, session.boxes});
  if (line.profile && !order.profile) {
    const auto size =
        line.size ? std::optional(OutputSize{line.size->width, line.size->height}) : std::nullopt;
    if (!profile.CreateWM8RenderProfile(*line.profile, size))
      return fail("the profile " + std::to_string(*line.profile) + " cannot be put in force");
    order.profileFile = profile.path();
  }
  const int code = renderOnConsole(session, order, engine);
  if (code == kExitDone && !line.resume) dropOldWork(session, line.output);
  return code;
}

int runCheck(Session& session, const CommandLine& line) {
  const auto report = session.open(line.collection);
  if (!report) return fail(report.error().text);
  const auto made = session.compile();
  int problems = 0;
  const auto problem = [&](const std::string& text) {
    ++problems;
    print("      problem: " + text + "\n");
  };
  print(line.collection + ": " + std::to_string(made.clips.count()) + " clips, " +
        FormatMask(made.largestStop, "0.00") + " s of picture\n");
  const auto faults = collectionFaults(made, session.streams, session.files, *report);
  auto fault = std::find_if(faults.begin(), faults.end(), [](const auto& f) { return f.clip > 0; });
  std::for_each(faults.begin(), fault, [&](const auto& f) { problem(f.text); });
  for (const auto& clip : made.clips) {
    print(clipText(session, clip));
    for (; fault != faults.end() && fault->clip == clip.number; ++fault) problem(fault->text);
  }
  // What stops a render may spoil its document as well; it has been told.
  const bool stops = std::any_of(faults.begin(), faults.end(), [](const auto& f) { return f.stopsRender; });
  if (auto whole = checkDocument(made.text); !whole && !stops) problem(whole.error().text);
  print(problems == 0 ? "no problems\n"
                      : std::to_string(problems) + (problems == 1 ? " problem\n" : " problems\n"));
  return problems == 0 ? kExitDone : kExitFailed;
}

int runDocument(Session& session, const CommandLine& line) {
  const auto report = session.open(line.collection);
  if (!report) return fail(report.error().text);
  if (session.files.sameFile(line.collection, line.output)) {
    return fail("cannot write " + line.output + ": it is the collection");
  }
  const auto text = compileWithoutFaults(session, *report, line.previewPower);
  if (!text) return fail(text.error().text);
  if (auto done = writeDocument(session.files, line.output, *text); !done) return fail(done.error().text);
  return kExitDone;
}

}  // namespace kvo
