// The profiles of Windows Media as the user chooses among them: the rows of the list, and what is told of
// each.
#pragma once

#include "ports/message_boxes.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// The profile number of a movie that is no Windows Media: AVI or WAV.
inline constexpr int kNoProfile = 99;

/// A movie's picture, in pixels.
struct OutputSize {
  int width = 0;
  int height = 0;
  bool operator==(const OutputSize&) const = default;
};

/// The rows of Lst_WMVFormats, in their order: those of sound alone, or those with a picture. A row is the
/// profile's text, 100 blanks and its number.
std::vector<std::string> PopulateWMVProfileOpts(bool audioOnly);

/// The number at the end of a row; 1 for 0 and for a row without one.
int GetWMVRenderProfileInt(std::string_view row);

/// The text of a profile, 0 to 41; empty for another number.
std::string profileText(int number);

struct ProfileDimensions {
  OutputSize size;
  std::string description;
};

/// Size and description of a profile with a picture; nothing from 39 on, and for those of sound alone.
std::optional<ProfileDimensions> GetProfileXYDimensions(int number);

/// What the list tells of the profile that was chosen: the lines below it, and the boxes about an output size
/// that the encoder may not take. `usesCodecSize`: Chk_UseCodecOutputDimensions is ticked.
struct ProfileDescription {
  std::string text;
  std::vector<Box> warnings;
};
ProfileDescription ShowProfileDescription(int number, OutputSize output, bool usesCodecSize);

}  // namespace kvo
