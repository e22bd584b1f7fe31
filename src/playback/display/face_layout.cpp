#include "playback/display/face_layout.h"

#include "base/holding.h"
#include "playback/display/screens.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr Twips kLabelWidth = 400;  // in units of the toolbar, as the lefts are
constexpr std::array<Twips, kHitLabels> kLabelLefts{0,    750,  1400, 2000, 2570, 3200,
                                                    3800, 4450, 5100, 5580, 6340, 7100};

constexpr Place kNameLabel{4155, 405, 4005, 270};
constexpr Place kPositionLabel{4150, 3500, 2160, 330};
constexpr Place kStreamLabel{6720, 5100, 1110, 210};
constexpr Place kAnimLabel{6900, 3060, 1110, 270};
constexpr Place kList{1200, 810, 2760, 2610};

constexpr int kRoomForFrame = 40;  // pixels that the desktop's frame takes of a screen's height

// The line of the slider in one of the two faces.
struct SliderLine {
  Twips X1, X2, Y;
  Twips blobWidth, blobHeight;
};
constexpr SliderLine kNormalLine{600, 8100, 4860, 195, 195};

SliderLine toolbarLine(Twips width) { return {200, width - 200, 550, 195, 180}; }

}  // namespace

std::optional<ClipInHand> FaceLayout::clip() const {
  const auto& clips = parts_.collection.MovieList;
  const int number = parts_.collection.icurMov;
  if (number < 1 || number > clips.count()) return std::nullopt;
  const auto& movie = clips[number];
  return ClipInHand{number, clipFile(movie), clipFacts(movie, parts_.player)};
}

LayoutModes FaceLayout::modes() const {
  const auto& mode = parts_.mode;
  const auto& settings = parts_.settings;
  return {.IsMiniMode = mode.IsMiniMode,
          .IsFullScreenWindow = mode.IsFullScreenWindow,
          .AllDetOff = settings.state.AllDetOff,
          .ShowFillist = settings.state.ShowFillist,
          .editMode = settings.state.KVOIsInEditMode,
          .lockAspect = mode.ticks.mnu_LockAspect,
          .clipFollows = mode.clipFollows,
          .CDAutoAnim = settings.preferences().CDAutoAnim};
}

LayoutSizes FaceLayout::sizes() const {
  const auto& mode = parts_.mode;
  const auto& blob = mode.slider.ImageBlob;
  const auto unit = mode.twipsPerPixel();
  const auto room = screen().available;
  const bool belowBlob = mode.IsMiniMode && blob.visible && !parts_.player.UsingCorona();
  return {.twipsPerPixel = unit,
          .window = mode.window.place,
          .nameLabel = mode.panels.nameLabel.place,
          .player = mode.player.place,
          .toolbar = belowBlob ? blob.place.top + blob.place.height : kToolbarHeight,
          .roomWidth = room.width * unit,
          .roomHeight = std::max(room.height - kRoomForFrame, 0) * unit};
}

Screen FaceLayout::screen() const {
  const auto screens = parts_.desktop.screens();
  const int index = screenOf(screens, parts_.mode.onDesktop);
  return index < 0 ? Screen{} : screens[static_cast<std::size_t>(index)];
}

Layout FaceLayout::PositionAndSize(const ClipInHand& clip) {
  auto layout = kvo::PositionAndSize(modes(), clip.facts, sizes());
  apply(layout);
  parts_.mode.panels.Lbl_StreamInfo.visible = clip.facts.IsStream && !parts_.mode.IsMiniMode;
  if (clip.facts.IsStill) {
    PositionandShowStill(clip);
  } else {
    parts_.mode.still = {};
  }
  return layout;
}

void FaceLayout::apply(const Layout& layout) {
  auto& mode = parts_.mode;
  auto& panels = mode.panels;
  parts_.settings.state.AllDetOff = layout.AllDetOff;
  parts_.settings.state.ShowFillist = layout.ShowFillist;

  panels.FraDets = panels.CollDets = layout.details;
  panels.nameLabel.visible = layout.nameLabel;
  panels.Lbl_Pos.visible = layout.Lbl_Pos;
  panels.Fillist.visible = layout.Fillist;
  if (layout.listHeight > 0) panels.Fillist.place.height = layout.listHeight;
  panels.Pic_NoVid = layout.noVideo;
  if (layout.Label2) panels.Label2.visible = *layout.Label2;
  if (layout.Label2On) panels.Label2On = *layout.Label2On;
  if (layout.Timer4 != TimerAct::Leave) parts_.timers.Timer4.enable(layout.Timer4 == TimerAct::Start);

  if (layout.window) {
    const Holding resizing(mode.IsResizing);
    setWindow(*layout.window);
  }
  placePlayer(layout.player);
  layout.playerVisible ? parts_.player.PlayerShow() : parts_.player.PlayerHide();
  if (layout.streamInfo) {
    panels.Lbl_StreamInfo.place.left = layout.streamInfo->left;
    panels.Lbl_StreamInfo.place.top = layout.streamInfo->top;
  }
}

void FaceLayout::placePlayer(const Place& place) {
  auto& player = parts_.player;
  player.PlayerSetLeft(place.left);
  player.PlayerSetTop(place.top);
  player.PlayerSetWidth(place.width);
  player.PlayerSetHeight(place.height);
}

