// The commands that change the face of the main window, and what each does to the place of the picture. They
// write a DisplayModeState and never touch a window; what they need of the rest of the program they ask of a
// DisplayHost.
#pragma once

#include "core/records/collection.h"
#include "playback/buttons.h"
#include "playback/display/display_mode_state.h"
#include "playback/display/face_layout.h"
#include "playback/play_timers.h"
#include "ports/desktop.h"
#include "ports/message_boxes.h"

#include <optional>
#include <string>

namespace kvo {

/// What a change of face asks of the rest of the main window.
class DisplayHost {
 public:
  DisplayHost() = default;
  DisplayHost(const DisplayHost&) = delete;
  DisplayHost& operator=(const DisplayHost&) = delete;
  virtual ~DisplayHost() = default;

  /// Paints the stored skin and the keys on it.
  virtual void skins() = 0;
  /// Gives the window the outline of the mask, or that of a plain rectangle.
  virtual void ShapeMe() = 0;
  virtual void ShapePlain() = 0;
  /// Writes a caption on the spine; nothing is painted anew when it is the same.
  virtual void FadBorder(const std::string& caption) = 0;
  /// The details of clip `number` as they are shown.
  virtual void Displaymovieinfo(int number) = 0;
  /// Loads clip `number` again.
  virtual void PreviewMovie(int number) = 0;
  /// The window no longer stays above the others.
  virtual void untickStayOnTop() = 0;
};

class Display {
 public:
  struct Parts {
    DisplayModeState& mode;
    Player& player;
    Buttons& buttons;
    PlayTimers& timers;
    KVO2& settings;
    Collection& collection;
    Desktop& desktop;
    MessageBoxes& boxes;
    DisplayHost& host;
  };
  explicit Display(const Parts& parts)
      : parts_(parts),
        layout_({parts.mode, parts.player, parts.timers, parts.settings, parts.collection, parts.desktop}) {}

  /// The normal face as it is at start, at this interface size; notes the size of the screen.
  void Form_Load(double interfaceSize);

  /// Another size of the interface: the normal face stays the same in twips; keys and pictures change.
  void setInterfaceSize(double size);
  /// Puts the size in force that the user has chosen, 0 being the screen's; the first time it is Form_Load.
  void takeInterfaceSize(double choice, bool largeText);
  /// True when the first screen has room for this interface size.
  [[nodiscard]] bool sizeFits(double size) const;

  /// Places the player and the labels for the clip in hand. Called whenever another clip is loaded, which
  /// ends an animation first.
  void PositionAndSize();
  /// Shows the still in hand in the player's place.
  void PositionandShowStill();
  /// Ends the animation behind sound.
  void EndAnim();

  /// Enters the Free Zoom face or leaves it. An empty collection and an endless stream stay where they are,
  /// and a box says so.
  void Lbl_MiniMode_Click();
  /// In Free Zoom: covers the screen, or goes back to a size of the window's own.
  void Lbl_MinMax_Click();
  /// Covers the screen, from each face; and from there, or from the picture alone, back to a window.
  void coverOrBack();
  /// One step back: from the picture alone to the face, from the whole screen to a window, from that to the
  /// normal face. False there.
  bool stepBack();
  /// To the normal face with as few details as can be.
  void Lbl_MinDets_Click();
  /// Turns the detail panels off or on; the player is placed anew.
  void AllDetOff();
  void AllDetOn();
  /// The one or the other.
  void turnDetails();
  /// The picture at the size of its source, with nothing about it.
  void startAtSourceSize();
  /// The slider on the toolbar of Free Zoom, shown or not.
  void Lbl_SliderMiniMode_Click();
  /// Shows the slider when `mnu_ShowSlider` is ticked, and else hides it.
  void ShowSliderStuff();
  /// In Free Zoom: the window takes this much of the clip's size: 50, 100 or 200; where it covers the screen
  /// the picture does, until the next change of size.
  void ResizePercent(int percent);

  /// The window system has given the window this size, in twips of its inside. A size that the program has
  /// asked for itself, to the pixel, changes nothing.
  void Form_Resize(Twips width, Twips height);
  /// The window stands here on the desktop, in pixels.
  void Form_Move(const ScreenArea& place) { parts_.mode.onDesktop = place; }
  /// The picture alone on the whole screen, or back; it begins with nothing but a clip that has one, and then
  /// goes on with whatever is played or shown.
  void mnu_DirXFullSC_Click();
  /// Back from there. False for a picture that does not cover the screen.
  bool leaveFullPicture();
  /// Keeps tick, flag and menus in step with what the player says of its full screen.
  void SortFullScreen();

 private:
  void enterFreeZoom();
  void leaveFreeZoom();
  void showFreeZoom();
  void sizeFreeZoom();
  void changeCover(bool cover);
  void toSizable();
  void coverScreen();
  bool mustStay();
  void startMonitors();
  void stopMonitors();
  void goOnAs(const PlayerState& before);
  void tellKeys(const PlayerState& player);
  void tellOfScreen();
  void tellOfToolbar();
  void placeAnew();
  void takeSourceSize();
  void showDetails(bool on);
  void closeDisplays();
  void tickZoom(int percent);
  [[nodiscard]] bool editing() const { return parts_.settings.state.KVOIsInEditMode; }

  Parts parts_;
  FaceLayout layout_;
  std::optional<std::string> toldOfToolbar_;  // the collection for which the hint has been shown
  bool hasLoaded_ = false;
  bool sliderWasOn_ = false;  // when Free Zoom was entered
  Place refused_;             // the size that the window system last gave the normal face
};

}  // namespace kvo
