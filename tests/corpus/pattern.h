// Pictures that carry their own number, and the reading of it back from whatever became of them.
#pragma once

#include "media/picture.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace kvo::test {

/// Numbers run from 0 up to this.
inline constexpr int kNumbers = 256;

/// Red, green, blue, 0 to 255.
using Rgb = std::array<double, 3>;

/// A part of a picture in pixels.
struct Part {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

/// The colours of the patches, from left to right: red, green, blue, grey.
inline constexpr std::array<Rgb, 4> kPatches = {
    Rgb{190, 50, 50}, {50, 170, 70}, {60, 70, 190}, {128, 128, 128}};

/// Luma weights that the patches are drawn with.
enum class Weights { Bt601, Bt709 };

/// A picture as bytes of planar YUV 4:2:0, limited range: a light frame around eight cells (Gray code of
/// `number`), the same eight inverted, and the patches. Even sizes.
std::string drawnPattern(int number, int width, int height, Weights weights);

/// The mean colour of a part of a picture.
using MeanOf = std::function<Rgb(const Part&)>;
/// A picture of the engine's, taken by the weights of a small picture (BT.601).
MeanOf meansOf(const media::Picture& picture);

struct Reading {
  std::optional<int> number;  ///< none where a cell is neither dark nor light
  Rgb white{};                ///< mean of the light cells
  std::array<Rgb, 4> patches{};
};

/// Reads the pattern that fills the part `place`.
Reading readPattern(const MeanOf& mean, const Part& place);

/// True when the pattern reaches each edge of `place` and what lies outside of it, within a canvas of
/// `width` x `height`, is black.
bool fills(const MeanOf& mean, const Part& place, int width, int height);

}  // namespace kvo::test
