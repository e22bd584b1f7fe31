// The render engine as a process of its own. On standard output it tells how far it is, one line at a time:
//   progress DONE TOTAL           seconds of the movie, a few times a second
//   damage KIND FROM TO FILE      the "picture" or "sound" of this part of a clip, in seconds after its
//   start, could not
//                                 be decoded
//   done FRAMES SECONDS BYTES     the file is in place
// With --sheet it draws a row of small frames of each document instead, for looking at.
// A failure is one line on standard error. Exit codes: 0 done, 1 failed, 2 wrong usage.
#include "adapters/posix/posix_files.h"
#include "adapters/posix/starter_watch.h"
#include "app/engine_arguments.h"
#include "base/guarded.h"
#include "base/numbers.h"
#include "base/text.h"
#include "engine/document/document_reader.h"
#include "engine/run/renderer.h"
#include "engine/run/sheet.h"
#include "media/media_facts.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

int fail(const kvo::Error& error, int code) {
  std::fprintf(stderr, "KVORender: %s\n", error.text.c_str());
  return code;
}

void print(const std::string& line) {
  std::fputs(line.c_str(), stdout);
  std::fflush(stdout);
}

kvo::engine::RenderWatch progressPrinter() {
  using Clock = std::chrono::steady_clock;
  return [next = Clock::now(), told = -1.0](double done, double total) mutable {
    const auto now = Clock::now();
    if (done == told || (now < next && done < total)) return;
    next = now + std::chrono::milliseconds(200);
    told = done;
    print("progress " + kvo::FormatMask(done, "0.000") + " " + kvo::FormatMask(total, "0.000") + "\n");
  };
}

// `shownAs` is what the document is called where something is wrong with it.
kvo::Result<kvo::engine::Timeline> load(kvo::Files& files, const std::string& document,
                                        const std::string& shownAs) {
  auto text = files.read(document, kvo::engine::kMaxDocumentBytes);
  if (!text) return kvo::Error{kvo::replaced(text.error().text, document, shownAs)};
  auto timeline = kvo::guarded([&] { return kvo::engine::readDocument(std::move(*text)); });
  if (!timeline) return kvo::Error{shownAs + ": " + timeline.error().text};
  return timeline;
}

// "a/fade.xtl" is shown as "fade".
std::string labelOf(const std::string& document) { return std::filesystem::path(document).stem().string(); }

int makeSheet(kvo::Files& files, const kvo::SheetArguments& arguments) {
  std::vector<kvo::engine::SheetRow> rows;
  for (const auto& document : arguments.documents) {
    auto timeline = load(files, document, document);
    if (!timeline) return fail(timeline.error(), kFailed);
    rows.push_back({labelOf(document), std::move(*timeline)});
  }
  const auto png = kvo::guarded([&] { return kvo::engine::drawSheet(rows); });
  if (!png) return fail(png.error(), kFailed);
  if (auto done = kvo::writeDurably(files, arguments.output, *png); !done) return fail(done.error(), kFailed);
  return kDone;
}

int makeMovie(kvo::Files& files, const kvo::EngineArguments& arguments) {
  std::optional<kvo::StarterWatch> watch;
  if (arguments.starter) watch.emplace(*arguments.starter);
  if (arguments.profile) {
    return fail({"the system profile of /P " + std::to_string(*arguments.profile) +
                 " cannot be used: the engine has no profiles yet"},
                kFailed);
  }
  // A starter's document is a temporary file that its user knows nothing of.
  const auto shownAs = arguments.starter ? std::string("the timeline document") : arguments.document;
  const auto timeline = load(files, arguments.document, shownAs);
  if (!timeline) return fail(timeline.error(), kFailed);
  const auto report = kvo::engine::render(*timeline, arguments.job, files, progressPrinter());
  if (!report) return fail(report.error(), kFailed);
  for (const auto& hole : report->damage) {
    print(std::string("damage ") + (hole.lost == kvo::media::Lost::Sound ? "sound " : "picture ") +
          kvo::FormatMask(hole.from, "0.00") + " " + kvo::FormatMask(hole.to, "0.00") + " " + hole.path +
          "\n");
  }
  print("done " + std::to_string(report->frames) + " " + kvo::FormatMask(report->seconds, "0.000") + " " +
        std::to_string(report->bytes) + "\n");
  return kDone;
}

int wrongUsage(const kvo::Error& error) {
  std::fputs(
      "usage: KVORender [/[FROM-TO]] [/P PROFILE] [/C CODEC] [/S PROCESS] /W OUTPUT DOCUMENT\n"
      "       KVORender --sheet FILE.png DOCUMENT...\n",
      stderr);
  return fail(error, kWrongUsage);
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> given(argv + 1, argv + argc);
  kvo::media::silenceRemarks();
  kvo::PosixFiles files;
  const auto sheet = kvo::readSheetArguments(given);
  if (!sheet) return wrongUsage(sheet.error());
  if (*sheet) return makeSheet(files, **sheet);
  const auto arguments = kvo::readEngineArguments(given);
  return arguments ? makeMovie(files, *arguments) : wrongUsage(arguments.error());
}
