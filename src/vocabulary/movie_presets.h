// Movies by what they are for: what the engine makes of each name.
#pragma once

#include "vocabulary/movie_files.h"

#include <span>
#include <string_view>

namespace kvo {

/// A choice of everything that a kind of file leaves open. What is larger or faster than told is brought down
/// to it; nothing is ever made larger.
struct MoviePreset {
  std::string_view name;   ///< "web"
  const char* title = "";  ///< "Web pages and browsers", whole
  const char* text = "";   ///< what it is for, whole; "%1" in the place of the megabytes of one that has any
  OutputKind kind = OutputKind::Mp4;
  int longSide = 0;           ///< pixels at most, of the longer side of the picture
  int shortSide = 0;          ///< and of the other
  double mostRate = 60;       ///< frames a second
  int quality = 0;            ///< of the codec's own scale, where finer is less; 0 for its usual one
  std::string_view effort{};  ///< one of effortWords(); empty for the usual one
  int soundBits = 0;          ///< a second; 0 for that of the kind
  double megabytes = 0;       ///< of 1,000,000 bytes, that the file is not to exceed; 0 for no limit
};

std::span<const MoviePreset> moviePresets();
/// In any case; null for another name.
const MoviePreset* presetNamed(std::string_view name);

/// A picture's sides, in pixels.
struct PictureSides {
  int width = 0;
  int height = 0;
  bool operator==(const PictureSides&) const = default;
};

/// The sides as a preset allows them: the shape is kept, and sides that change are even.
PictureSides fittedTo(const MoviePreset& preset, PictureSides sides);

/// How much work an encoder puts into a picture of the same quality: "ultrafast" to "veryslow".
std::span<const std::string_view> effortWords();
/// Its place among them; nothing for another word.
std::optional<int> effortOf(std::string_view word);

}  // namespace kvo
