#include "intake/asx_stream.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 4> kMetafiles = {"ASX", "WAX", "WVX", "ASF"};
constexpr std::array<std::string_view, 2> kMediaOrMetafile = {"WMA", "WMV"};
constexpr double kLargestNoted = 4096;  // bytes that the record tells of
constexpr std::uint64_t kTooLarge = 9217;
constexpr std::size_t kMostRead = 65536;

// Media have a byte 0 soon, and behind it the two strokes of an address by chance.
bool holdsAddress(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  while (!text.empty()) {
    const auto line = nextLine(text);
    if (line.find("//") != std::string_view::npos && !holdsText(line, "MOREINFO")) return true;
  }
  return false;
}

}  // namespace

bool IsASXAStream(const Movie& clip, const Files& files) {
  if (clip.IsStream()) return true;
  const auto kind = extensionOf(clip.MovieName());
  const bool small = std::ranges::find(kMediaOrMetafile, kind) != kMediaOrMetafile.end();
  if (!small && std::ranges::find(kMetafiles, kind) == kMetafiles.end()) return false;
  const auto file = clipFile(clip);
  const auto facts = files.facts(file);
  if (!facts) return false;
  if (small && (ToNumber(clip.Size()) > kLargestNoted || facts->size >= kTooLarge)) return false;
  const auto text = files.readHead(file, kMostRead);
  return text && holdsAddress(*text);
}

}  // namespace kvo
