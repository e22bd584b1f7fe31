#include "media/colour.h"

#include "base/text.h"
#include "media/ffmpeg.h"
#include "media/scaler.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

extern "C" {
#include <libavutil/parseutils.h>
}

namespace kvo::media {

namespace {

std::optional<Colour> colourNamed(const std::string& word) {
  std::array<std::uint8_t, 4> rgba{};
  if (av_parse_color(rgba.data(), word.c_str(), -1, nullptr) < 0) return std::nullopt;
  return Colour{rgba[0], rgba[1], rgba[2]};
}

}  // namespace

std::optional<Colour> parseColour(std::string_view text) {
  const auto word = lower(trimmed(text));
  const bool digits = !word.empty() && word.find_first_not_of("0123456789") == std::string::npos;
  if (digits && word.size() != 6) {
    std::uint32_t value = 0;
    const auto end = std::from_chars(word.data(), word.data() + word.size(), value);
    if (end.ec != std::errc() || value > 0xFFFFFF) return std::nullopt;
    return Colour{static_cast<std::uint8_t>(value & 0xFF), static_cast<std::uint8_t>(value >> 8 & 0xFF),
                  static_cast<std::uint8_t>(value >> 16)};
  }
  if (word.empty() || word == "random" || word == "bikeshed" || word.find('@') != std::string::npos) {
    return std::nullopt;
  }
  const auto named = colourNamed(word);
  // Some greys are known under one spelling only.
  const auto gray = named ? std::string::npos : word.find("gray");
  return gray == std::string::npos ? named : colourNamed(std::string(word).replace(gray, 4, "grey"));
}

YuvColour yuvOf(Colour colour, int pictureHeight) {
  const bool hd = usualMatrix(pictureHeight) == Matrix::Bt709;
  const double kr = hd ? 0.2126 : 0.299;
  const double kb = hd ? 0.0722 : 0.114;
  const double luma = kr * colour.red + (1 - kr - kb) * colour.green + kb * colour.blue;
  const auto sample = [](double v) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(v), 0L, 255L));
  };
  return {sample(16 + luma * 219 / 255), sample(128 + (colour.blue - luma) / (2 * (1 - kb)) * 224 / 255),
          sample(128 + (colour.red - luma) / (2 * (1 - kr)) * 224 / 255)};
}

}  // namespace kvo::media
