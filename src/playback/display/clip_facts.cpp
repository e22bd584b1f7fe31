#include "playback/display/clip_facts.h"

#include "base/paths.h"
#include "core/records/media_kinds.h"

#include <algorithm>
#include <array>
#include <span>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 26> kKnownOthers{
    "RM",  "SWF", "RMX",  "ROB", "RMM", "RMJ", "RT",  "SMI", "SMIL", "RP",  "SDP", "MIL", "ASF",
    "ASX", "MPG", "MPEG", "AVI", "VCR", "MOV", "WMV", "WVX", "VOB",  "IFO", "BUP", "M1V", "ISRM"};

constexpr std::array<std::string_view, 6> kWindowsMedia{"ASF", "ASX", "WMV", "WVX", "WM", "WMX"};

bool isOneOf(const ClipFacts& clip, std::span<const std::string_view> kinds) {
  return std::ranges::find(kinds, clip.extension) != kinds.end();
}

}  // namespace

ClipFacts clipFacts(const Movie& clip, const Player& player) {
  return {.extension = clip.IsTrueRM() ? "ISRM" : wholeExtension(clip.MovieName()),
          .IsTrueRM = clip.IsTrueRM(),
          .IsTrueQT4 = clip.IsTrueQT4(),
          .IsHTML = clip.IsHTML(),
          .IsStream = clip.IsStream(),
          .IsStill = clip.IsStill(),
          .corona = player.UsingCorona(),
          .DispChange = clip.DispChange() != 0,
          .Dsize = static_cast<Twips>(clip.Dsize()),
          .XPos = static_cast<Twips>(clip.XPos()),
          .Ypos = static_cast<Twips>(clip.Ypos()),
          .StillW = clip.StillW(),
          .StillH = clip.StillH(),
          .sourceWidth = player.PlayerGetSourceWidth(),
          .sourceHeight = player.PlayerGetSourceHeight()};
}

bool isAudioKind(const ClipFacts& clip) { return isSoundByName("." + clip.extension); }

bool isKnownOtherKind(const ClipFacts& clip) { return isOneOf(clip, kKnownOthers); }

bool isWindowsMedia(const ClipFacts& clip) { return isOneOf(clip, kWindowsMedia); }

bool hasVideo(const ClipFacts& clip) {
  return !isAudioKind(clip) && !clip.IsStill && !clip.IsHTML && clip.sourceWidth > 0 && clip.sourceHeight > 0;
}

}  // namespace kvo
