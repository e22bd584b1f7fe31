// The words that the keys of the main window are told by: which picture goes where, and what is lit. Nothing
// is drawn here, and the Free Zoom face has no keys: there the words only say whether the player plays.
#pragma once

#include "playback/buttons_state.h"
#include "playback/display/display_mode_state.h"
#include "playback/key_words.h"
#include "playback/play_timers.h"
#include "playback/player.h"

namespace kvo {

/// The editor's window, which the step keys move instead while it is open.
class EditorSteps {
 public:
  EditorSteps() = default;
  EditorSteps(const EditorSteps&) = delete;
  EditorSteps& operator=(const EditorSteps&) = delete;
  virtual ~EditorSteps() = default;

  virtual void FON() = 0;   ///< one frame on, pressed
  virtual void FOFF() = 0;  ///< and let go
  virtual void RON() = 0;   ///< one frame back, pressed
  virtual void ROFF() = 0;
};

class Buttons {
 public:
  /// All outlive the buttons.
  Buttons(ButtonsState& buttons, DisplayModeState& display, Player& player, PlayTimers& timers)
      : buttons_(buttons), display_(display), player_(player), timers_(timers) {}

  /// Whom the step keys are passed on to; null while the editor is closed.
  void editor(EditorSteps* editor) { editor_ = editor; }

  /// Draws one key, or changes the play group. With `playOn` the play key is lit, whatever the word.
  void BuildButton(KeyWord word, bool playOn = false);

  /// Draws every key once; with `stepButtons` those that step and set the speed too, which else are disabled.
  /// What was playing goes on.
  void BuildAllButs(bool stepButtons);

  /// Moves what is drawn to where it belongs at the size of the interface in force.
  void placeAnew();

  /// One picture of the play group each, and the flags IsPlaying and IsPaused that it stands for.
  void PlayOn();
  void PlayOff();
  void PauseOn();
  void PauseOff();

 private:
  bool playWord(KeyWord word);
  void rebuild();
  void playing();
  void draw(KeyWord word);
  void become(PlayGroup group);
  void passOn(KeyWord word);

  ButtonsState& buttons_;
  DisplayModeState& display_;
  Player& player_;
  PlayTimers& timers_;
  EditorSteps* editor_ = nullptr;
};

}  // namespace kvo
