#include "app/console_render.h"

#include "adapters/posix/poll_loop.h"
#include "adapters/posix/stop_signals.h"
#include "base/numbers.h"

#include <cstdio>
#include <unistd.h>

namespace kvo {
namespace {

constexpr int kSignalsEvery = 50;  // milliseconds between two looks for a stop signal

// One line in place on a terminal, a line each tenth of the way elsewhere.
class ProgressShow {
 public:
  void show(const RenderProgress& progress) {
    if (progress.movie == shown_) return;
    shown_ = progress.movie;
    if (onTerminal_) {
      print("\r" + progressText(progress) + "\x1b[K");
    } else if (const int tenth = static_cast<int>(shareDone(progress) * 10); tenth > shownTenth_) {
      shownTenth_ = tenth;
      print(progressText(progress) + "\n");
    }
  }

  // Takes the line off the terminal again.
  void end() const {
    if (onTerminal_) print("\r\x1b[K");
  }

 private:
  const bool onTerminal_ = ::isatty(STDOUT_FILENO) == 1;
  int shownTenth_ = -1;
  EngineProgress shown_{-1, -1};
};

// "made out.avi: 300 frames, 12.00 s, 5.2 MB, in 1.90 s (6.32 x real time)"
std::string summary(const EngineRun& state, const std::string& output) {
  const auto& [frames, seconds, bytes] = state.report;
  const double took = state.progress.elapsed;
  const auto holes = state.damage.size();
  return "made " + output + ": " + (frames > 0 ? std::to_string(frames) + " frames, " : std::string()) +
         FormatMask(seconds, "0.00") + " s, " + bytesText(static_cast<double>(bytes)) + ", in " +
         FormatMask(took, "0.00") + " s (" + FormatMask(seconds / took, "0.00") + " x real time)" +
         (holes == 0
              ? ""
              : ", with " + std::to_string(holes) + (holes == 1 ? " damaged part" : " damaged parts")) +
         "\n";
}

int tellEnd(const EngineRun& state, const RenderOrder& order, bool signalCame) {
  for (const auto& line : state.engineSays) std::fprintf(stderr, "%s\n", line.c_str());
  if (state.phase == EnginePhase::Done) {
    for (const auto& hole : state.damage) warn(damageText(hole));
    for (const auto& note : state.notes) warn(note);
    print(summary(state, order.output));
    return kExitDone;
  }
  // A signal of the terminal may end the engine before this program has seen it.
  if (state.phase == EnginePhase::Stopped || signalCame)
    return fail(order.workFolder.empty() ? "stopped; nothing was written"
                                         : "stopped; the same command goes on from here",
                kExitStopped);
  return state.failure.empty() ? kExitFailed : fail(state.failure);
}

}  // namespace

void print(const std::string& text) {
  std::fputs(text.c_str(), stdout);
  std::fflush(stdout);
}

void warn(const std::string& text) { std::fprintf(stderr, "kvo5: %s\n", text.c_str()); }

int fail(const std::string& text, int code) {
  warn(text);
  return code;
}

int renderOnConsole(Session& session, const RenderOrder& order, const std::string& engine) {
  StopSignals signals;  // until here a signal ends the program by itself, and leaves nothing
  PollLoop loop;
  ProgressShow show;
  RenderDriver driver({session.files, session.temporaryFolders, session.processes, loop, engine, true}, [&] {
    show.show(driver.state().progress);
    if (driver.state().ended()) loop.quit();
  });
  if (auto begun = driver.start(order); !begun) return fail(begun.error().text);
  const auto look = loop.timer([&] {
    if (signals.came()) driver.stop();
  });
  look->start(kSignalsEvery);
  loop.run();
  show.end();
  return tellEnd(driver.state(), order, signals.came());
}

}  // namespace kvo
