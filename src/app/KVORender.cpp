// The render engine as a process of its own. What it tells on standard output stands in
// render/engine_protocol.h. With --sheet it draws a row of small frames of each document instead, for looking
// at, and with --try-encoder it tries an encoder of a device. A failure is one line on standard error. Exit
// codes: 0 done, 1 failed, 2 wrong usage.
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_name_locks.h"
#include "adapters/posix/posix_processes.h"
#include "adapters/posix/posix_temporary_folders.h"
#include "adapters/posix/starter_watch.h"
#include "app/engine_hardware.h"
#include "base/guarded.h"
#include "base/paths.h"
#include "engine/run/renderer.h"
#include "engine/run/sheet.h"
#include "media/media_facts.h"
#include "render/engine_protocol.h"
#include "render/output_hold.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>
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
    print(kvo::engineLine(kvo::EngineProgress{step.done, step.total, static_cast<double>(step.bytes),
                                              step.written, step.kept}));
  };
}

// "a/fade.xtl" is shown as "fade".
std::string labelOf(const std::string& document) { return std::filesystem::path(document).stem().string(); }

int makeSheet(kvo::Files& files, const kvo::SheetArguments& arguments) {
  std::vector<kvo::engine::SheetRow> rows;
  for (const auto& document : arguments.documents) {
    auto timeline = kvo::readTimeline(files, document, document);
    if (!timeline) return fail(timeline.error(), kvo::kExitFailed);
    rows.push_back({labelOf(document), std::move(*timeline)});
  }
  const auto png = kvo::guarded([&] { return kvo::engine::drawSheet(rows); });
  if (!png) return fail(png.error(), kvo::kExitFailed);
  if (auto done = kvo::writeDurably(files, arguments.output, *png); !done)
    return fail(done.error(), kvo::kExitFailed);
  return kvo::kExitDone;
}

int makeMovie(kvo::Files& files, const kvo::EngineArguments& arguments) {
  std::optional<kvo::StarterWatch> watch;
  if (arguments.starter) watch.emplace(*arguments.starter);
  const char* profile = std::getenv(kvo::kProfileVariable);
  auto work = kvo::readEngineJob(files, arguments, profile == nullptr ? "" : profile);
  if (!work) return fail(work.error(), kvo::kExitFailed);
  // Shares are in company; who has handed them in holds the output.
  kvo::PosixNameLocks locks;
  std::unique_ptr<kvo::FileLock> held;
  if (!arguments.share) {
    auto taken = kvo::holdOutput(files, locks, work->job.output, arguments.workFolder);
    if (!taken) return fail(taken.error(), kvo::kExitFailed);
    held = std::move(*taken);
  }
  kvo::PosixProcesses processes;
  const auto program = kvo::withSeparator(kvo::executableFolder()) + "KVORender";
  const auto hardware = kvo::engineHardware(arguments.encoder, work->job, processes, program);
  if (!hardware) return fail(hardware.error(), kvo::kExitFailed);
  if (!hardware->note.empty()) print(kvo::engineLine(kvo::EngineNote{hardware->note}));
  work->job.hardware = hardware->encoder.get();
  work->job.needsHardware = arguments.encoder == kvo::EncoderWish::Hardware;
  std::unique_ptr<kvo::TemporaryFolder> scratch;
  if (kvo::engine::mostMegabytes(work->job) > 0) {
    auto made = kvo::PosixTemporaryFolders().make();
    if (!made) return fail(made.error(), kvo::kExitFailed);
    scratch = std::move(*made);
    work->job.scratch = scratch->path();
  }
  const auto report = kvo::engine::render(work->timeline, work->job, files, progressPrinter());
  if (!report) return fail(report.error(), kvo::kExitFailed);
  for (const auto& hole : report->damage) {
    print(kvo::engineLine(
        kvo::EngineDamage{hole.lost == kvo::media::Lost::Sound, hole.from, hole.to, hole.path}));
  }
  for (const auto& note : report->notes) print(kvo::engineLine(kvo::EngineNote{note}));
  print(kvo::engineLine(kvo::EngineReport{report->frames, report->seconds, report->bytes}));
  return kvo::kExitDone;
}

// Whoever has started it goes by its end, and ends it where it hangs.
int tryEncoder(const std::string& name) {
  const kvo::StarterWatch watch(::getppid());
  const auto hardware = kvo::media::hardwareNamed(name);
  if (!hardware) return fail({"there is no encoder " + name}, kvo::kExitUsage);
  const auto tried = kvo::guarded([&] { return kvo::media::tryHardware(*hardware); });
  if (tried) return kvo::kExitDone;
  std::fprintf(stderr, "%s\n", tried.error().text.c_str());
  return kvo::kExitFailed;
}

int wrongUsage(const kvo::Error& error) {
  std::fputs(
      "usage: KVORender [/[FROM-TO]] [/P PROFILE] [/C CODEC] [/Q QUALITY] [/E EFFORT] [/M MEGABYTES]\n"
      "                 [/H ENCODER] [/S PROCESS] [/K FOLDER [/J N/OF]] /W OUTPUT DOCUMENT\n"
      "       KVORender --sheet FILE.png DOCUMENT...\n"
      "       KVORender --try-encoder NAME\n",
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
  if (given.size() == 2 && given[0] == kvo::kTryEncoder) return tryEncoder(given[1]);
  const auto arguments = kvo::readEngineArguments(given);
  return arguments ? makeMovie(files, *arguments) : wrongUsage(arguments.error());
}
