// The profile files that the program writes for the profiles from 26 on.
#pragma once

#include "render/output_profiles.h"
#include "vocabulary/encode_profiles.h"

#include <optional>
#include <string>
#include <string_view>

namespace kvo {

inline constexpr int kLastProfile = 41;

/// What the file of a profile from 26 to 41 asks for; nothing for another number.
std::optional<EncodeProfile> wm8Profile(int number);

/// The picture that a profile from 26 to 41 has by itself; nothing for another number.
std::optional<OutputSize> wm8ProfileSize(int number);

/// The bytes of the file for a profile from 26 to 41, with `size` in place of the profile's own where there
/// is one, and with `bitCount` in place of 24 bits where it is not empty: UTF-16, little endian, without a
/// byte order mark, and two line ends in single bytes behind it. Empty for another number.
std::string wm8ProfileBytes(int number, std::optional<OutputSize> size, std::string_view bitCount);

}  // namespace kvo
