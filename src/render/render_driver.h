// A render as the program sees it: the engine runs as a process of its own on a document in a temporary
// folder, is followed and stopped. Nothing here waits: what comes is heard through the loop.
#pragma once

#include "ports/files.h"
#include "ports/processes.h"
#include "ports/temporary_folders.h"
#include "render/progress.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

struct RenderOrder {
  std::string document;                              ///< its text
  std::string output;                                ///< the extension says the kind
  std::optional<std::pair<double, double>> range{};  ///< from and to, seconds; without it the whole movie
  std::string codec{};                               ///< of an AVI; empty for uncompressed
  double frameRate = 0;                              ///< of the movie
  /// The engine belongs to this program's job of the terminal, so that Ctrl-Z stops both.
  bool sharesTerminal = false;
};

enum class RenderPhase {
  Idle,  ///< nothing has been started yet
  Running,
  Stopping,  ///< the engine has been asked to end
  Done,      ///< the movie stands under its name
  Failed,    ///< nothing has changed under its name, as below
  Stopped,
};

struct RenderState {
  RenderPhase phase = RenderPhase::Idle;
  RenderProgress progress;
  std::vector<EngineDamage> damage;
  EngineReport report;                  ///< of a movie that is done
  std::vector<std::string> engineSays;  ///< lines of its standard error, the last ones
  std::string failure;                  ///< why it failed, where the engine has not said so

  [[nodiscard]] bool ended() const { return phase > RenderPhase::Stopping; }
};

class RenderDriver {
 public:
  struct Ports {
    Files& files;
    TemporaryFolders& folders;
    Processes& processes;
    EventLoop& loop;
    std::string engine;  ///< path of its program
  };

  /// `changed` is called behind each change of the state but the start; it may destroy the driver when the
  /// render has ended.
  RenderDriver(const Ports& ports, std::function<void()> changed)
      : ports_(ports), changed_(std::move(changed)) {}

  /// Begins a render. Fails, with the state as it was, when the document cannot be written or the engine not
  /// be started, and while another render runs.
  Outcome start(const RenderOrder& order);

  /// Ends a render within about a second; nothing is written then. Its end is heard as any other.
  void stop();

  [[nodiscard]] const RenderState& state() const { return state_; }

 private:
  void hear(std::string_view line);
  void hearError(std::string_view line);
  void hearEnd(const ProcessEnd& end);
  [[nodiscard]] double secondsSinceStart() const;

  Ports ports_;
  std::function<void()> changed_;
  RenderState state_;
  std::chrono::milliseconds begun_{};
  std::unique_ptr<TemporaryFolder> folder_;
  std::unique_ptr<Process> process_;  // ends ahead of the folder that it reads from
};

}  // namespace kvo
