// The commands within a face, and what the window system does to the window.
#include "playback/display/display.h"

#include "base/holding.h"
#include "core/telling/failures.h"
#include "core/telling/messages.h"
#include "playback/display/interface_size.h"

#include <cmath>
#include <utility>

namespace kvo {

void Display::Form_Load(double interfaceSize) {
  auto& mode = parts_.mode;
  const auto screen = parts_.desktop.screen();
  mode.StartScreenWidth = screen.width;
  mode.StartScreenHeight = screen.height;
  mode.interfaceSize = interfaceSize;
  mode.toolbar[HitLabel::Lbl_MinMax].toolTip = "Full Screen Mode";
  mode.toolbar[HitLabel::Lbl_MiniMode].toolTip = LoadResString(214);
  const Holding resizing(mode.IsResizing);
  layout_.setWindow({0, 0, kFaceWidth, kFaceHeight});
  layout_.ReposAllLabels();
  parts_.player.SendPlayerFarLeft();
  startMonitors();
}

void Display::setInterfaceSize(double size) {
  auto& mode = parts_.mode;
  const double grown = size / mode.interfaceSize;
  if (grown == 1) return;
  mode.interfaceSize = size;
  parts_.buttons.placeAnew();
  if (mode.IsMiniMode) {  // the window keeps its pixels
    mode.window.place.width /= grown;
    mode.window.place.height /= grown;
    layout_.resized();
    return;
  }
  ++mode.window.placings;
  placeAnew();
}

void Display::takeInterfaceSize(double choice, bool largeText) {
  const double size = sizeInForce(parts_.desktop.screens(), choice, largeText);
  std::exchange(hasLoaded_, true) ? setInterfaceSize(size) : Form_Load(size);
}

bool Display::sizeFits(double size) const { return kvo::sizeFits(parts_.desktop.screens(), size); }

void Display::PositionAndSize() {
  const auto clip = layout_.clip();
  if (!clip) return;
  const auto layout = layout_.PositionAndSize(*clip);
  if (parts_.mode.pictureAlone) {  // the player is asked anew for each clip
    parts_.player.PlayerSetFullScreenMode(true);
    SortFullScreen();
  }
  parts_.host.FadBorder(layout.logoCaption.value_or(std::string(kProductName)));
}

void Display::PositionandShowStill() {
  const auto clip = layout_.clip();
  if (clip && clip->facts.IsStill) layout_.PositionandShowStill(*clip);
}

// As PositionAndSize, for a player that is to have its own size again first.
void Display::placeAnew() {
  takeSourceSize();
  PositionAndSize();
}

void Display::takeSourceSize() {
  auto& player = parts_.player;
  if (player.PlayerGetSourceWidth() <= 0) return;
  player.PlayerSetWidth(player.PlayerGetSourceWidth() * parts_.mode.twipsPerPixel());
  player.PlayerSetHeight(player.PlayerGetSourceHeight() * parts_.mode.twipsPerPixel());
}

void Display::startMonitors() {
  parts_.timers.Timer1.start();
  parts_.timers.Timer6.start();
}

void Display::stopMonitors() {
  parts_.timers.Timer1.stop();
  parts_.timers.Timer6.stop();
  if (!parts_.timers.Timer7.enabled()) return;
  parts_.player.PlayerStop();
  parts_.buttons.BuildButton(KeyWord::PauseOn);
}

void Display::EndAnim() {
  auto& mode = parts_.mode;
  mode.panels.Label2On = false;
  mode.Med_AudAnim.visible = false;
  parts_.timers.Timer4.stop();
}

void Display::closeDisplays() { ++parts_.mode.panels.osdsKilled; }

void Display::AllDetOff() { showDetails(false); }

void Display::AllDetOn() { showDetails(true); }

void Display::turnDetails() { parts_.settings.state.AllDetOff ? AllDetOn() : Lbl_MinDets_Click(); }

void Display::startAtSourceSize() {
  AllDetOff();
  takeSourceSize();
}

void Display::showDetails(bool on) {
  if (parts_.mode.IsMiniMode) return;
  parts_.settings.state.AllDetOff = !on;
  placeAnew();
}

void Display::Lbl_MinDets_Click() {
  if (parts_.mode.IsMiniMode) return;
  closeDisplays();
  if (!parts_.collection.MovieList.empty()) AllDetOff();
  if (!parts_.settings.preferences().DefaultStartupVid.empty()) {
    parts_.settings.change().DefaultStartupVid.clear();
  }
  parts_.timers.Timer6.start();
}

void Display::ShowSliderStuff() { layout_.ShowSliderStuff(); }

void Display::Lbl_SliderMiniMode_Click() {
  auto& tick = parts_.mode.ticks.mnu_ShowSlider;
  tick = !tick;
  layout_.ShowSliderStuff();
}

void Display::tickZoom(int percent) {
  auto& ticks = parts_.mode.ticks;
  ticks.mnu_DirXZoom50 = percent == 50;
  ticks.mnu_DirXZoom100 = percent == 100;
  ticks.mnu_DirXZoom200 = percent == 200;
}

void Display::ResizePercent(int percent) {
  const auto clip = layout_.clip();
  if (!clip || !parts_.mode.IsMiniMode) return;
  if (parts_.mode.IsFullScreenWindow) {
    if (!hasVideo(clip->facts)) return;
    layout_.placePlayer(playerAt(percent, layout_.modes(), clip->facts, layout_.sizes()));
  } else {
    layout_.setWindow(windowOf(clip->facts, layout_.sizes(), kToolbarHeight, percent));
  }
  tickZoom(percent);
}

void Display::Form_Resize(Twips width, Twips height) {
  auto& mode = parts_.mode;
  auto& place = mode.window.place;
  const auto same = [&](const Place& other) {
    const Twips pixel = mode.twipsPerPixel();
    return std::abs(other.width - width) < pixel && std::abs(other.height - height) < pixel;
  };
  if (same(place)) {
    refused_ = {};
    return;
  }
  if (mode.IsMiniMode) {
    place.width = width;
    place.height = height;
    layout_.resized();
    return;
  }
  if (same(refused_)) return;  // a desktop that insists is not asked for ever
  refused_ = {0, 0, width, height};
  mode.window.caption.clear();
  ++mode.window.placings;
  layout_.resized();
}

void Display::mnu_DirXFullSC_Click() {
  auto& alone = parts_.mode.pictureAlone;
  const auto clip = layout_.clip();
  alone = !alone && clip && (clip->facts.IsStill || hasVideo(clip->facts));
  parts_.player.PlayerSetFullScreenMode(alone);
  SortFullScreen();
  if (!alone && !parts_.mode.IsMiniMode) tellKeys(parts_.mode.player);
}

bool Display::leaveFullPicture() {
  if (!parts_.mode.pictureAlone) return false;
  mnu_DirXFullSC_Click();
  return true;
}

void Display::SortFullScreen() {
  auto& mode = parts_.mode;
  // A clip that has a window of its own tells whether it still covers the screen.
  if (mode.player.clip > 0 && mode.player.sourceWidth > 0)
    mode.pictureAlone = parts_.player.PlayerGetFullScreenMode();
  mode.ticks.mnu_DirXFullSC = mode.pictureAlone;
  mode.ticks.lockAndZoomEnabled = !mode.pictureAlone;
}

}  // namespace kvo
