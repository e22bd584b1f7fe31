#include "playback/display/layout.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kToolbarsOfWindow = 3;  // toolbar heights that the window has beyond its picture
constexpr Twips kShapeTolerance = 10;
constexpr double kCoronaMargin = 300;  // the part of the window's width that its player leaves free
constexpr int kNoVideoWidth = 320;     // pixels
constexpr int kNoVideoHeight = 240;
constexpr Twips kStreamInfoTop = 5100;
constexpr Twips kListHeight = 2610;

// What is on, and what the kind of the clip says of it.
void choosePanels(Layout& layout, const LayoutModes& modes, const ClipFacts& clip) {
  const bool panels = !layout.AllDetOff && !modes.IsMiniMode;
  const bool hasPosition = !clip.IsStill && !clip.IsHTML && !clip.IsTrueQT4;
  layout.details = panels;
  layout.nameLabel = panels;
  layout.Lbl_Pos = panels && layout.ShowFillist && hasPosition;
  layout.Fillist = panels && layout.ShowFillist;
  layout.noVideo = !hasVideo(clip) && !clip.IsStill && !clip.IsHTML;
  layout.listHeight = modes.editMode ? 0 : kListHeight;
}

void chooseAnimation(Layout& layout, const LayoutModes& modes, const ClipFacts& clip) {
  if (isAudioKind(clip)) {
    layout.logoCaption = "KVO5 - Audio";
    if (!modes.CDAutoAnim) return;
    layout.Label2On = true;
    layout.Label2 = !modes.IsMiniMode;
    layout.Timer4 = TimerAct::Start;
    return;
  }
  layout.Label2 = false;
  if (!isKnownOtherKind(clip)) layout.Timer4 = TimerAct::Stop;
}

Twips belowNameLabel(const LayoutSizes& sizes) { return sizes.nameLabel.top + sizes.nameLabel.height * 1.5; }

void centreOnNameLabel(Place& player, const LayoutSizes& sizes) {
  player.left = sizes.nameLabel.left + (sizes.nameLabel.width - player.width) / 2;
}

void cutToBox(Place& player) {
  player.width = std::min(player.width, kBoxWidth);
  player.height = std::min(player.height, kBoxHeight);
}

// A window whose room for the picture has the clip's shape already, as the program or the user sized it.
bool suits(const ClipFacts& clip, const LayoutSizes& sizes) {
  if (!hasVideo(clip)) return false;
  const Twips wanted = sizes.window.width * clip.sourceHeight / clip.sourceWidth;
  return std::ranges::any_of(std::initializer_list<double>{1, kToolbarsOfWindow}, [&](double toolbars) {
    return std::abs(sizes.window.height - toolbars * kToolbarHeight - wanted) <= kShapeTolerance;
  });
}

// The window of a clip without a picture is none to go on with.
bool isOfNoPicture(const LayoutSizes& sizes) {
  return sizes.window.width == kNoVideoWidth * sizes.twipsPerPixel &&
         sizes.window.height == kNoVideoHeight * sizes.twipsPerPixel;
}

void placeInFreeZoom(Layout& layout, const LayoutModes& modes, const ClipFacts& clip, LayoutSizes sizes) {
  const bool stays = modes.IsFullScreenWindow || modes.lockAspect ||
                     (modes.clipFollows && !isOfNoPicture(sizes)) || clip.IsStill || clip.IsHTML;
  if (!stays && !suits(clip, sizes)) {
    sizes.window = windowOf(clip, sizes, kToolbarsOfWindow * kToolbarHeight);
    layout.window = sizes.window;
  }
  layout.player = fullPlayer(modes, clip, sizes);
}

void placeWithoutDetails(Layout& layout, const ClipFacts& clip, const LayoutSizes& sizes) {
  const Place box{(sizes.window.width - kBoxWidth) / 2, belowNameLabel(sizes), kBoxWidth, kBoxHeight};
  layout.player = clip.corona ? coronaAspect(clip, box) : box;
}

void placeWithDetails(Layout& layout, const ClipFacts& clip, const LayoutSizes& sizes) {
  auto& player = layout.player;
  cutToBox(player);
  centreOnNameLabel(player, sizes);
  player.top = belowNameLabel(sizes);
  if (clip.DispChange && clip.Dsize > 0) {
    player = {clip.XPos, clip.Ypos, clip.Dsize, clip.Dsize};
    layout.streamInfo = Place{player.left + player.width, kStreamInfoTop, 0, 0};
  }
  if (clip.IsStream || isWindowsMedia(clip)) {
    if (hasVideo(clip)) {
      player.width = clip.sourceWidth * sizes.twipsPerPixel;
      player.height = clip.sourceHeight * sizes.twipsPerPixel;
    }
    cutToBox(player);
    centreOnNameLabel(player, sizes);
    player.top = belowNameLabel(sizes);
  }
}

