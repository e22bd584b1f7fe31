#include "app/commands.h"

#include "adapters/posix/stop_signals.h"
#include "adapters/posix/temporary_folder.h"
#include "app/progress_line.h"
#include "base/text.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/collection_faults.h"
#include "editor/compiler/document_check.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/render_file.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <unistd.h>

namespace kvo {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point then) {
  return std::chrono::duration<double>(Clock::now() - then).count();
}

void print(const std::string& text) {
  std::fputs(text.c_str(), stdout);
  std::fflush(stdout);
}

void warn(const std::string& text) { std::fprintf(stderr, "kvo5: %s\n", text.c_str()); }

std::string clipName(int number, const Movie& clip) {
  return "clip " + std::to_string(number) + " " + clipFile(clip);
}

// Shows the engine's lines: one line in place on a terminal, a line each tenth of the way elsewhere.
class ProgressShow {
 public:
  void hear(std::string_view line) {
    if (line.starts_with("damage ")) return hearDamage(line.substr(7));
    if (!line.starts_with("progress ")) {
      report_ = line;
      return;
    }
    line.remove_prefix(9);
    const auto blank = line.find(' ');
    if (blank == std::string_view::npos) return;
    const double done = ToNumber(line.substr(0, blank));
    const double total = ToNumber(line.substr(blank + 1));
    const auto text = progressText(done, total, secondsSince(begun_));
    if (onTerminal_) {
      print("\r" + text + "\x1b[K");
    } else if (const int tenth = static_cast<int>(total > 0 ? done / total * 10 : 0); tenth > shownTenth_) {
      shownTenth_ = tenth;
      print(text + "\n");
    }
  }

  // Takes the line off the terminal again.
  void end() const {
    if (onTerminal_) print("\r\x1b[K");
  }

  // "made out.avi: 300 frames, 12.00 s, 5.2 MB, in 1.90 s (6.32 x real time)"
  [[nodiscard]] std::string summary(const std::string& output) const {
    std::string_view rest(report_);
    std::array<double, 3> numbers{};
    rest.remove_prefix(std::min<std::size_t>(rest.size(), 5));
    for (auto& number : numbers) {
      number = ToNumber(rest);
      rest.remove_prefix(std::min(rest.size(), rest.find(' ') + 1));
    }
    const auto [frames, seconds, bytes] = numbers;
    const double took = secondsSince(begun_);
    return "made " + output + ": " + (frames > 0 ? ShortText(frames) + " frames, " : std::string()) +
           FormatMask(seconds, "0.00") + " s, " + bytesText(bytes) + ", in " + FormatMask(took, "0.00") +
           " s (" + FormatMask(seconds / took, "0.00") + " x real time)" +
           (damage_.empty() ? ""
                            : ", with " + std::to_string(damage_.size()) +
                                  (damage_.size() == 1 ? " damaged part" : " damaged parts")) +
           "\n";
  }

  // "holiday.avi: the picture from 1.20 to 1.84 s cannot be decoded; the one ahead stands"
  [[nodiscard]] const std::vector<std::string>& damage() const { return damage_; }

 private:
  // "KIND FROM TO FILE"
  void hearDamage(std::string_view rest) {
    std::array<std::string, 3> words;
    for (auto& word : words) {
      const auto blank = std::min(rest.find(' '), rest.size());
      word = rest.substr(0, blank);
      rest.remove_prefix(std::min(blank + 1, rest.size()));
    }
    const auto& [kind, from, to] = words;
    damage_.push_back(std::string(rest) + ": the " + kind + " from " + from + " to " + to +
                      " s cannot be decoded; " + (kind == "sound" ? "it is silent" : "the one ahead stands"));
  }

  const bool onTerminal_ = ::isatty(STDOUT_FILENO) == 1;
  const Clock::time_point begun_ = Clock::now();
  int shownTenth_ = -1;
  std::string report_;
  std::vector<std::string> damage_;
};

std::vector<std::string> engineArguments(const CommandLine& line, const std::string& document) {
  std::vector<std::string> arguments;
  if (line.range) {
    arguments.push_back("/[" + FormatMask(line.range->from, "0.00") + "-" +
                        FormatMask(line.range->to, "0.00") + "]");
  }
  if (!line.codec.empty()) arguments.insert(arguments.end(), {"/C", line.codec});
  arguments.insert(arguments.end(), {"/S", std::to_string(::getpid()), "/W", line.output, document});
  return arguments;
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

int fail(const std::string& text, int code) {
  warn(text);
  return code;
}

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
  StopSignals signals;  // until here a signal ends the program by itself, and leaves nothing
  const auto folder = TemporaryFolder::make();
  if (!folder) return fail(folder.error().text);
  const auto document = folder->path() + "/movie.xtl";
  if (auto done = writeDocument(session.files, document, *text); !done) {
    // The user knows nothing of that file.
    return fail(replaced(done.error().text, document, "the timeline document"));
  }

  ProgressShow show;
  const auto end = session.processes.run(
      engine, engineArguments(line, document), [&](std::string_view text) { show.hear(text); },
      [&] { return signals.came(); });
  show.end();
  if (!end) return fail(end.error().text);
  if (end->ended || signals.came()) return fail("stopped; nothing was written", kExitStopped);
  if (end->exitCode > 2) return fail("the render engine ended with code " + std::to_string(end->exitCode));
  if (end->exitCode != 0) return kExitFailed;  // it has said why
  for (const auto& text : show.damage()) warn(text);
  print(show.summary(line.output));
  return kExitDone;
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
