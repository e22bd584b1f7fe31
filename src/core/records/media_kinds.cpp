#include "core/records/media_kinds.h"

#include "base/paths.h"

#include <algorithm>
#include <iterator>

namespace kvo {
namespace {

constexpr auto kSound = MediaClass::Sound;
constexpr auto kVideo = MediaClass::Video;
constexpr auto kStill = MediaClass::Still;

// clang-format off
constexpr MediaKind kKinds[] = {
    // Sound, whatever else is in them
    {"WMA", kSound, true},  {"MP3", kSound, true},  {"WAV", kSound, true},   {"AIF", kSound, true},
    {"AIFF", kSound, true}, {"IFF", kSound, true},  {"MP2", kSound, true},   {"AU", kSound, true},
    {"SND", kSound, true},  {"RA", kSound, true},
    {"MID", kSound, true, false}, {"MIDI", kSound, true, false}, {"RMI", kSound, true, false},
    {"CDA", kSound, true, false}, {"WAX", kSound, true, false}, {"RAM", kSound, true, false},
    // Sound unless there is a picture in them
    {"FLAC", kSound}, {"OGG", kSound}, {"OPUS", kSound}, {"M4A", kSound}, {"AAC", kSound}, {"AC3", kSound},
    {"MKA", kSound},  {"M4B", kSound}, {"WV", kSound},   {"OGA", kSound},
    // Pictures
    {"AVI", kVideo, true}, {"MPG", kVideo, true}, {"MPEG", kVideo, true}, {"M1V", kVideo, true},
    {"M2V", kVideo, true}, {"M2P", kVideo, true}, {"MPE", kVideo, true}, {"WMV", kVideo, true},  {"GIF", kVideo, true},
    {"JPG", kStill, true}, {"JPEG", kStill, true}, {"JPE", kStill, true}, {"JFIF", kStill, true}, {"BMP", kStill, true},
    {"TIF", kStill, true}, {"TIFF", kStill, true}, {"PNG", kStill, true}, {"WEBP", kStill, true},
    {"HEIC", kStill, true}, {"HEIF", kStill, true}, {"AVIF", kStill, true},
    // Pictures unless there is only sound in them
    {"MKV", kVideo}, {"MP4", kVideo},  {"WEBM", kVideo}, {"MOV", kVideo}, {"MTS", kVideo}, {"M2TS", kVideo},
    {"TS", kVideo},  {"3GP", kVideo},  {"VOB", kVideo},  {"OGV", kVideo}, {"DV", kVideo},  {"ASF", kVideo},
    {"M4V", kVideo}, {"FLV", kVideo},  {"F4V", kVideo},  {"QT", kVideo},  {"WM", kVideo},  {"DIVX", kVideo},
    {"DAT", kVideo},
};
// clang-format on

}  // namespace

std::span<const MediaKind> mediaKinds() { return kKinds; }

const MediaKind* mediaKind(std::string_view name) {
  const auto extension = wholeExtension(name);
  const auto* found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                   [&](const auto& kind) { return kind.extension == extension; });
  return found == std::end(kKinds) ? nullptr : found;
}

bool isSoundByName(std::string_view name) { return mediaClass(name, nullptr) == kSound; }

MediaClass mediaClass(std::string_view name, const StreamFacts* facts) {
  const auto* kind = mediaKind(name);
  const auto byName = kind == nullptr ? kVideo : kind->mediaClass;
  if (facts == nullptr || (kind != nullptr && kind->byNameAlone)) return byName;
  if (!facts->hasVideo) return facts->hasAudio ? kSound : byName;
  if (byName != kSound && kind != nullptr) return byName;
  return facts->isStill ? kStill : kVideo;
}

}  // namespace kvo
