// Rendered pictures as files of the kinds that the program loads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kvo::art {

/// Pixels from the top row down, packed as blue, green, red, alpha; the colours are not weighed by the alpha.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bgra;
};

/// Windows BMP, bottom row first: 24 bits a pixel where every pixel is opaque, else 32 bits with an alpha
/// mask (BITMAPV4HEADER).
std::string bmpOf(const Picture& picture);

/// JPEG at full colour resolution; the alpha is left out.
std::string jpegOf(const Picture& picture);

}  // namespace kvo::art