void FaceLayout::PositionandShowStill(const ClipInHand& clip) {
  auto& still = parts_.mode.still;
  const auto unit = parts_.mode.twipsPerPixel();
  parts_.player.PlayerHide();
  parts_.player.SendPlayerFarLeft();
  still.path = clip.path;
  still.Img_Still.visible = true;
  still.stretch = !parts_.mode.IsMiniMode;
  if (parts_.mode.IsMiniMode) {
    ResizeStillInMiniMode();
    return;
  }
  auto picture = clip.facts;
  picture.sourceWidth = picture.StillW;
  picture.sourceHeight = picture.StillH;
  const auto sized = sizes();
  const Twips top = sized.nameLabel.top + sized.nameLabel.height * 1.5;
  const bool details = !parts_.settings.state.AllDetOff;
  const Twips middle = details ? sized.nameLabel.left + sized.nameLabel.width / 2 : sized.window.width / 2;
  Place box{0, top, kBoxWidth, kBoxHeight};
  if (details && picture.StillW > 0 && picture.StillH > 0) {  // a smaller one keeps its size
    box.width = std::min(box.width, picture.StillW * unit);
    box.height = std::min(box.height, picture.StillH * unit);
  }
  box.left = middle - box.width / 2;
  still.Img_Still.place = coronaAspect(picture, box);
}

void FaceLayout::ResizeStillInMiniMode() {
  auto& still = parts_.mode.still;
  const auto inHand = clip();
  if (still.stretch || !inHand || !inHand->facts.IsStill) return;
  const auto& window = parts_.mode.window.place;
  auto& place = still.Img_Still.place;
  place.height = std::max(window.height - 2 * kToolbarHeight, 0.0);
  place.width =
      inHand->facts.StillH > 0 ? place.height * inHand->facts.StillW / inHand->facts.StillH : window.width;
  place.left = (window.width - place.width) / 2;
  place.top = kToolbarHeight;
}

void FaceLayout::ReposAllLabels() {
  auto& panels = parts_.mode.panels;
  panels.nameLabel.place = kNameLabel;
  // In Free Zoom nothing shows the name, and the player hangs below the toolbar in its stead.
  if (parts_.mode.IsMiniMode) panels.nameLabel.place.top = kToolbarHeight - kNameLabel.height * 1.5;
  panels.Lbl_Pos.place = kPositionLabel;
  panels.Lbl_StreamInfo.place = kStreamLabel;
  panels.Label2.place = kAnimLabel;
  panels.Fillist.place = kList;
  layOutSlider();
}

void FaceLayout::ShowSliderStuff() {
  parts_.mode.slider.ImageBlob.visible = parts_.mode.ticks.mnu_ShowSlider;
  layOutSlider();
  if (parts_.mode.IsMiniMode) ResizetoFullsc();
}

void FaceLayout::layOutSlider() {
  auto& slider = parts_.mode.slider;
  auto& blob = slider.ImageBlob.place;
  const Twips length = slider.X2 - slider.X1;
  const double share = length > 0 ? (blob.left - slider.X1) / length : 0;
  const auto line =
      parts_.mode.IsMiniMode ? toolbarLine(parts_.mode.toolbar.Img_Toolbar.place.width) : kNormalLine;
  slider.X1 = line.X1;
  slider.X2 = std::max(line.X2, line.X1);
  slider.Y = line.Y;
  blob = {slider.X1 + share * (slider.X2 - slider.X1), line.Y - line.blobHeight / 2, line.blobWidth,
          line.blobHeight};
}

void FaceLayout::layOutToolbar() {
  auto& toolbar = parts_.mode.toolbar;
  const Twips width = parts_.mode.window.place.width;
  const double unit = width / kZoomWidth;
  toolbar.Img_Toolbar.place = {0, 0, width, kToolbarHeight};
  for (std::size_t i = 0; i < kHitLabels; ++i) {
    toolbar.labels[i].left = kLabelLefts[i] * unit;
    toolbar.labels[i].width = kLabelWidth * unit;
    toolbar.labels[i].visible = true;
  }
  layOutSlider();
}

void FaceLayout::setWindow(const Place& place) {
  parts_.mode.window.place = place;
  ++parts_.mode.window.placings;
  resized();
}

void FaceLayout::resized() {
  auto& mode = parts_.mode;
  mode.ticks.mnu_DirXZoom50 = mode.ticks.mnu_DirXZoom100 = mode.ticks.mnu_DirXZoom200 = false;
  if (!mode.IsMiniMode) return;
  layOutToolbar();
  if (!mode.IsResizing) ResizeStillInMiniMode();
  ResizetoFullsc();
  parts_.timers.Timer1.start();
  parts_.timers.Timer6.start();
}

void FaceLayout::ResizetoFullsc() {
  auto& player = parts_.player;
  const auto inHand = clip();
  if (!inHand) return;
  if (inHand->facts.extension == "CDA") {
    player.PlayerClear();
    player.SendPlayerFarLeft();
    return;
  }
  if (!hasVideo(inHand->facts)) return;
  player.PlayerSetDisplaySize(4);
  placePlayer(fullPlayer(modes(), inHand->facts, sizes()));
}

}  // namespace kvo
