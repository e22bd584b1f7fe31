#include "playback/transport/transport_core.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 13> kSoundKinds{"WAV", "WMA", "MP3", "WAX", "MID", "IFF", "SND",
                                                       "AU",  "IDI", "MP2", "RA",  "RAM", "CDA"};

}  // namespace

int TransportCore::icurMov() const {
  const int count = collection.MovieList.count();
  if (count == 0) return 0;
  if (collection.icurMov < 1 || collection.icurMov > count) host.select(1);
  return collection.icurMov;
}

Movie* TransportCore::clip() const {
  const int number = icurMov();
  return number < 1 ? nullptr : &collection.MovieList[number];
}

PlayOrder TransportCore::order() const {
  return {settings.user.LoopPreviews, settings.user.RewAtEnd, settings.user.LoopCol};
}

void TransportCore::toLoopStart() const {
  const auto* inHand = clip();
  if (inHand == nullptr) return;
  const bool frames = player.PlayerGetDisplayMode() == DisplayMode::Frames;
  player.PlayerSetCurrentPosition(frames ? inHand->LoopStartFrames() : inHand->LoopStart().number());
}

void TransportCore::emptyPlayer() const {
  player.PlayerStop();
  player.PlayerHide();
  player.PlayerClear();
  player.SendPlayerFarLeft();
}

std::string kindOfFile(const Movie& clip) { return extensionOf(clip.MovieName()); }

bool isSoundClip(const Movie& clip) {
  return std::ranges::find(kSoundKinds, kindOfFile(clip)) != kSoundKinds.end();
}

}  // namespace kvo
