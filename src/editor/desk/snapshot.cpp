#include "editor/desk/snapshot.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 10> kWithoutFrames{"WAV", "MP3", "JPG",  "BMP", "M1V",
                                                          "AU",  "MID", "AIFF", "IFF", "JPEG"};
constexpr std::uint32_t kHeaderBytes = 54;
constexpr std::uint32_t kInfoBytes = 40;
constexpr std::uint32_t kBitmapDepth = 24;
constexpr std::size_t kPixelBytes = 3;

void put(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
}

}  // namespace

bool hasSnapshot(const Movie& clip) {
  if (!clip.IsStill() && clip.MovieHeight() == 0 && clip.Resolution().text().empty()) return false;
  return std::ranges::find(kWithoutFrames, wholeExtension(clip.MovieName())) == kWithoutFrames.end();
}

std::string snapshotName(const Movie& clip, Long frame) {
  const auto& name = clip.MovieName();
  const auto stop = name.rfind('.');
  return name.substr(0, stop) + " - f" + FormatMask(frame, "00000") + " - Still.bmp";
}

// Rows stand from the bottom up, each filled to a multiple of four bytes.
std::string bitmapFile(const FramePicture& picture) {
  const auto width = static_cast<std::size_t>(picture.width);
  const auto height = static_cast<std::size_t>(picture.height);
  const std::size_t row = (width * kPixelBytes + 3) / 4 * 4;
  const auto pixels = static_cast<std::uint32_t>(row * height);
  std::string bytes = "BM";
  bytes.reserve(kHeaderBytes + pixels);
  put(bytes, kHeaderBytes + pixels, 4);
  put(bytes, 0, 4);
  put(bytes, kHeaderBytes, 4);
  put(bytes, kInfoBytes, 4);
  put(bytes, static_cast<std::uint32_t>(picture.width), 4);
  put(bytes, static_cast<std::uint32_t>(picture.height), 4);
  put(bytes, 1, 2);
  put(bytes, kBitmapDepth, 2);
  put(bytes, 0, 4);
  put(bytes, pixels, 4);
  bytes.append(16, '\0');
  for (std::size_t y = height; y-- > 0;) {
    const auto from = picture.bgr.begin() + static_cast<std::ptrdiff_t>(y * width * kPixelBytes);
    bytes.append(from, from + static_cast<std::ptrdiff_t>(width * kPixelBytes));
    bytes.append(row - width * kPixelBytes, '\0');
  }
  return bytes;
}

}  // namespace kvo
