// Drawing of one picture into another, to the sample.
#include "engine/picture/drawing.h"

#include "base/guarded.h"
#include "support/pictures.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

// A picture of one colour laid at places between the samples of chroma: each of those is of the new colour by
// as much as its four pixels are.
TEST(Drawing, ChromaIsCoveredAsItsFourPixelsAre) {
  constexpr int kSide = 32;
  auto plain = copyOf(test::plainPicture(kSide, kSide, 220));
  plain.fill(0, 200);
  const auto opaque = share(std::move(plain));
  const auto clear = withAlpha(opaque);
  auto half = copyOf(clear);  // its left half only
  for (int plane = 0; plane < 4; ++plane) {
    for (int y = 0; y < half.height(plane); ++y) {
      std::fill(half.row(plane, y) + half.width(plane) / 2, half.row(plane, y) + half.width(plane),
                media::Picture::blackOf(plane));
    }
  }
  const std::vector<std::pair<const char*, media::Picture>> pictures = {
      {"opaque", opaque}, {"with alpha", clear}, {"half", share(std::move(half))}};
  for (const auto& [name, above] : pictures) {
    for (const bool turned : {false, true}) {
      for (const bool outAlpha : {false, true}) {
        for (const auto& [left, top] : {std::pair{4, 6}, std::pair{5, 6}, std::pair{4, 7}, std::pair{5, 7}}) {
          const auto below = test::plainPicture(64, 48, 60);
          auto out = outAlpha ? copyWithAlpha(below) : copyOf(below);
          const double x0 = left;
          const double y0 = top;
          if (turned) {
            drawTurned(above, wholeOf(above),
                       {cv::Point2d{x0, y0}, {x0 + kSide, y0}, {x0 + kSide, y0 + kSide}, {x0, y0 + kSide}},
                       {}, out);
          } else {
            drawScaled(above, wholeOf(above), {x0, y0, kSide, kSide}, out);
            EXPECT_NEAR(out.row(0, top)[left], 200, 1) << name;
            EXPECT_NEAR(out.row(0, top)[left - 1] + out.row(0, top - 1)[left], 120, 2) << name;
          }
          double worst = 0;
          for (int y = 0; y < 24; ++y) {
            for (int x = 0; x < 32; ++x) {
              const int luma = out.row(0, 2 * y)[2 * x] + out.row(0, 2 * y)[2 * x + 1] +
                               out.row(0, 2 * y + 1)[2 * x] + out.row(0, 2 * y + 1)[2 * x + 1];
              const double share = (luma / 4.0 - 60) / (200 - 60);
              worst = std::max(worst, std::fabs(out.row(1, y)[x] - (60 + (220 - 60) * share)));
            }
          }
          // Of the half, the edge inside is drawn by what stands to both sides of it.
          EXPECT_LE(worst, name == std::string("half") ? 12 : 3)
              << name << (turned ? ", turned" : "") << (outAlpha ? " into alpha" : "") << " at " << left
              << ", " << top;
        }
      }
    }
  }
}

TEST(Pictures, OneThatCannotBeHadIsAnErrorInEachRoadOfAFrame) {
  const auto outcome = guarded([]() -> Result<media::Picture> {
    return share(copyOf(media::Canvas::makeWithAlpha(1 << 20, 1 << 20)));
  });
  ASSERT_FALSE(outcome);
  EXPECT_EQ(outcome.error().text, "out of memory");
}

}  // namespace
}  // namespace kvo::engine
