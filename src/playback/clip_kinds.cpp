#include "playback/clip_kinds.h"

#include "base/paths.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 3> kVideoDisc{"VOB", "IFO", "BUP"};

}  // namespace

bool isDvdFile(std::string_view path) {
  return std::ranges::find(kVideoDisc, extensionOf(path)) != kVideoDisc.end();
}

bool hasAddress(const Movie& clip) { return isAddress(clip.MovieName()) || isAddress(clipFile(clip)); }

bool isStreamClip(const Movie& clip) { return clip.IsStream() || hasAddress(clip); }

bool isFileThatPlays(const Movie& clip) {
  return !isStreamClip(clip) && !clip.IsStill() && !clip.IsHTML() && !clip.IsTrueRM() && !clip.IsTrueQT4();
}

}  // namespace kvo
