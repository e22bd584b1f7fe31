// bench_honest ENGINE NAME DOCUMENT OUTPUT [PRESET]: one render as the program follows it. Tells what was
// said of time and size at a quarter of the way, against the end, and the largest rise of the time left in
// the second half.
#include "adapters/posix/poll_loop.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_processes.h"
#include "adapters/posix/posix_temporary_folders.h"
#include "render/render_driver.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace {

// Of two numbers that should be one: how many times the larger is the smaller.
double factorOf(double told, double true_) {
  return told > 0 && true_ > 0 ? std::max(told / true_, true_ / told) : 0;
}

struct Told {
  double all = 0;    // seconds that the render would take
  double bytes = 0;  // that the file would have
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 5) return 2;
  kvo::PosixFiles files;
  kvo::PosixTemporaryFolders folders;
  kvo::PosixProcesses processes;
  kvo::PollLoop loop;
  const auto document = files.read(argv[3], 64U << 20U);
  if (!document) return 2;
  kvo::SteadyTimeLeft steady;
  std::optional<Told> quarter;
  std::optional<double> before;
  double rise = 1;
  kvo::RenderDriver driver({files, folders, processes, loop, argv[1]}, [&] {
    const auto& run = driver.state();
    if (run.ended()) return loop.quit();
    const auto& progress = run.progress;
    const auto left = steady.after(progress);
    if (!left) return;
    const double share = kvo::shareDone(progress);
    if (!quarter && share >= 0.25)
      quarter = Told{progress.elapsed + *left, kvo::bytesInAll(progress).value_or(0)};
    if (share >= 0.5 && share < 1 && before) rise = std::max(rise, *before >= 1 ? *left / *before : 1);
    before = left;
  });
  const auto begun =
      driver.start({.document = *document, .output = argv[4], .preset = argc > 5 ? argv[5] : ""});
  if (!begun) return 1;
  loop.run();
  const auto& run = driver.state();
  if (run.phase != kvo::EnginePhase::Done || !quarter) {
    std::printf("  %-24s nothing was told at a quarter, or the render failed\n", argv[2]);
    return 1;
  }
  const double took = run.progress.elapsed;
  const auto size = static_cast<double>(run.report.bytes);
  std::printf(
      "  %-24s %6.2f s, told %6.2f s (factor %.2f)   %8.2f MB, told %8.2f MB (factor %.2f)   rise %.2f\n",
      argv[2], took, quarter->all, factorOf(quarter->all, took), size / 1e6, quarter->bytes / 1e6,
      factorOf(quarter->bytes, size), rise);
  return 0;
}
