// The render engine as a process of its own. What it tells on standard output stands in
// render/engine_protocol.h. With --sheet it draws a row of small frames of each document instead, for looking
// at. A failure is one line on standard error. Exit codes: 0 done, 1 failed, 2 wrong usage.
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_temporary_folders.h"
#include "adapters/posix/starter_watch.h"
#include "app/engine_arguments.h"
#include "base/guarded.h"
#include "base/text.h"
#include "engine/document/document_reader.h"
#include "engine/run/profile_file.h"
#include "engine/run/renderer.h"
#include "engine/run/sheet.h"
#include "media/media_facts.h"
#include "render/engine_protocol.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

int fail(const kvo::Error& error, int code) {
  std::fprintf(stderr, "KVORender: %s\n", error.text.c_str());
  return code;
}

void print(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);
}

kvo::engine::RenderWatch progressPrinter() {
  using Clock = std::chrono::steady_clock;
  return [next = Clock::now(), told = -1.0](const kvo::engine::RenderStep& step) mutable {
    const auto now = Clock::now();
    if (step.done == told || (now < next && step.done < step.total)) return;
    next = now + std::chrono::milliseconds(200);
    told = step.done;
    print(kvo::engineLine(
        kvo::EngineProgress{step.done, step.total, static_cast<double>(step.bytes), step.written}));
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
    if (!timeline) return fail(timeline.error(), kvo::kExitFailed);
    rows.push_back({labelOf(document), std::move(*timeline)});
  }
  const auto png = kvo::guarded([&] { return kvo::engine::drawSheet(rows); });
  if (!png) return fail(png.error(), kvo::kExitFailed);
  if (auto done = kvo::writeDurably(files, arguments.output, *png); !done)
    return fail(done.error(), kvo::kExitFailed);
  return kvo::kExitDone;
}

// The one of the number, or what the file says that the starter has put in force.
kvo::Result<std::optional<kvo::EncodeProfile>> profileFor(const kvo::Files& files,
                                                          const kvo::EngineArguments& arguments) {
  if (arguments.profile) return kvo::systemProfile(*arguments.profile);
  const char* file = std::getenv(kvo::kProfileVariable);
  if (file == nullptr || *file == '\0') return std::optional<kvo::EncodeProfile>();
  auto bytes = files.read(file, kvo::engine::kMaxProfileFile);
  if (!bytes) return bytes.error();
  auto profile = kvo::engine::readProfileFile(std::move(*bytes));
  if (!profile) return kvo::Error{std::string(file) + ": " + profile.error().text};
  return profile;
}

int makeMovie(kvo::Files& files, const kvo::EngineArguments& arguments) {
  std::optional<kvo::StarterWatch> watch;
  if (arguments.starter) watch.emplace(*arguments.starter);
  // A starter's document is a temporary file that its user knows nothing of.
  const auto shownAs = arguments.starter ? std::string("the timeline document") : arguments.document;
  const auto timeline = load(files, arguments.document, shownAs);
  if (!timeline) return fail(timeline.error(), kvo::kExitFailed);
  const auto profile = profileFor(files, arguments);
  if (!profile) return fail(profile.error(), kvo::kExitFailed);
  auto job = arguments.job;
  job.profile = *profile;
  std::unique_ptr<kvo::TemporaryFolder> scratch;
  if (kvo::engine::mostMegabytes(job) > 0) {
    auto made = kvo::PosixTemporaryFolders().make();
    if (!made) return fail(made.error(), kvo::kExitFailed);
    scratch = std::move(*made);
    job.scratch = scratch->path();
  }
  const auto report = kvo::engine::render(*timeline, job, files, progressPrinter());
  if (!report) return fail(report.error(), kvo::kExitFailed);
  for (const auto& hole : report->damage) {
    print(kvo::engineLine(
        kvo::EngineDamage{hole.lost == kvo::media::Lost::Sound, hole.from, hole.to, hole.path}));
  }
  for (const auto& note : report->notes) print(kvo::engineLine(kvo::EngineNote{note}));
  print(kvo::engineLine(kvo::EngineReport{report->frames, report->seconds, report->bytes}));
  return kvo::kExitDone;
}

int wrongUsage(const kvo::Error& error) {
  std::fputs(
      "usage: KVORender [/[FROM-TO]] [/P PROFILE] [/C CODEC] [/Q QUALITY] [/E EFFORT] [/M MEGABYTES] [/S "
      "PROCESS]\n"
      "                 /W OUTPUT DOCUMENT\n"
      "       KVORender --sheet FILE.png DOCUMENT...\n",
      stderr);
  return fail(error, kvo::kExitUsage);
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
