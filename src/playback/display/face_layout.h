// Carries the layout of the present face out: where player, still, toolbar and labels stand after a change of
// clip or of size. Which face it is, others decide: see Display.
#pragma once

#include "core/records/collection.h"
#include "playback/display/display_mode_state.h"
#include "playback/display/layout.h"
#include "playback/play_timers.h"
#include "ports/desktop.h"

#include <optional>
#include <string>

namespace kvo {

/// The clip that the list selects.
struct ClipInHand {
  int number = 0;
  std::string path;  ///< folder and name
  ClipFacts facts;
};

class FaceLayout {
 public:
  struct Parts {
    DisplayModeState& mode;
    Player& player;
    PlayTimers& timers;
    KVO2& settings;
    const Collection& collection;
    Desktop& desktop;
  };
  explicit FaceLayout(const Parts& parts) : parts_(parts) {}

  [[nodiscard]] std::optional<ClipInHand> clip() const;
  [[nodiscard]] LayoutModes modes() const;
  [[nodiscard]] LayoutSizes sizes() const;
  /// The one that the window stands on.
  [[nodiscard]] Screen screen() const;

  /// Places the clip; gives the layout that has been carried out.
  Layout PositionAndSize(const ClipInHand& clip);
  /// Shows a still in the player's place.
  void PositionandShowStill(const ClipInHand& clip);
  /// Sets the places of the labels for the face.
  void ReposAllLabels();
  void ShowSliderStuff();
  /// Gives the window a size, as the program itself: what hangs on the size follows, and what the user sizes
  /// only where IsResizing is not held.
  void setWindow(const Place& place);
  /// What hangs on the size of the window.
  void resized();
  /// Fits the player to a window of Free Zoom.
  void ResizetoFullsc();
  /// Fits a still to a window of Free Zoom, unless it fills a place of its own.
  void ResizeStillInMiniMode();
  void placePlayer(const Place& place);

 private:
  void apply(const Layout& layout);
  void layOutToolbar();
  void layOutSlider();

  Parts parts_;
};

}  // namespace kvo
