// What the main window shows, as data: the logic writes it, the window draws it and decides nothing. One
// struct for each part of the window, which is drawn by a drawer of its own.
#pragma once

#include "base/revised_list.h"
#include "program/skin_state.h"

#include <string>
#include <utility>
#include <vector>

namespace kvo {

/// The window itself.
struct FaceState {
  std::string caption = "KVO5";
  bool visible = false;
  bool raise = false;  ///< it is to come to the front; the window clears this
  bool fullScreen = false;
  bool minimumDetails = false;
  bool controlsEnabled = true;
};

struct ClipListState {
  RevisedList<std::string> Fillist;  ///< a name for each clip, in the collection's order
  int ListIndex = -1;                ///< the selected one, from 0; -1 for none
  std::string caption;               ///< "Holiday Collection"
  bool visible = false;
};

/// The pane that stands in the place of everything else while there is no clip.
struct EmptyPaneState {
  std::string NoMediaPrompt;
  bool visible = true;
};

/// What is told of the clip in hand, by name and value.
struct DetailsState {
  std::vector<std::pair<std::string, std::string>> rows;
  bool visible = false;
};

/// The states of the keys that play and pause; skins call them "PLAYON", "PLAYOFF", "PAUSEON" and "PAUSEOFF".
enum class ButtonWord { PlayOn, PlayOff, PauseOn, PauseOff };

struct TransportState {
  ButtonWord play = ButtonWord::PlayOff;
  ButtonWord pause = ButtonWord::PauseOff;
  bool playerParked = true;  ///< out of sight at the far left
};

/// Ticks, and what can be chosen.
struct MenuState {
  bool mnu_LoopCol = false;
  bool mnu_Looping = false;
  bool mnu_RewAtEnd = false;
  bool mnu_DefaultZoom100 = false;
  bool mnu_SliderPause = false;
  bool mnu_ShowWavWithVideo = false;
  bool mnu_SldNormal = false;  ///< else the fast slider entry is ticked
  bool mnu_Remote = false;
  bool clipsEnabled = false;  ///< the commands that need a clip
};

/// Long work that goes on.
struct ProgressState {
  std::string status;     ///< "Loading Clip 5 of 20"; empty while there is none
  std::string abortText;  ///< a click on it stops the work; empty while nothing can be stopped
  bool abortClicked = false;
};

struct MainWindowState {
  FaceState face;
  ClipListState list;
  EmptyPaneState emptyPane;
  DetailsState details;
  TransportState transport;
  MenuState menu;
  ProgressState progress;
  SkinState skin;
  bool commandRuns = false;  ///< see CommandPass

  /// True while a command is under way and lets events through: nothing else may touch the collection.
  [[nodiscard]] bool busy() const { return commandRuns || !progress.status.empty(); }
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