std::string placeText(const Place& place) {
  const auto number = [](Twips twips) { return ShortText(static_cast<float>(twips)); };
  return number(place.left) + "," + number(place.top) + " " + number(place.width) + "x" +
         number(place.height);
}

}  // namespace

Layout PositionAndSize(const LayoutModes& modes, const ClipFacts& clip, const LayoutSizes& sizes) {
  Layout layout{.AllDetOff = !modes.editMode && (modes.IsMiniMode || modes.AllDetOff),
                .ShowFillist = modes.editMode || modes.ShowFillist,
                .player = sizes.player,
                .playerVisible = hasVideo(clip)};
  choosePanels(layout, modes, clip);
  chooseAnimation(layout, modes, clip);
  if (modes.IsMiniMode) {
    placeInFreeZoom(layout, modes, clip, sizes);
  } else if (layout.AllDetOff) {
    placeWithoutDetails(layout, clip, sizes);
  } else {
    placeWithDetails(layout, clip, sizes);
  }
  return layout;
}

Place windowOf(const ClipFacts& clip, const LayoutSizes& sizes, Twips extraHeight, int percent) {
  const int width = clip.IsStill ? clip.StillW : clip.sourceWidth;
  const int height = clip.IsStill ? clip.StillH : clip.sourceHeight;
  if (isAudioKind(clip) || width <= 0 || height <= 0) {
    return {0, 0, kNoVideoWidth * sizes.twipsPerPixel, kNoVideoHeight * sizes.twipsPerPixel};
  }
  double scale = percent / 100.0 * sizes.twipsPerPixel;
  if (sizes.roomWidth > 0) scale = std::min(scale, sizes.roomWidth / width);
  if (sizes.roomHeight > extraHeight) scale = std::min(scale, (sizes.roomHeight - extraHeight) / height);
  return {0, 0, width * scale, height * scale + extraHeight};
}

Place fullPlayer(const LayoutModes& modes, const ClipFacts& clip, const LayoutSizes& sizes) {
  const auto& window = sizes.window;
  const Twips taken = modes.IsFullScreenWindow ? kToolbarsOfWindow * kToolbarHeight : sizes.toolbar;
  const Place all{0, kToolbarHeight, window.width, std::max(window.height - taken, 0.0)};
  if (!clip.corona) return all;
  auto place = coronaAspect(clip, all);
  place.width = window.width - window.width / kCoronaMargin;
  place.left = (window.width - place.width) / 2;
  return place;
}

Place playerAt(int percent, const LayoutModes& modes, const ClipFacts& clip, const LayoutSizes& sizes) {
  const auto all = fullPlayer(modes, clip, sizes);
  const Twips width = clip.sourceWidth * sizes.twipsPerPixel * percent / 100;
  const Twips height = clip.sourceHeight * sizes.twipsPerPixel * percent / 100;
  if (width <= 0 || height <= 0 || width > all.width || height > all.height) return all;
  return {all.left + (all.width - width) / 2, all.top + (all.height - height) / 2, width, height};
}

Place coronaAspect(const ClipFacts& clip, const Place& box) {
  if (clip.sourceWidth <= 0 || clip.sourceHeight <= 0) return box;
  const double scale = std::min(box.width / clip.sourceWidth, box.height / clip.sourceHeight);
  const Twips width = clip.sourceWidth * scale;
  const Twips height = clip.sourceHeight * scale;
  return {box.left + (box.width - width) / 2, box.top + (box.height - height) / 2, width, height};
}

std::string text(const Layout& layout) {
  std::string line = layout.playerVisible ? "shown " : "hidden ";
  line += placeText(layout.player);
  if (layout.window) line += "; window " + placeText(*layout.window);
  if (layout.streamInfo) line += "; stream info at " + ShortText(layout.streamInfo->left);
  const auto word = [&](bool on, const char* name) {
    if (on) line += std::string("; ") + name;
  };
  word(layout.details, "details");
  word(layout.Fillist, "list");
  word(layout.Lbl_Pos, "position");
  word(layout.nameLabel, "name");
  word(layout.noVideo, "no video");
  word(layout.Label2.value_or(false), "anim label");
  word(layout.Timer4 == TimerAct::Start, "Timer4 on");
  word(layout.Timer4 == TimerAct::Stop, "Timer4 off");
  if (layout.logoCaption) line += "; \"" + *layout.logoCaption + "\"";
  return line;
}

}  // namespace kvo
