// What the main window shows, as data: the logic writes it, the window draws it and decides nothing.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kvo {

struct MainWindowState {
  // The clip list
  std::vector<std::string> Fillist;  ///< a name for each clip, in the collection's order
  int ListIndex = -1;                ///< the selected one, from 0; -1 for none
  bool listVisible = false;
  std::string listCaption;  ///< "Holiday Collection"

  // The panel
  std::string caption = "KVO5";  ///< of the window
  std::string NoMediaPrompt;     ///< text of the empty pane
  bool noVideoPanel = true;      ///< the empty pane is shown
  bool detailsVisible = false;
  std::vector<std::pair<std::string, std::string>> details;  ///< what is told of the clip in hand
  bool playerParked = true;                                  ///< out of sight at the far left
  bool controlsEnabled = true;
  bool listMenuEnabled = false;  ///< the commands that need a clip
  bool fullScreen = false;
  bool minimumDetails = false;
  bool visible = false;
  bool raise = false;                    ///< the window is to come to the front; it clears this
  std::string playButton = "PLAYOFF";    ///< "PLAYON" or "PLAYOFF"
  std::string pauseButton = "PAUSEOFF";  ///< "PAUSEON" or "PAUSEOFF"

  // Menu ticks
  bool mnu_LoopCol = false;
  bool mnu_Looping = false;
  bool mnu_RewAtEnd = false;
  bool mnu_DefaultZoom100 = false;
  bool mnu_SliderPause = false;
  bool mnu_ShowWavWithVideo = false;
  bool mnu_SldNormal = false;  ///< else the fast slider entry is ticked
  bool mnu_Remote = false;

  // Long work
  std::string status;     ///< "Loading Clip 5 of 20"
  std::string abortText;  ///< a click on it stops the load; empty while nothing can be stopped
  bool abortClicked = false;
  bool commandRuns = false;  ///< see CommandPass

  /// True while a command is under way and lets events through: nothing else may touch the collection.
  [[nodiscard]] bool busy() const { return commandRuns || !status.empty(); }
};

/// The one gate of everything that the user can ask for: a command holds a pass while it runs, and one that
/// gets none does nothing. Loads, boxes and dialogs let events through, and so may ask for a second command.
class CommandPass {
 public:
  explicit CommandPass(MainWindowState& window) : window_(window), given_(!window.busy()) {
    if (given_) window_.commandRuns = true;
  }
  CommandPass(const CommandPass&) = delete;
  CommandPass& operator=(const CommandPass&) = delete;
  ~CommandPass() {
    if (given_) window_.commandRuns = false;
  }
  explicit operator bool() const { return given_; }

 private:
  MainWindowState& window_;
  const bool given_;
};

}  // namespace kvo
