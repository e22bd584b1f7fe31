#include "app/sketch_command.h"

#include "adapters/jpeg/turbo_jpeg.h"
#include "adapters/media/media_file_contents.h"
#include "adapters/media/media_sound_peaks.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/starter_watch.h"
#include "base/guarded.h"
#include "media/media_facts.h"
#include "render/engine_protocol.h"
#include "sketches/sketch_maker.h"
#include "sketches/sketch_words.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <poll.h>
#include <unistd.h>

namespace kvo {
namespace {

constexpr int kGivesWay = 15;  // steps of niceness
constexpr int kQuiet = 500;    // milliseconds without an order, and what has been made is kept
constexpr auto kBusyEvery = std::chrono::seconds(1);

void sayLine(std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fputc('\n', stdout);
}

std::string made(SketchMaker& maker, const SketchOrder& order) {
  if (order.kind == SketchOrder::Kind::Picture) return maker.picture(order.path, order.milliseconds);
  auto last = std::chrono::steady_clock::now();
  return maker.peaks(order.path, [&] {
    if (std::chrono::steady_clock::now() - last < kBusyEvery) return;
    last = std::chrono::steady_clock::now();
    sayLine(kSketchBusy);
    std::fflush(stdout);
  });
}

Outcome answer(SketchMaker& maker, const std::string& text) {
  return guarded([&]() -> Outcome {
    const auto order = readOrder(text);
    const auto data = order ? made(maker, *order) : std::string();
    sketchLines(order && order->quiet ? std::string_view() : data, sayLine);
    return std::fflush(stdout) == 0 ? Outcome() : Outcome(Error{"nobody reads the answers"});
  });
}

// False at the end of the orders.
bool readMore(std::string& pending) {
  std::array<char, 1U << 14U> buffer{};
  const auto got = ::read(STDIN_FILENO, buffer.data(), buffer.size());
  if (got > 0) pending.append(buffer.data(), static_cast<std::size_t>(got));
  return got > 0 || (got < 0 && errno == EINTR);
}

}  // namespace

ProcessOrder sketchingProcess(const std::string& executableFolder) {
  return {.program = executableFolder + "kvo5", .arguments = {"--sketch"}, .hasInput = true};
}

int runSketch(const std::string& folder) {
  media::silenceRemarks();
  const StarterWatch watch(::getppid());
  if (::nice(kGivesWay) == -1) errno = 0;  // no more than slower for others
  PosixFiles files;
  SketchFolder kept(files, folder);
  MediaFileContents frames;
  MediaSoundPeaks sounds(frames);
  const TurboJpeg jpeg;
  SketchMaker maker({kept, frames, sounds, jpeg});
  std::string pending;
  for (;;) {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (::poll(&input, 1, kQuiet) == 0) {
      maker.flush();
      input.events = POLLIN;
      ::poll(&input, 1, -1);
    }
    if (!readMore(pending)) return kExitDone;
    for (auto end = pending.find('\0'); end != std::string::npos; end = pending.find('\0')) {
      if (!answer(maker, pending.substr(0, end))) return kExitFailed;
      pending.erase(0, end + 1);
    }
  }
}

}  // namespace kvo
