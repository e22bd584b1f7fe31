#include "vocabulary/movie_presets.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvo {
namespace {

// clang-format off
constexpr std::array<MoviePreset, 8> kPresets = {{
    {"web",     "Web pages and browsers", "For web pages and every browser: MP4, up to 1080 lines", OutputKind::Mp4, 1920, 1080, 60, 22, "medium", 160000},
    {"phone",   "Phones and tablets", "For phones and tablets: MP4, up to 720 lines and 30 frames", OutputKind::Mp4, 1280, 720, 30, 23, "medium", 128000},
    {"archive", "Keeping", "To keep: MP4 of the movie's own size, hardly a loss, large", OutputKind::Mp4, 4096, 4096, 60, 15, "slow", 256000},
    {"email",   "E-mail, within a size", "To send: MP4 that keeps within %1 MB", OutputKind::Mp4, 1280, 720, 30, 0, "medium", 96000, 20},
    {"4k",      "Large screens (4K)", "For large screens: MP4, up to 2160 lines", OutputKind::Mp4, 3840, 2160, 60, 20, "fast", 192000},
    {"webm",    "Web pages, free codecs", "For web pages, with free codecs: WebM, up to 1080 lines", OutputKind::WebM, 1920, 1080, 60, 31, "medium", 128000},
    {"edit",    "Editing elsewhere", "For editing elsewhere: MOV with ProRes, very large", OutputKind::Mov, 4096, 4096, 60},
    {"gif",     "A moving picture", "A moving picture without sound: GIF, up to 480 pixels and 15 frames", OutputKind::Gif, 480, 480, 15},
}};
// clang-format on

constexpr std::array<std::string_view, 9> kEfforts = {"ultrafast", "superfast", "veryfast", "faster",  "fast",
                                                      "medium",    "slow",      "slower",   "veryslow"};

int evenSide(double side) { return std::max(2, static_cast<int>(std::lround(side / 2)) * 2); }

}  // namespace

std::span<const MoviePreset> moviePresets() { return kPresets; }

const MoviePreset* presetNamed(std::string_view name) {
  const auto* found = std::find_if(kPresets.begin(), kPresets.end(),
                                   [&](const auto& preset) { return sameText(preset.name, name); });
  return found == kPresets.end() ? nullptr : found;
}

PictureSides fittedTo(const MoviePreset& preset, PictureSides sides) {
  const double longer = std::max(sides.width, sides.height);
  const double shorter = std::min(sides.width, sides.height);
  if (longer < 1 || shorter < 1) return sides;
  const double factor = std::min({1.0, preset.longSide / longer, preset.shortSide / shorter});
  if (factor == 1) return sides;
  return {evenSide(sides.width * factor), evenSide(sides.height * factor)};
}

std::span<const std::string_view> effortWords() { return kEfforts; }

std::optional<int> effortOf(std::string_view word) {
  const auto* found = std::find(kEfforts.begin(), kEfforts.end(), word);
  if (found == kEfforts.end()) return std::nullopt;
  return static_cast<int>(found - kEfforts.begin());
}

}  // namespace kvo
