#include "app/commands.h"

#include "app/console_render.h"
#include "base/numbers.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/collection_faults.h"
#include "editor/compiler/document_check.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/render_file.h"

#include <algorithm>

namespace kvo {
namespace {

std::string clipName(int number, const Movie& clip) {
  return "clip " + std::to_string(number) + " " + clipFile(clip);
}

std::string faultText(const Compilation& c, const CollectionFault& fault) {
  return fault.clip == 0 ? fault.text : clipName(fault.clip, c.clips()[fault.clip]) + ": " + fault.text;
}

// The document of a collection, unless a fault stands in its way. What was wrong with its reading is told.
Result<std::string> compileWithoutFaults(Session& session, const ReadReport& report,
                                         std::optional<int> previewPower) {
  const auto& c = session.compilation;
  auto text = previewPower ? compilePreviewText(c, *previewPower) : compileText(c);
  const auto faults = collectionFaults(c, report);
  for (const auto& fault : faults) {
    if (fault.clip == 0 && !fault.stopsRender) warn(fault.text);
  }
  const auto stops = std::find_if(faults.begin(), faults.end(), [](const auto& f) { return f.stopsRender; });
  if (stops != faults.end()) return Error{faultText(c, *stops)};
  return text;
}

}  // namespace

int runRender(Session& session, const CommandLine& line, const std::string& engine) {
  const auto report = session.open(line.collection);
  if (!report) return fail(report.error().text);
  if (session.files.sameFile(line.collection, line.output)) {
    return fail("cannot write " + line.output + ": it is the collection");
  }
  auto& controls = session.editor.controls;
  if (line.size) {
    controls.txtWidth = line.size->width;
    controls.txtHeight = line.size->height;
  }
  if (line.rate) session.settings.change().OutPutFrameRate = static_cast<Single>(*line.rate);

  const auto text = compileWithoutFaults(session, *report, std::nullopt);
  if (!text) return fail(text.error().text);
  if (auto sound = checkDocument(*text); !sound)
    return fail("cannot write the timeline document: " + sound.error().text);
  RenderOrder order{.document = *text,
                    .output = line.output,
                    .codec = line.codec,
                    .frameRate = session.settings.preferences().OutPutFrameRate,
                    .sharesTerminal = true};
  if (line.range) order.range = {line.range->from, line.range->to};
  return renderOnConsole(session, order, engine);
}

int runCheck(Session& session, const CommandLine& line) {
  const auto report = session.open(line.collection);
  if (!report) return fail(report.error().text);
  const auto& c = session.compilation;
  const auto text = compileText(c);
  int problems = 0;
  const auto problem = [&](const std::string& text) {
    ++problems;
    print("      problem: " + text + "\n");
  };
  print(line.collection + ": " + std::to_string(c.clips().count()) + " clips, " +
        FormatMask(ToNumber(session.editor.LastClipStop), "0.00") + " s of picture\n");
  const auto faults = collectionFaults(c, *report);
  auto fault = std::find_if(faults.begin(), faults.end(), [](const auto& f) { return f.clip > 0; });
  std::for_each(faults.begin(), fault, [&](const auto& f) { problem(f.text); });
  for (int i = 1; i <= c.clips().count(); ++i) {
    const auto& clip = c.clips()[i];
    print(FormatMask(i, "####") + "  " + clipFile(clip) + "\n      section " +
          FormatMask(clip.LoopStart().number(), "0.00") + " to " +
          FormatMask(clip.LoopEnd().number(), "0.00") + " s, speed " + ShortText(speedOf(clip)) +
          ", in the movie " + FormatMask(clip.TimeLineStart().number(), "0.00") + " to " +
          FormatMask(clip.TimeLineStop().number(), "0.00") + " s" +
          (isCut(clip.TransType())
               ? std::string()
               : ", " + clip.TransType() + " of " + ShortText(secondsFromTenths(clip.TransIn())) + " s") +
          "\n");
    for (; fault != faults.end() && fault->clip == i; ++fault) problem(fault->text);
  }
  // What stops a render may spoil its document as well; it has been told.
  const bool stops = std::any_of(faults.begin(), faults.end(), [](const auto& f) { return f.stopsRender; });
  if (auto whole = checkDocument(text); !whole && !stops) problem(whole.error().text);
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
