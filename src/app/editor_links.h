// What the editor's desk, tabs, preview and timeline ask of each other and of the main window: wiring, and
// no rules.
#pragma once

#include "app/analysing_film.h"
#include "app/play_links.h"
#include "app/session.h"
#include "editor/desk/file_watch.h"
#include "editor/desk/timeline_desk.h"
#include "editor/preview/preview_engine.h"
#include "editor/preview/standing_picture.h"
#include "editor/tabs/audio_tab.h"
#include "editor/tabs/color_tab.h"
#include "editor/tabs/create_tab.h"
#include "editor/tabs/effect_tab.h"
#include "editor/tabs/keyframe_window.h"
#include "editor/tabs/overlay_tab.h"
#include "editor/tabs/stills_tab.h"
#include "editor/tabs/transition_tab.h"
#include "editor/timeline/timeline_hand.h"
#include "engine/run/engine_player.h"
#include "ports/sound_output.h"
#include "ports/text_questions.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace kvo {

/// The states of all parts of the editor's window.
struct EditorStates {
  EditorWindowState window;
  EditorHistory history;
  PreviewState preview;
  TimelineState timeline;
  CreateTab create;
  AudioTab audio;
  TransitionTab transition;
  EffectTab effect;
  StillsTab stills;
  ColorTab color;
  OverlayTab overlay;
  KeyframeWindow keyframes;
};

class EditorLinks : public DeskPreview {
 public:
  struct Parts {
    MainWindowState& window;
    Session& session;
    EventLoop& loop;
    UserStore& store;
    History& history;
    ClipList& list;
    ListCommands& commands;
    CollectionCommands& collections;
    Mailbox& mailbox;
    FaceLinks& face;
    PlayLinks& play;
    std::function<void()> draw;                  ///< all windows
    std::function<void(int x, int y)> openMenu;  ///< of the list, at a place of the screen
    TextQuestions& questions;
  };
  /// `sound` may be null. The parts outlive the object.
  EditorLinks(const Parts& parts, std::unique_ptr<SoundOutput> sound);

  /// Ctrl+M, and the key Create Movie.
  void CreateMovie() { desk_.Form_Load(); }

  /// Ahead of each drawing: what the states show of each other.
  void settle();

  [[nodiscard]] EditorStates& states() { return states_; }
  [[nodiscard]] EditorDesk& desk() { return desk_; }
  [[nodiscard]] PreviewEngine& preview() { return preview_; }
  [[nodiscard]] CreateRules& create() { return create_; }
  [[nodiscard]] TransitionRules& transition() { return transition_; }
  [[nodiscard]] NameChooser& effectNames() { return effectNames_; }
  [[nodiscard]] TimelineHand& hand() { return hand_; }
  [[nodiscard]] const Editing& editing() const { return parts_.session.editing; }

  /// Below 0 undoes so many steps, above 0 redoes. Why not, composed, where there is nothing.
  std::string goInHistory(int steps);
  /// For the user: the window opens with it from now on.
  void keepTimelineHeight(int pixels);
  /// Escape while the tools are off: what has them off ends.
  void stop();
  /// Frm_Keyframe opens for the effect that is worked on.
  void showKeyframes();
  /// What the clip in hand has at a frame, in the preview's place.
  void showClipFrame(Long frame);

  // Of the desk
  void KillPreview() override;
  void sample(Sample what, int clipNo) override { preview_.sample(what, clipNo); }
  [[nodiscard]] bool isPlaying() const override;  ///< the movie
  void movieIsStale() override { preview_.movieIsStale(); }
  void standAt(double seconds) override { preview_.standAt(seconds); }
  void showClip() override { preview_.showClip(); }

 private:
  [[nodiscard]] MainWindowDoors mainWindow();
  [[nodiscard]] TimelineDesk::Doors timelineDoors();
  [[nodiscard]] DeskTabs tabs();
  void standPlayer(double seconds);
  void nameClip();
  void showSlider();
  void UpdateKeyFramesIfWeHaveTo();
  [[nodiscard]] FileWatch::Paths filesOfClips() const;
  void missed(const FileWatch::Paths& files);
  void showBlocks();

  Parts parts_;
  EditorStates states_;
  NewestPicture pictures_;
  engine::EnginePlayer player_;
  EditorDesk desk_;
  PreviewEngine preview_;
  CreateRules create_;
  TransitionRules transition_;
  NameChooser effectNames_;
  AnalysingFilm film_;
  TimelineDesk timelineActs_;
  TimelineHand hand_;
  FileWatch files_;
  StandingPicture standing_;
  bool wasOpen_ = false;
  std::uint64_t historySeen_ = 0;
  std::uint64_t timedSeen_ = 0;
  std::uint64_t compilesSeen_ = 0;
  std::uint64_t openedSeen_ = 0;
};

}  // namespace kvo
