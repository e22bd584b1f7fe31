// What the main window shows, as data: the logic writes it, the window draws it and decides nothing. One
// struct for each part of the window, which is drawn by a drawer of its own.
#pragma once

#include "base/revised_list.h"
#include "core/telling/work_glance.h"
#include "playback/buttons_state.h"
#include "playback/display/display_mode_state.h"
#include "playback/positions/position_state.h"
#include "playback/stream_info_state.h"
#include "playback/transport/transport_state.h"
#include "program/clip_picture_state.h"
#include "program/codec_window_state.h"
#include "program/skin_state.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kvo {

/// The window itself.
struct FaceState {
  std::string caption = "KVO5";
  bool visible = false;
  bool raise = false;  ///< it is to come to the front; the window clears this
  bool fullScreen = false;
  bool minimumDetails = false;  ///< at the start: the picture at the size of its source
  bool stayOnTop = false;
  bool toolTips = true;
  double interfaceSize = 0;  ///< 1, 1.25, 1.5 or 2; 0 goes by the screen
  bool controlsEnabled = true;
};

/// What a clip is; the icon of its row says so.
enum class ClipKind { Video, Still, Sound, Page, Stream };

struct ClipRow {
  std::string name;
  std::string length;  ///< "2:33"; empty when it is not known
  ClipKind kind = ClipKind::Video;
  bool missing = false;  ///< its file is not there; the length says so
  bool operator==(const ClipRow&) const = default;
};

struct ClipListState {
  RevisedList<ClipRow> Fillist;  ///< a row for each clip, in the collection's order
  int ListIndex = -1;            ///< the row of the clip in hand, from 0; -1 for none
  std::vector<int> chosen;  ///< numbers, from 1 and ascending, of what is chosen; the clip in hand among them
  std::string caption;      ///< "Holiday Collection"
  std::string tip;          ///< where the clip in hand comes from
  std::uint64_t pictures = 0;  ///< higher each time that a picture of a row may have come
  bool visible = false;
  bool rename = false;  ///< the name of the clip in hand is to be edited in its row; the window clears this
};

/// The keys beside the list: which can be pressed.
struct ListKeysState {
  bool UP = false;
  bool DOWN = false;
  bool ADD = true;
  bool Cross = false;
  bool SORT = false;
};

/// The pane that stands in the place of everything else while there is no clip.
struct EmptyPaneState {
  std::string NoMediaPrompt;
  bool visible = true;
};

/// Below the list.
struct CollectionDetailsState {
  std::string clips;      ///< "7 clips"
  std::string totalTime;  ///< "3m 41s"
  bool visible = false;
};

/// A caption and its value.
struct Detail {
  std::string caption;
  std::string value;
  std::string tip{};  ///< a click on the value tells more, and this says so; empty where none does
  bool operator==(const Detail&) const = default;
};

/// What is told of the clip in hand.
struct DetailsState {
  std::string name;                ///< the name label
  std::array<Detail, 9> pairs;     ///< three columns of three, each from the top down
  std::vector<std::string> chips;  ///< below the picture: "640 x 480", "25 fps", "Stereo"
  std::string position;            ///< the position label: "Time = 4.16 of 12.40"; empty hides it
  bool visible = false;
};

/// Ticks, and what can be chosen.
struct MenuState {
  bool mnu_LoopCol = false;
  bool mnu_Looping = false;
  bool mnu_RewAtEnd = false;
  bool mnu_PlayWithoutGaps = false;
  bool clipsEnabled = false;  ///< the commands that need a clip
  bool operator==(const MenuState&) const = default;
};

/// The two keys of the history, and its list.
struct HistoryState {
  std::string undo;                 ///< "Undo remove lake at dusk.mpg"; empty when there is nothing to undo
  std::string redo;                 ///< "Redo ..."
  std::vector<std::string> done;    ///< the names of all steps that can be undone, the newest last
  std::vector<std::string> undone;  ///< of those that can be redone, the next one last
  std::uint64_t revision = 0;       ///< higher with each change of the collection through the history
};

/// The offer to go on where a long clip was left, on its picture.
struct ResumeState {
  std::string chip;  ///< "Resume at 12:34"; empty while there is no offer
};

/// The small picture over the slider, where the pointer is.
struct HoverState {
  bool visible = false;
  double part = 0;                              ///< of the line, 0 to 1
  std::string time;                             ///< "12:34"
  std::shared_ptr<const FramePicture> picture;  ///< null for a clip without one, and until it has come
};

/// Long work that goes on.
struct ProgressState {
  std::string status;  ///< "Loading Clip 5 of 20", and a line for the file at work; empty while there is none
  std::string abortText;  ///< a click on it stops the work; empty while nothing can be stopped
  bool abortClicked = false;
  int done = 0;  ///< of `total` pieces of work; both 0 while it is not known how much there is
  int total = 0;

  /// Asks work that can be stopped to stop. Nothing else is touched: the wish does not wait for later work.
  void abort() {
    if (!abortText.empty()) abortClicked = true;
  }
};

struct MainWindowState {
  FaceState face;
  ClipListState list;
  ListKeysState listKeys;
  EmptyPaneState emptyPane;
  CollectionDetailsState collectionDetails;
  DetailsState details;
  SliderState slider;
  DisplayState display;
  PositionsState positions;
  TransportState transport;
  MenuState menu;
  HistoryState history;
  ProgressState progress;
  SkinState skin;
  DisplayModeState mode;
  ButtonsState buttons;
  ClipPictureState picture;
  ResumeState resume;
  HoverState hover;
  CodecWindowState codec;
  StreamInfoState streamInfo;
  WorkGlance queue;          ///< of the renders in the background
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
  /// Nothing is left of the command but to load what it leads to, which may take a while: others are let in.
  void open() const {
    if (given_) window_.commandRuns = false;
  }

 private:
  MainWindowState& window_;
  const bool given_;
};

}  // namespace kvo
