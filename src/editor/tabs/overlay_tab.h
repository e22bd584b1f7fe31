// The tab Overlay: one clip laid over another, and how.
#pragma once

#include "editor/compiler/picture_in_picture.h"
#include "editor/tabs/clip_lists.h"
#include "editor/tabs/editor_parts_state.h"
#include "editor/tabs/tab_host.h"

#include <array>
#include <string>

namespace kvo {

/// Its caption, and whether the clip has a sound that it can be ticked for.
struct AudioBox {
  std::string caption;
  bool enabled = false;
};

AudioBox overlayAudioBox(const Movie& clip);
AudioBox backdropAudioBox(const Movie& clip);

/// A box by which the sound of one of the two clips comes into the new clip.
struct OverlaySound {
  AudioBox box;
  bool ticked = false;
  std::string whyNot;  ///< it is off; whole, empty where it is not

  [[nodiscard]] bool isHeard() const { return ticked && box.enabled; }
};

struct OverlayTab {
  ListBox Lst_PicinPicBackdrop;
  ListBox Lst_PicinPicOverlays;
  PicInPic look;                   ///< Opt_Transstyle, Lst_OverlayPos, the sliders' values and the trim box
  bool enabled = false;            ///< a backdrop is chosen
  bool Pic_NoPinp = false;         ///< no overlay is chosen yet: there is nothing to keep
  ClipSlider Sld_MaxTransparency;  ///< per cent
  ClipSlider Sld_OverlayIn;        ///< milliseconds
  ClipSlider Sld_OverlayOut;       ///< milliseconds
  OverlaySound overlaySound;
  OverlaySound backdropSound;
  std::string whyNot;      ///< no backdrop is chosen; whole, empty where one is
  std::string pairWhyNot;  ///< there is no pair to render or to clear; likewise
  std::string notice;      ///< at the foot. Whole
};

/// The labels of the three sliders: opacity, fade-in, fade-out.
std::array<std::string, 3> SetPicInPicSliderTexts(const PicInPic& look);

/// The tab is opened.
void enterTab(const Editing& e, OverlayTab& tab, TabHost& host);
/// A change was heard of while it is open.
void followTab(const Editing& e, OverlayTab& tab, TabHost& host, bool rebuild);

/// A row of either list, from 0.
void chooseBackdrop(const Editing& e, OverlayTab& tab, TabHost& host, int row);
void chooseOverlay(const Editing& e, OverlayTab& tab, TabHost& host, int row);

void chooseOverlayStyle(const Editing& e, OverlayTab& tab, TabHost& host, OverlayStyle style);
/// 1 to 15.
void chooseOverlayPosition(const Editing& e, OverlayTab& tab, TabHost& host, int position);
void moveMaxOpacity(const Editing& e, OverlayTab& tab, TabHost& host, int percent);
void moveOverlayIn(const Editing& e, OverlayTab& tab, TabHost& host, int milliseconds);
void moveOverlayOut(const Editing& e, OverlayTab& tab, TabHost& host, int milliseconds);
void tickTrimOverlay(const Editing& e, OverlayTab& tab, TabHost& host, bool on);
/// Whether the sound of the overlay, or of the backdrop, comes into the new clip.
void tickOverlaySound(const Editing& e, OverlayTab& tab, TabHost& host, bool on);
void tickBackdropSound(const Editing& e, OverlayTab& tab, TabHost& host, bool on);

/// KVOBut_PicInPicClear: the backdrop has no overlay any more.
void clearPicInPic(const Editing& e, OverlayTab& tab, TabHost& host);

}  // namespace kvo
