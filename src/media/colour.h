// Colours as texts.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kvo::media {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Colour&) const = default;
};

/// A name of CSS in any case ("ALICEBLUE"), "#RRGGBB", "0xRRGGBB" or "RRGGBB" in hexadecimal, or another
/// whole number as a Windows colour (red + 256 green + 65536 blue). Nothing for other texts.
std::optional<Colour> parseColour(std::string_view text);

struct YuvColour {
  std::uint8_t y = 16;
  std::uint8_t u = 128;
  std::uint8_t v = 128;
};

/// As a limited-range sample of a picture of this height.
YuvColour yuvOf(Colour colour, int pictureHeight);

}  // namespace kvo::media
