// The life of the program apart from its windows: start-up in its order, the intro clip, what another copy
// hands over, and shut-down.
#pragma once

#include "core/telling/failures.h"
#include "intake/clip_intake.h"
#include "ports/desktop.h"
#include "ports/handover.h"
#include "program/collection_commands.h"
#include "program/start_command.h"

#include <memory>
#include <string>
#include <vector>

namespace kvo {

enum class StartEnd {
  Run,         ///< the window is shown
  HandedOver,  ///< another copy runs and has the command line now
  Failed,      ///< the collection cannot be read; the user has been told
};

class StartUp {
 public:
  struct Ports {
    Files& files;
    MessageBoxes& boxes;
    EventLoop& loop;
    Handover& handover;
    UserStore& store;
    Desktop& desktop;
    const ProgramFolder& folder;
  };

  StartUp(const Ports& ports, CollectionStore& file, KVO2& settings, Collection& collection,
          CollectionCommands& commands, ClipIntake& intake, MainWindowState& window);

  /// Everything from the command line to the first clip. `workingFolder` is where its file names begin.
  StartEnd run(const std::vector<std::string>& arguments, const std::string& workingFolder);

  /// The intro clip has reached its end.
  void introEnded() { introRunning_ = false; }
  [[nodiscard]] bool IntroRunning() const { return introRunning_; }
  [[nodiscard]] bool StartingUp() const { return startingUp_; }

  /// Files that the user drops or chooses: a collection takes the place of the one that is open, unsaved
  /// changes being asked about; everything else is added.
  void takeFiles(const std::vector<std::string>& paths);

  /// Ends the program's work and asks about unsaved changes. False on Cancel, and while another command is
  /// under way, which is asked to stop: the program goes on.
  bool exit();

 private:
  void loadWindow();
  void askAboutUpgrades();
  void checkScreen();
  void showFirstClip();
  void ShowStartupVid();
  bool addIntro();
  void introTick();
  void leaveIntro();
  void readMailbox();
  void takeHandover(const std::string& text);
  bool take(const StartCommand& command);
  void deleteWorkFiles();

  Ports ports_;
  CollectionStore& file_;
  KVO2& settings_;
  Collection& collection_;
  CollectionCommands& commands_;
  ClipIntake& intake_;
  MainWindowState& window_;

  std::string workingFolder_;
  std::vector<std::string> startupFiles_;  // named on the command line; they run in place of the intro
  const Movie* intro_ = nullptr;           // the clip of DefaultStartupVid while it is in the list
  bool introRunning_ = false;
  bool startingUp_ = true;
  bool ended_ = false;
  std::unique_ptr<Timer> introEnder_;
  std::unique_ptr<Timer> timer6_;
};

/// Reads the per-user values in their order, writes the default of each that is missing, and sets the menu
/// ticks that follow from them.
void GetKVORegistryValues(KVO2& settings, UserStore& store, MainWindowState& window);

}  // namespace kvo
