#include "playback/captions.h"

#include "base/paths.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::array kCaptionEndings = {".smi", ".srt", ".ass", ".ssa", ".vtt", ".sub"};

bool bringsTexts(const Player& player) {
  const auto tracks = player.PlayerGetTracks();
  return std::any_of(tracks.begin(), tracks.end(),
                     [](const auto& track) { return track.kind == MediaTrack::Kind::Subtitles; });
}

}  // namespace

std::string captionFileBeside(const Files& files, const std::string& clip) {
  const auto name = fileNamePart(clip);
  if (name.empty() || isAddress(clip)) return {};
  const auto stem = clip.substr(0, clip.size() - name.size() + std::min(name.rfind('.'), name.size()));
  for (const auto* ending : kCaptionEndings) {
    auto file = nameInAnyCase(stem + ending);
    if (file != clip && files.exists(file)) return file;
  }
  return {};
}

void applyCaptions(Player& player, const Files& files, bool ShowCaps) {
  if (ShowCaps && player.PlayerGetCaptionFile().empty()) {
    const auto file = captionFileBeside(files, player.PlayerGetFileName());
    if (!file.empty()) player.PlayerSetCaptionFile(file);
  }
  player.PlayerSetShowCaptions(ShowCaps && (!player.PlayerGetCaptionFile().empty() || bringsTexts(player)));
}

}  // namespace kvo
