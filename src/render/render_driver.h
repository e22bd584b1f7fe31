// A run of the engine as the program sees it: a script for the shell starts it on a document, and it is
// followed and stopped. Nothing here waits: what comes is heard through the loop. However this program ends,
// shell and engine end with it.
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
  std::string codec{};                               ///< a word of codecWord; empty for the kind's own
  std::optional<int> profile{};                      ///< of Windows Media, one of the engine's own
  std::string preset{};                              ///< the name of a MoviePreset; empty for none
  int quality = 0;                                   ///< on the codec's own scale; 0 for the usual
  std::string effort{};                              ///< one of effortWords(); empty for the usual
  double megabytes = 0;                              ///< that an MP4 is not to exceed; 0 for no limit
  std::string encoder{};                             ///< a word of encoderWord; empty for the software
  std::string profileFile{};                         ///< that is in force; empty for none
  std::string shownAs{};  ///< what the engine's lines call the output; empty for its own name
  std::string folder{};   ///< for document, script and sentinel; empty for a temporary one
  /// Where finished segments are kept, so that a render that is cut off or stopped goes on from them; empty
  /// for a render that leaves nothing. It goes with the movie's completion.
  std::string workFolder{};
};

enum class EnginePhase {
  Idle,  ///< nothing has been started yet
  Running,
  Stopping,  ///< the engine has been asked to end
  Done,      ///< the movie stands under its name
  Failed,    ///< nothing has changed under its name, as below
  Stopped,
};

struct EngineRun {
  EnginePhase phase = EnginePhase::Idle;
  RenderProgress progress;
  std::vector<EngineDamage> damage;
  std::vector<std::string> notes;       ///< where the movie is not made as was asked
  EngineReport report;                  ///< of a movie that is done
  std::vector<std::string> engineSays;  ///< lines of its standard error, the last ones
  std::string failure;                  ///< why it failed, where the engine has not said so

  [[nodiscard]] bool ended() const { return phase > EnginePhase::Stopping; }
};

/// What a line of the engine says, without the name that it begins with on a terminal.
std::string reasonOf(std::string_view line);

/// The reason that tells the user why a run has failed. What a killed engine's shell says of it tells
/// nothing.
std::string whyFailed(const EngineRun& run);

/// The work folder for an output, beside it.
std::string workFolderOf(const std::string& output);

/// What the engine is called with, but for its starter. `share` is a share of the segments, as "2/8", or
/// empty.
std::vector<std::string> engineArguments(const RenderOrder& order, const std::string& document,
                                         const std::string& share = {});

class RenderDriver {
 public:
  struct Ports {
    Files& files;
    TemporaryFolders& folders;
    Processes& processes;
    EventLoop& loop;
    std::string engine;  ///< path of its program
    /// The engine belongs to this program's job of the terminal, so that Ctrl-Z stops both.
    bool sharesTerminal = false;
  };

  /// `changed` is called behind each change of the state but the start; it may destroy the driver when the
  /// render has ended.
  RenderDriver(const Ports& ports, std::function<void()> changed)
      : ports_(ports), changed_(std::move(changed)) {}

  /// Begins a render. Fails, with the state as it was, when the document cannot be written or the engine not
  /// be started, and while another render runs.
  Outcome start(const RenderOrder& order);

  /// How the last render went is told no more. Nothing happens while one runs.
  void forget();

  /// Ends a render within about a second; nothing is written then. Its end is heard as any other.
  void stop();

  /// Ends it at once, unheard: the state is that of a render that was stopped.
  void abandon();

  /// True once behind the appearance of the sign that the engine has ended; it is taken away again.
  bool takeSentinel();

  [[nodiscard]] const EngineRun& state() const { return state_; }

 private:
  Outcome prepare(const RenderOrder& order, const std::string& folder);
  void letGo();
  void hear(std::string_view line);
  void hearProgress(const EngineProgress& movie);
  void hearError(std::string_view line);
  void hearEnd(const ProcessEnd& end);
  [[nodiscard]] double secondsSinceStart() const;

  Ports ports_;
  std::function<void()> changed_;
  EngineRun state_;
  std::string output_;   // as the engine calls it
  std::string shownAs_;  // as the user does
  std::string sentinel_;
  std::chrono::milliseconds begun_{};
  std::unique_ptr<TemporaryFolder> folder_;
  std::unique_ptr<Process> process_;  // ends ahead of the folder that it reads from
};

}  // namespace kvo
