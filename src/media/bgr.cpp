#include "media/bgr.h"

#include "media/pixel_rows.h"
#include "media/scaler.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kvo::media {
namespace {

// Luma and chroma of limited range from colours of full range, in 1/65536.
struct Weights {
  int yRed, yGreen, yBlue;
  int uRed, uGreen, uBlue;
  int vRed, vGreen, vBlue;
};

Weights weightsOf(double kr, double kb) {
  const double kg = 1 - kr - kb;
  const auto luma = [](double v) { return static_cast<int>(std::lround(v * 219 / 255 * 65536)); };
  const auto chroma = [](double v) { return static_cast<int>(std::lround(v * 224 / 255 * 65536)); };
  return {luma(kr),
          luma(kg),
          luma(kb),
          chroma(-kr / (2 * (1 - kb))),
          chroma(-kg / (2 * (1 - kb))),
          chroma(0.5),
          chroma(0.5),
          chroma(-kg / (2 * (1 - kr))),
          chroma(-kb / (2 * (1 - kr)))};
}

std::uint8_t straight(int value, int black, int alpha) {
  return static_cast<std::uint8_t>(std::clamp(black + ((value - black) * 255) / std::max(alpha, 1), 0, 255));
}

// A row of a plane without its weight of alpha.
void straightRow(const Picture& picture, int plane, int y, std::vector<std::uint8_t>& row) {
  const int step = Picture::isChroma(plane) ? 2 : 1;
  const auto* alpha = picture.row(3, y * step);
  const auto* from = picture.row(plane, y);
  for (std::size_t x = 0; x < static_cast<std::size_t>(picture.width(plane)); ++x) {
    row[x] = straight(from[x], Picture::blackOf(plane), alpha[x * static_cast<std::size_t>(step)]);
  }
}

void weighByAlpha(Canvas& canvas) {
  std::vector<std::uint8_t> half(static_cast<std::size_t>(canvas.width(1)));
  for (int plane = 0; plane < 3; ++plane) {
    for (int y = 0; y < canvas.height(plane); ++y) {
      const auto* factors = canvas.row(3, y);
      if (Picture::isChroma(plane)) {
        halveRows(canvas.row(3, 2 * y), canvas.row(3, 2 * y + 1), half.data(), half.size());
        factors = half.data();
      }
      fadeRow(canvas.row(plane, y), factors, canvas.row(plane, y),
              static_cast<std::size_t>(canvas.width(plane)), Picture::blackOf(plane));
    }
  }
}

}  // namespace

void toBgr(const Picture& picture, std::uint8_t* bgr, std::size_t stride) {
  const auto width = static_cast<std::size_t>(picture.width());
  const auto matrix = usualMatrix(picture.height());
  std::vector<std::uint8_t> luma(width);
  std::vector<std::uint8_t> u(width / 2);
  std::vector<std::uint8_t> v(width / 2);
  for (int y = 0; y < picture.height(); ++y, bgr += stride) {
    if (!picture.hasAlpha()) {
      yuvToBgr(picture.row(0, y), picture.row(1, y / 2), picture.row(2, y / 2), bgr, width, matrix);
      continue;
    }
    straightRow(picture, 0, y, luma);
    straightRow(picture, 1, y / 2, u);
    straightRow(picture, 2, y / 2, v);
    yuvToBgr(luma.data(), u.data(), v.data(), bgr, width, matrix);
  }
}

void fromBgr(const std::uint8_t* bgr, std::size_t stride, Canvas& canvas) {
  const auto w =
      usualMatrix(canvas.height()) == Matrix::Bt709 ? weightsOf(0.2126, 0.0722) : weightsOf(0.299, 0.114);
  constexpr int kHalf = 1 << 15;
  for (int y = 0; y < canvas.height(); y += 2) {
    const auto* upper = bgr + static_cast<std::size_t>(y) * stride;
    const auto* lower = upper + stride;
    auto* u = canvas.row(1, y / 2);
    auto* v = canvas.row(2, y / 2);
    for (int line = 0; line < 2; ++line) {
      const auto* from = line == 0 ? upper : lower;
      auto* luma = canvas.row(0, y + line);
      for (int x = 0; x < canvas.width(); ++x, from += 3) {
        luma[x] = static_cast<std::uint8_t>(
            16 + ((w.yBlue * from[0] + w.yGreen * from[1] + w.yRed * from[2] + kHalf) >> 16));
      }
    }
    for (int x = 0; x < canvas.width() / 2; ++x, upper += 6, lower += 6) {
      const int blue = upper[0] + upper[3] + lower[0] + lower[3];
      const int green = upper[1] + upper[4] + lower[1] + lower[4];
      const int red = upper[2] + upper[5] + lower[2] + lower[5];
      u[x] = static_cast<std::uint8_t>(
          128 + ((w.uBlue * blue + w.uGreen * green + w.uRed * red + 4 * kHalf) >> 18));
      v[x] = static_cast<std::uint8_t>(
          128 + ((w.vBlue * blue + w.vGreen * green + w.vRed * red + 4 * kHalf) >> 18));
    }
  }
  if (canvas.hasAlpha()) weighByAlpha(canvas);
}

}  // namespace kvo::media
