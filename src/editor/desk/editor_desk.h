// The open editor: the tabs lie on it, and it sees to what they have in common. It opens and closes, watches
// for changes, makes and marks clips, and is the gate of the history for all of them.
#pragma once

#include "editor/desk/clip_files.h"
#include "editor/desk/desk_doors.h"
#include "editor/desk/editor_window_state.h"
#include "editor/desk/playhead.h"
#include "editor/preview/preview_host.h"
#include "editor/tabs/editing.h"
#include "ports/last_wish.h"
#include "program/list_commands.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

class EditorDesk : public PreviewHost {
 public:
  struct Parts {
    EditorWindowState& state;
    MainWindowState& window;
    const Editing& editing;
    EventLoop& loop;
    History& history;
    ClipList& list;
    ListCommands& commands;
    DeskPreview& preview;
    PresumedFiles& streams;  ///< which the editing asks
  };
  /// All of it outlives the desk.
  EditorDesk(const Parts& parts, MainWindowDoors doors);

  /// The rules of the tabs, which are made behind the desk.
  void tabs(DeskTabs tabs, PreviewControls controls) {
    tabs_ = std::move(tabs);
    controls_ = std::move(controls);
  }

  /// Hears that files have been looked into that were not known. May be empty.
  void whenLooked(std::function<void()> heard) { looked_ = std::move(heard); }

  // The window

  /// Opens it on the collection. What the files of the clips hold is looked up first, in the background.
  /// Nothing while another command runs. When it is open it comes to the front.
  void Form_Load();
  /// Closes it. What the user has set stays in the records.
  void Form_QueryUnload();
  /// The same with the whole program: no clip is loaded any more.
  void leave();
  [[nodiscard]] bool isOpen() const { return parts_.state.frame.visible; }
  /// It is open, and waits for what the files of the clips hold.
  [[nodiscard]] bool isOpening() const { return opening_; }
  /// Opens without waiting for the files that have not been looked into, and says which. Each is looked into
  /// when its clip is taken in hand, and all at the next opening.
  void stopAnalysing();
  /// What the files of the clips hold is known: a compile waits for none of them.
  [[nodiscard]] bool knowsFiles() { return files_.known(parts_.editing.collection); }
  /// Another collection is open.
  void collectionOpened();

  // The clip in hand

  /// Ahead of each drawing: see Playhead::follow.
  void follow() { playhead_.follow(); }
  /// The main window plays the clip in hand: see Playhead.
  void letPlay() { playhead_.letPlay(); }
  /// Where the user is.
  [[nodiscard]] const Playhead& playhead() const { return playhead_; }
  /// The wheel has gone on by so many pictures, or back.
  void jog(int pictures);
  /// One of the keys; nothing where clipKeys says that it cannot be pressed.
  void press(ClipKey key);
  /// Parts the clip in hand at the playhead. Why it cannot be parted there, or empty.
  std::string split();
  /// A key or the mouse is held down in a window of the editor, or let go: what is done meanwhile is one
  /// step.
  void hold(bool held);

  /// Sld_Rate, in hundredths of normal speed, and the hand that lets it go.
  void moveRate(int hundredths);
  void letGoRate();
  /// Sld_AudioOut, in tenths of full level.
  void moveLevel(int tenths);
  /// KVOBut_SaveProject, which asks for a name, and Ctrl+S, which does so only where there is no file yet.
  /// They give what is said of it, composed; empty where nothing was saved.
  std::string saveProject();
  std::string saveAgain();
  /// Tools are off for a reason, composed, that has nothing to do with the preview; empty for none any more.
  void toolsOffFor(const std::string& because);
  /// Cmd_Help: how a movie is made.
  void Cmd_Help() const;

  // Of the tabs
  bool edit(std::string_view act, int clipNo, Integer changeCode, const std::function<void()>& work) override;
  void UpDateFrmFileOpen(int clipNo, bool pause) override;
  void sample(Sample what, int clipNo) override;
  void KillPreview() override;
  void ShowClipStats() override;
  void buildClipSliders() override;
  void Buildtabs(int tab) override;

  // Of the preview
  [[nodiscard]] bool mayEdit() const override { return !parts_.window.busy(); }
  [[nodiscard]] bool isAtRest() const override { return isOpen() && !opening_ && !held_; }
  void haltPlayer() override { doors_.haltPlayer(); }
  void parkPlayer() override { doors_.parkPlayer(); }
  void FrmFileOpenToolsOnOff(bool on) override;
  void watchChanges(bool on) override;
  void selectRow(int clipNo) override;
  void movieStands(double seconds) override;
  void Displaymovieinfo() override;
  void restoreCaption() override;
  void deleteWorkFiles() override;
  [[nodiscard]] StillControls stillControls() const override { return controls_.stills(); }
  [[nodiscard]] bool Chk_AutoRewind() const override { return controls_.Chk_AutoRewind(); }
  void previewChanged() override { doors_.draw(); }

 private:
  struct Snapshot {
    std::string clip;  // its file
    double seconds = 0;
    std::string path;  // of the still
  };

  void showCaption();
  void showTools();
  void finishOpening();
  void fileEffects();
  void begin();
  void restoreTabs();
  void looked(const LookedSoFar& news);
  void tellPassedOver(const std::vector<std::string>& files);
  void Tmr_CheckChanges_Timer();
  void countTick();
  void tellLackOfVideo();
  bool followsCollection();
  void membershipChanged();
  void takeSounds();
  void retime(bool isOther);
  void followTab(Integer code);
  void carryOut(ClipKey key);
  [[nodiscard]] std::string saved(const std::function<bool()>& save) const;
  void takeSnapshot();
  void tellSought();
  void keepSnapshot(const Snapshot& wish, const Result<FramePicture>& picture);
  [[nodiscard]] Result<FramePicture> frameOf(const Snapshot& wish) const;
  void resetMark(bool in);
  [[nodiscard]] const Movie* clip() const;
  [[nodiscard]] RunState& run() const { return parts_.editing.settings.state; }

  Parts parts_;
  MainWindowDoors doors_;
  DeskTabs tabs_;
  PreviewControls controls_;
  std::function<void()> looked_;
  Playhead playhead_;
  ClipFiles files_;
  std::unique_ptr<Timer> Tmr_CheckChanges_;
  std::unique_ptr<Timer> analysing_;
  std::unique_ptr<Timer> begin_;
  LastWish<Snapshot, Result<FramePicture>> snapshots_;
  std::string filedEffects_;  // the effects table as its file has it; empty until it is read, once a run
  bool opening_ = false;
  bool toolsOn_ = true;      // as far as the preview goes
  std::string offBecause_;   // of all else; empty for none
  bool lacksVideo_ = false;  // and it is still to be told
  bool editing_ = false;     // inside an edit
  int sought_ = 0;           // the clip that the playhead has come to, which the open tab has to follow
  bool following_ = false;   // it does so now, and leaves what is seen alone
  bool held_ = false;        // by the user, a key or the mouse
  int analysingTicks_ = 0;
  bool filmWasShown_ = false;
  int ticks_ = 0;
  int followed_ = 0;                // the clip that the open tab has heard of last
  bool LoopPreviews_ = false;       // as they were ahead of the opening
  bool SliderPauseOnRepo_ = false;  // likewise
};

}  // namespace kvo
