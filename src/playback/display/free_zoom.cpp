// The ways between the normal face, Free Zoom, and Free Zoom covering the screen. The play timers stand still
// while a layout is half made.
#include "base/holding.h"
#include "core/telling/messages.h"
#include "playback/display/display.h"
#include "playback/display/screens.h"

namespace kvo {
namespace {

constexpr const char* kCaption = "KVO5 - Free Zoom Mode";
constexpr double kMostOfScreen = 2.0 / 3;  // of a side that a window may take by a clip's size on entering

}  // namespace

bool DisplayModeState::isLit(HitLabel label) const {
  switch (label) {
    case HitLabel::Lbl_PlayGraphic:
      return player.IsPlaying;
    case HitLabel::Lbl_PauseGraphic:
      return player.IsPaused;
    case HitLabel::Lbl_SliderMiniMode:
      return ticks.mnu_ShowSlider;
    case HitLabel::Lbl_MinMax:
      return IsFullScreenWindow;
    default:
      return false;
  }
}

void Display::Lbl_MiniMode_Click() {
  if (parts_.mode.IsMiniMode) return leaveFreeZoom();
  enterFreeZoom();
  if (parts_.mode.DetailsWereOn) tellOfToolbar();
}

void Display::Lbl_MinMax_Click() {
  if (!parts_.mode.IsMiniMode) return;
  changeCover(!parts_.mode.IsFullScreenWindow);
  tellOfToolbar();
}

void Display::coverOrBack() {
  if (leaveFullPicture()) return;
  if (!parts_.mode.IsMiniMode) enterFreeZoom();
  Lbl_MinMax_Click();
}

bool Display::stepBack() {
  if (leaveFullPicture()) return true;
  if (!parts_.mode.IsMiniMode) return false;
  parts_.mode.IsFullScreenWindow ? changeCover(false) : leaveFreeZoom();
  return true;
}

bool Display::mustStay() {
  const auto& clips = parts_.collection.MovieList;
  const auto clip = layout_.clip();
  // Sound without an end.
  const bool radio = clip && clip->facts.IsStream && clip->facts.sourceWidth <= 0 &&
                     clips[clip->number].DurationTime().wholeNumber().value_or(0) <= 0;
  if ((!clips.empty() || editing()) && !radio) return false;
  parts_.boxes.show({std::string(LoadResString(240)), std::string(LoadResString(239))});
  return true;
}

void Display::enterFreeZoom() {
  auto& mode = parts_.mode;
  stopMonitors();
  if (!mustStay()) {
    parts_.timers.Timer8.stop();
    showFreeZoom();
    sizeFreeZoom();
    if (mode.DetailsWereOn) changeCover(false);
  }
  startMonitors();
}

void Display::showFreeZoom() {
  auto& mode = parts_.mode;
  auto& panels = mode.panels;
  auto& details = parts_.settings.state.AllDetOff;
  closeDisplays();
  sliderWasOn_ = mode.ticks.mnu_ShowSlider;
  mode.ticks.mnu_ShowSlider = false;
  mode.IsMiniMode = true;
  mode.DetailsWereOn = !details;
  mode.window.border = BorderStyle::Sizable;
  mode.window.caption = kCaption;
  parts_.host.ShapePlain();
  mode.toolbar[HitLabel::Lbl_MiniMode].toolTip = LoadResString(248);
  mode.toolbar[HitLabel::Lbl_MinMax].toolTip = "Full Screen Mode";

  mode.toolbar.Img_Toolbar.visible = true;
  panels.Pic_DigNumbers = panels.picLogo = panels.Pic_NoVid = false;
  panels.FraDets = panels.CollDets = false;
  panels.Lbl_Pos.visible = panels.nameLabel.visible = panels.Label2.visible = panels.Fillist.visible = false;
  layout_.ReposAllLabels();
  layout_.ShowSliderStuff();
  mode.Med_AudAnim.place.left = panels.Lbl_StreamInfo.place.left = panels.Fillist.place.left = kParked;
}

// The size on entering; where the details were on, the clip's own size follows.
void Display::sizeFreeZoom() {
  auto& mode = parts_.mode;
  const auto clip = layout_.clip();
  Place size{0, 0, kZoomWidth, kZoomHeight};
  if (clip && clip->facts.IsTrueRM && !parts_.player.PlayerIsEmpty() && !mode.panels.Label2On) {
    auto sizes = layout_.sizes();
    const auto most = layout_.screen().whole;
    sizes.roomWidth = sizes.roomHeight = 0;
    const auto own = windowOf(clip->facts, sizes, kToolbarHeight);
    if (own.width <= most.width * sizes.twipsPerPixel * kMostOfScreen &&
        own.height <= most.height * sizes.twipsPerPixel * kMostOfScreen) {
      size = own;
    }
  }
  layout_.setWindow(size);
  tickZoom(100);
  const bool looping = parts_.settings.user.LoopPreviews;
  if (!editing() && !mode.DetailsWereOn && looping) parts_.player.PlayerSetPlayCount(kForEver);
  if (!clip || !clip->facts.IsStill) return;
  const auto unit = mode.twipsPerPixel();
  mode.still.Img_Still.place = {0, kToolbarHeight, clip->facts.StillW * unit, clip->facts.StillH * unit};
  mode.still.stretch = true;
}

void Display::changeCover(bool cover) {
  auto& mode = parts_.mode;
  const auto clip = layout_.clip();
  const bool wasPlaying = mode.player.IsPlaying && !mode.player.clipWaits;
  parts_.timers.Timer1.stop();
  parts_.timers.Timer8.stop();
  if (clip && !clip->path.empty() && !clip->facts.IsTrueRM && !clip->facts.IsStream &&
      !isAudioKind(clip->facts)) {
    parts_.player.PlayerStop();
    parts_.player.PlayerHide();
  }
  if (clip && clip->facts.IsStream) parts_.player.PlayerStop();
  parts_.host.untickStayOnTop();
  tellOfScreen();
  cover ? coverScreen() : toSizable();
  if (clip && hasVideo(clip->facts)) parts_.player.PlayerShow();
  if (clip && clip->facts.IsStill && cover && !editing()) parts_.host.PreviewMovie(clip->number);
  if (wasPlaying && !parts_.player.PlayerIsEmpty()) parts_.player.GlobalMediaPlay();
  startMonitors();
}

void Display::toSizable() {
  auto& mode = parts_.mode;
  const auto clip = layout_.clip();
  mode.IsFullScreenWindow = false;
  mode.window.border = BorderStyle::Sizable;
  mode.window.caption = kCaption;
  mode.toolbar[HitLabel::Lbl_MinMax].toolTip = "Full Screen Mode";
  parts_.player.PlayerSetDisplaySize(0);
  const Holding resizing(mode.IsResizing);
  const auto size =
      clip ? windowOf(clip->facts, layout_.sizes(), kToolbarHeight) : Place{0, 0, kZoomWidth, kZoomHeight};
  layout_.setWindow(size);
  tickZoom(clip && hasVideo(clip->facts) ? 100 : 0);
  if (!clip || !clip->facts.IsStill) return;
  mode.still.Img_Still.place = {0, kToolbarHeight, size.width, size.height - kToolbarHeight};
  mode.still.stretch = false;
}

void Display::coverScreen() {
  auto& mode = parts_.mode;
  mode.IsFullScreenWindow = true;
  mode.window.border = BorderStyle::Covering;
  mode.window.caption.clear();
  mode.toolbar[HitLabel::Lbl_MinMax].toolTip = "Sizable Mode";
  parts_.player.PlayerSetDisplaySize(2);
  if (parts_.settings.state.AllDetOff) mode.panels.nameLabel.visible = false;
  constexpr Twips kNoBorder = 0;  // a covering window has no frame
  layout_.setWindow(kvo::coverScreen(layout_.screen(), mode.twipsPerPixel(), kNoBorder));
}

void Display::leaveFreeZoom() {
  auto& mode = parts_.mode;
  auto& panels = mode.panels;
  stopMonitors();
  mode.IsMiniMode = mode.IsFullScreenWindow = false;
  for (auto& label : mode.toolbar.labels) label.visible = false;
  mode.toolbar[HitLabel::Lbl_MiniMode].toolTip = LoadResString(214);
  mode.toolbar[HitLabel::Lbl_MiniMode].left = kParked;
  mode.toolbar.Img_Toolbar.visible = false;
  mode.toolbar.Img_Toolbar.place.left = kParked;
  parts_.player.PlayerHide();
  parts_.player.SendPlayerFarLeft();
  mode.window.border = BorderStyle::Skinned;
  mode.window.caption.clear();
  {
    const Holding resizing(mode.IsResizing);
    layout_.setWindow({0, 0, kFaceWidth, kFaceHeight});
  }
  if (editing()) {
    parts_.settings.state.KVOIsInEditMode = false;
    parts_.buttons.editor(nullptr);
  }
  parts_.settings.state.AllDetOff = !mode.DetailsWereOn;
  panels.Pic_NoVid = panels.picLogo = panels.Pic_DigNumbers = true;
  EndAnim();
  layout_.ReposAllLabels();
  mode.ticks.mnu_ShowSlider = sliderWasOn_;
  layout_.ShowSliderStuff();
  parts_.host.ShapeMe();
  const auto before = mode.player;  // a skin pauses what plays
  parts_.host.skins();
  goOnAs(before);
  if (const auto clip = layout_.clip()) {
    parts_.host.Displaymovieinfo(clip->number);
    placeAnew();
    if (isAudioKind(clip->facts)) panels.Label2.visible = true;
  }
  startMonitors();
}

void Display::goOnAs(const PlayerState& before) {
  auto& player = parts_.player;
  if (before.IsPlaying && !before.clipWaits && !player.PlayerIsEmpty()) player.GlobalMediaPlay();
  tellKeys(before);
}

// What was told to the face without keys, or to none while the screen was covered.
void Display::tellKeys(const PlayerState& player) {
  const bool plays = player.IsPlaying;
  const bool paused = player.IsPaused;
  if (plays) parts_.buttons.BuildButton(KeyWord::PlayOn);
  if (paused) parts_.buttons.BuildButton(KeyWord::PauseOn);
}

// A desktop whose size has changed since the start.
void Display::tellOfScreen() {
  const auto screen = parts_.desktop.screen();
  const auto tell = [&](int now, int start, int number) {
    if (now == start) return;
    parts_.desktop.beep();
    parts_.boxes.show(
        {"KVO5 - Display", std::string(LoadResString(number)), BoxButtons::Ok, BoxIcon::Warning});
  };
  tell(screen.width, parts_.mode.StartScreenWidth, 249);
  tell(screen.height, parts_.mode.StartScreenHeight, 250);
}

// Once for each collection, and behind everything else: the box is about what is seen then.
void Display::tellOfToolbar() {
  if (editing() || !parts_.mode.IsMiniMode || toldOfToolbar_ == parts_.collection.IniFullPath) return;
  toldOfToolbar_ = parts_.collection.IniFullPath;
  parts_.boxes.showStyled({kCaption,
                           "Right click on the Toolbar to activate the remote control\r\n"
                           "Click the the toolbar itself to show the playlist.",
                           "Click OK to continue", false, false, BoxIcon::Information});
}

}  // namespace kvo
