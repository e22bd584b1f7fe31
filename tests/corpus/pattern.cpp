#include "corpus/pattern.h"

#include <algorithm>
#include <cmath>

namespace kvo::test {
namespace {

constexpr int kBits = 8;
constexpr double kFrame = 0.05;  // the light frame's share of a side
constexpr Rgb kFrameColour = {180, 180, 180};
constexpr double kReadable = 40;  // least distance of a cell to its inverse, levels

// Where things stand, in shares of the picture's sides.
constexpr Part cellAt(int bit, bool inverse) { return {0.06 + 0.11 * bit, inverse ? 0.28 : 0.08, 0.11, 0.2}; }
constexpr Part patchAt(int patch) { return {0.06 + 0.22 * patch, 0.54, 0.22, 0.4}; }

Part within(const Part& share, const Part& place) {
  return {place.x + share.x * place.width, place.y + share.y * place.height, share.width * place.width,
          share.height * place.height};
}

// Edges blur in lossy pictures: the middle of a part counts.
Part middleOf(const Part& part) {
  return {part.x + part.width * 0.3, part.y + part.height * 0.3, part.width * 0.4, part.height * 0.4};
}

bool holds(const Part& part, double x, double y) {
  return x >= part.x && x < part.x + part.width && y >= part.y && y < part.y + part.height;
}

Rgb colourAt(int number, double x, double y) {
  if (std::min({x, y, 1 - x, 1 - y}) < kFrame) return kFrameColour;
  const int gray = number ^ (number >> 1);
  for (int bit = 0; bit < kBits; ++bit) {
    for (const bool inverse : {false, true}) {
      if (holds(cellAt(bit, inverse), x, y))
        return ((gray >> bit & 1) != 0) != inverse ? Rgb{255, 255, 255} : Rgb{};
    }
  }
  for (int patch = 0; patch < 4; ++patch) {
    if (holds(patchAt(patch), x, y)) return kPatches[static_cast<std::size_t>(patch)];
  }
  return {};
}

std::array<double, 3> yuvOf(const Rgb& rgb, Weights weights) {
  const double kr = weights == Weights::Bt601 ? 0.299 : 0.2126;
  const double kb = weights == Weights::Bt601 ? 0.114 : 0.0722;
  const double luma = kr * rgb[0] + (1 - kr - kb) * rgb[1] + kb * rgb[2];
  return {16 + luma * 219 / 255, 128 + (rgb[2] - luma) / (2 * (1 - kb)) * 224 / 255,
          128 + (rgb[0] - luma) / (2 * (1 - kr)) * 224 / 255};
}

double luma(const Rgb& rgb) { return 0.299 * rgb[0] + 0.587 * rgb[1] + 0.114 * rgb[2]; }

// Whole samples of a part within `size`, at least one.
struct Span {
  int from = 0;
  int to = 0;
};

Span spanOf(double from, double length, int size) {
  const int first = std::clamp(static_cast<int>(std::lround(from)), 0, size - 1);
  return {first, std::clamp(static_cast<int>(std::lround(from + length)), first + 1, size)};
}

template <class ValueAt>
double meanIn(const Part& part, int width, int height, const ValueAt& valueAt) {
  const auto across = spanOf(part.x, part.width, width);
  const auto down = spanOf(part.y, part.height, height);
  double sum = 0;
  for (int y = down.from; y < down.to; ++y) {
    for (int x = across.from; x < across.to; ++x) sum += valueAt(x, y);
  }
  return sum / ((across.to - across.from) * (down.to - down.from));
}

}  // namespace

std::string drawnPattern(int number, int width, int height, Weights weights) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(width * height * 3 / 2));
  for (std::size_t plane = 0; plane < 3; ++plane) {
    const int columns = plane == 0 ? width : width / 2;
    const int rows = plane == 0 ? height : height / 2;
    for (int y = 0; y < rows; ++y) {
      for (int x = 0; x < columns; ++x) {
        const auto colour = colourAt(number, (x + 0.5) / columns, (y + 0.5) / rows);
        bytes += static_cast<char>(std::lround(yuvOf(colour, weights)[plane]));
      }
    }
  }
  return bytes;
}

MeanOf meansOf(const media::Picture& picture) {
  return [&picture](const Part& part) {
    std::array<double, 3> yuv{};
    for (int plane = 0; plane < 3; ++plane) {
      const double scale = plane == 0 ? 1 : 0.5;
      yuv[static_cast<std::size_t>(plane)] = meanIn(
          {part.x * scale, part.y * scale, part.width * scale, part.height * scale}, picture.width(plane),
          picture.height(plane), [&](int x, int y) { return static_cast<double>(picture.row(plane, y)[x]); });
    }
    const double y = (yuv[0] - 16) * 255 / 219;
    const double u = (yuv[1] - 128) * 255 / 224;
    const double v = (yuv[2] - 128) * 255 / 224;
    return Rgb{y + 1.402 * v, y - 0.344136 * u - 0.714136 * v, y + 1.772 * u};
  };
}

Reading readPattern(const MeanOf& mean, const Part& place) {
  Reading reading;
  int gray = 0;
  bool readable = true;
  for (int bit = 0; bit < kBits; ++bit) {
    const auto cell = mean(middleOf(within(cellAt(bit, false), place)));
    const auto inverse = mean(middleOf(within(cellAt(bit, true), place)));
    const double step = luma(cell) - luma(inverse);
    readable = readable && std::fabs(step) >= kReadable;
    if (step > 0) gray |= 1 << bit;
    for (std::size_t i = 0; i < 3; ++i) reading.white[i] += (step > 0 ? cell : inverse)[i] / kBits;
  }
  int number = 0;
  for (int code = gray; code != 0; code >>= 1) number ^= code;
  if (readable) reading.number = number;
  for (int patch = 0; patch < 4; ++patch) {
    reading.patches[static_cast<std::size_t>(patch)] = mean(middleOf(within(patchAt(patch), place)));
  }
  return reading;
}

bool fills(const MeanOf& mean, const Part& place, int width, int height) {
  // A strip along each edge, just inside and just outside of it.
  for (const bool inside : {true, false}) {
    const double near = inside ? 0.015 : -0.035;
    const double far = inside ? 0.965 : 1.015;
    for (const Part share :
         {Part{near, 0.2, 0.02, 0.6}, {far, 0.2, 0.02, 0.6}, {0.2, near, 0.6, 0.02}, {0.2, far, 0.6, 0.02}}) {
      const auto strip = within(share, place);
      if (strip.x < 0 || strip.y < 0 || strip.x + strip.width > width || strip.y + strip.height > height)
        continue;
      if ((luma(mean(strip)) > 90) != inside) return false;
    }
  }
  return true;
}

}  // namespace kvo::test
