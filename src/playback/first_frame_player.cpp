#include "playback/first_frame_player.h"

#include "playback/display/clip_facts.h"

namespace kvo {
namespace {

constexpr int kDvdWidth = 720;  // pixels
constexpr int kDvdHeight = 576;

}  // namespace

EngineRoute FirstFramePlayer::PlayerSetFilename(const std::string& path, int index) {
  PlayerClear();
  if (index < 1 || index > collection_.MovieList.count()) return EngineRoute::NotForced;
  const auto& clip = collection_.MovieList[index];
  auto& player = state();
  player.path = path;
  player.clip = index;
  corona_ = clip.IsCorona();
  const auto kind = clipFacts(clip, *this);
  if (kind.extension == "WMA") return EngineRoute::NotForced;
  player.sourceWidth = isDVD(kind) ? kDvdWidth : clip.MovieWidth();
  player.sourceHeight = isDVD(kind) ? kDvdHeight : clip.MovieHeight();
  if ((player.sourceWidth <= 0 || player.sourceHeight <= 0) && !isAudioKind(kind)) {
    const auto facts = streams_.facts(path);
    const bool picture = facts && facts->hasVideo;
    player.sourceWidth = picture ? facts->width : 0;
    player.sourceHeight = picture ? facts->height : 0;
  }
  PlayerSetDisplaySize(0);
  return EngineRoute::NotForced;
}

void FirstFramePlayer::PlayerClear() {
  auto& player = state();
  player.path.clear();
  player.clip = player.sourceWidth = player.sourceHeight = 0;
  player.fullScreen = false;
  corona_ = false;
}

void FirstFramePlayer::PlayerSetDisplaySize(int size) {
  auto& player = state();
  if (size != 0 || player.sourceWidth == 0) return;
  player.place.width = player.sourceWidth * display_.twipsPerPixel();
  player.place.height = player.sourceHeight * display_.twipsPerPixel();
}

void FirstFramePlayer::PlayerSetFullScreenMode(bool on) {
  state().fullScreen = on && state().sourceWidth > 0;
}

}  // namespace kvo
