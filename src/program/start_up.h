// The order of start-up, from the command line to the first clip.
#pragma once

#include "program/intro.h"
#include "program/mailbox.h"
#include "program/skins.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

enum class StartEnd {
  Run,         ///< the window is shown
  HandedOver,  ///< another copy runs and has the command line now
  NotTaken,    ///< another copy runs and does not take the command line
  Failed,      ///< the collection cannot be read; the user has been told
};

class StartUp {
 public:
  StartUp(const ProgramParts& parts, Skins& skins, Intro& intro, Mailbox& mailbox)
      : parts_(parts), skins_(skins), intro_(intro), mailbox_(mailbox) {}

  /// Called when all is read that says what the window is like, ahead of its first clip.
  void whenLoaded(std::function<void()> call) { whenLoaded_ = std::move(call); }

  /// Everything from the command line to the first clip. `workingFolder` is where its file names begin.
  StartEnd run(const std::vector<std::string>& arguments, const std::string& workingFolder);

  /// What is to be told and asked once the window is seen: files that are not there, upgrades.
  void tell();

 private:
  void loadWindow();
  void askAboutUpgrades();
  void checkScreen();
  void testFont();

  ProgramParts parts_;
  Skins& skins_;
  Intro& intro_;
  Mailbox& mailbox_;
  std::function<void()> whenLoaded_ = [] {};
  std::vector<std::string> missing_;  // of the command line
};

/// True where the desktop's own text is larger than the smaller table of button places is made for.
bool hasLargeText(const Desktop& desktop);

/// Reads the per-user values, writes the default of each that is missing, and sets the menu ticks that follow
/// from them.
void GetKVORegistryValues(KVO2& settings, UserStore& store, MainWindowState& window);

}  // namespace kvo
