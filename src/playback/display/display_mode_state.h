// The three faces of the main window, as data: the normal face with its skin and keys, with details or with
// as few as can be; the Free Zoom face, sizable and without a skin; and Free Zoom covering the screen.
// `Display` writes it, the window draws it and tells what the window system did to its size. Lengths are
// twips of the window's inside unless they say otherwise.
#pragma once

#include "playback/geometry.h"
#include "playback/player.h"
#include "ports/desktop.h"

#include <array>
#include <cstdint>
#include <string>

namespace kvo {

enum class BorderStyle {
  Skinned,   ///< no frame, the outline of the mask, not to be sized
  Sizable,   ///< the desktop's own frame
  Covering,  ///< no frame, the whole screen
};

/// The window as a whole.
struct WindowShape {
  Place place;  ///< left and top are of use while it covers the screen; else they are the desktop's affair
  BorderStyle border = BorderStyle::Skinned;
  /// What stands in the frame. Empty: the normal face's own caption.
  std::string caption;
  /// Higher each time that the program itself has set `place`: the window then takes that size.
  std::uint64_t placings = 0;
};

/// The labels that take the mouse on the toolbar of Free Zoom, from left to right.
enum class HitLabel {
  Lbl_PlayGraphic,
  Lbl_PauseGraphic,
  Lbl_Rew5d,
  Lbl_Snglfrbackdummy,
  Lbl_F1Dummy,
  Lbl_Adv5dummy,
  lbl_Speed025,
  Lbl_Speed05,
  Lbl_Speed02,
  Lbl_SliderMiniMode,
  Lbl_MinMax,
  Lbl_MiniMode,
};
inline constexpr std::size_t kHitLabels = 12;

struct HitLabelState {
  Twips left = kParked;
  Twips width = 0;
  bool visible = false;
  std::string toolTip;  ///< of Lbl_MinMax and Lbl_MiniMode; the others' are the transport's
};

/// The toolbar of Free Zoom. Its labels take the mouse over its whole upper part.
struct ToolbarState {
  Control Img_Toolbar;
  std::array<HitLabelState, kHitLabels> labels;

  [[nodiscard]] HitLabelState& operator[](HitLabel label) { return labels[static_cast<std::size_t>(label)]; }
  [[nodiscard]] const HitLabelState& operator[](HitLabel label) const {
    return labels[static_cast<std::size_t>(label)];
  }
};

/// The line of the slider and its handle, in both faces. The normal face and the toolbar have it elsewhere.
struct SliderPlace {
  Twips X1 = 0;       ///< left end of the line
  Twips X2 = 0;       ///< right end
  Twips Y = 0;        ///< height of the line
  Control ImageBlob;  ///< the handle
  bool operator==(const SliderPlace&) const = default;
};

/// What of the normal face the modes turn on and off.
struct PanelsState {
  bool FraDets = false;   ///< details of the clip
  bool CollDets = false;  ///< details of the collection
  Control Fillist;        ///< the clip list with its keys and its caption
  Control nameLabel;      ///< name of the clip, over the picture
  Control Lbl_Pos;        ///< position
  Control Lbl_StreamInfo;
  Control Label2;  ///< "Anim ON" and "Anim OFF"
  bool Label2On = false;
  bool picLogo = true;           ///< the spine at the left
  bool Pic_NoVid = false;        ///< lbl_Novid may stand in the picture's place
  bool Pic_DigNumbers = true;    ///< the big digits; false leaves them unlit
  std::uint64_t osdsKilled = 0;  ///< when it grows, what lies over the picture closes
};

/// Ticks of menus; a menu of that name shows them.
struct DisplayTicks {
  bool mnu_DirXZoom50 = false;
  bool mnu_DirXZoom100 = false;
  bool mnu_DirXZoom200 = false;
  bool mnu_DirXFullSC = false;
  bool mnu_LockAspect = false;
  bool mnu_ShowSlider = false;
  bool lockAndZoomEnabled = true;  ///< mnu_LockAspect and mnu_Zoomhdr can be chosen
};

/// A still in its own place; it is shown instead of the player.
struct StillPlace {
  Control Img_Still;
  bool stretch = true;  ///< false: the place is the picture's own size, and follows that of the window
  std::string path;     ///< full path of the picture
};

struct DisplayModeState {
  // Modes
  bool IsMiniMode = false;          ///< the Free Zoom face
  bool IsFullScreenWindow = false;  ///< it covers the screen
  bool pictureAlone = false;  ///< the picture covers the screen, whatever the face; from one clip to the next
  bool clipFollows = false;   ///< the clip in hand has come by itself, and not by a choice of the user's
  bool IsResizing = false;    ///< the program sets the size itself: the layout is left alone
  bool DetailsWereOn = false;  ///< noted on entering Free Zoom
  int StartScreenWidth = 0;    ///< pixels, noted at start; 0 for not yet
  int StartScreenHeight = 0;
  double interfaceSize = 1;  ///< 1, 1.25, 1.5 or 2: as it is in force, chosen or not

  ScreenArea onDesktop;  ///< where the window stands, in the desktop's pixels

  WindowShape window;
  ToolbarState toolbar;
  SliderPlace slider;
  PanelsState panels;
  DisplayTicks ticks;
  StillPlace still;
  PlayerState player;
  Control Med_AudAnim;  ///< the animation behind sound

  /// 15, 12, 10 or 7.5
  [[nodiscard]] Twips twipsPerPixel() const { return 15 / interfaceSize; }
  /// What a label of the toolbar stands for is on.
  [[nodiscard]] bool isLit(HitLabel label) const;
};

}  // namespace kvo
