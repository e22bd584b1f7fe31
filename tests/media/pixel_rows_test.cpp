#include "media/pixel_rows.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::media {
namespace {

// Lengths about the widths of vectors, so that bodies and rests of the loops are both run.
constexpr std::size_t kLengths[] = {1, 2, 7, 16, 31, 32, 33, 64, 127, 640};

using Row = std::vector<std::uint8_t>;

Row noise(std::size_t count, std::uint32_t state) {
  Row bytes(count);
  for (auto& b : bytes) {
    state = state * 1664525U + 1013904223U;
    b = static_cast<std::uint8_t>(state >> 24U);
  }
  return bytes;
}

TEST(PixelRows, MixingIsExactAtBothEndsAndRoundsBetween) {
  for (const auto count : kLengths) {
    const auto below = noise(count, 1);
    const auto above = noise(count, 2);
    Row out(count);
    for (const int share : {0, 1, 77, 128, 255, kFullShare}) {
      mixRow(below.data(), above.data(), out.data(), count, share);
      for (std::size_t i = 0; i < count; ++i) {
        ASSERT_NEAR(out[i], below[i] + (above[i] - below[i]) * share / 256.0, 0.5)
            << "sample " << i << " of " << count << ", share " << share;
      }
      auto inPlace = below;
      mixRow(inPlace.data(), above.data(), inPlace.data(), count, share);
      EXPECT_EQ(inPlace, out);
    }
    const auto shares = noise(count, 3);
    mixRowByShares(below.data(), above.data(), shares.data(), out.data(), count);
    for (std::size_t i = 0; i < count; ++i)
      ASSERT_NEAR(out[i], below[i] + (above[i] - below[i]) * shares[i] / 255.0, 0.5) << i << " of " << count;
  }
}

TEST(PixelRows, LayingOverWeighsByAlpha) {
  for (const auto count : kLengths) {
    const auto below = noise(count, 5);
    const auto colour = noise(count, 6);
    const auto alpha = noise(count, 7);
    for (const auto black : {std::uint8_t{0}, std::uint8_t{16}, std::uint8_t{128}}) {
      Row faded(count);
      fadeRow(colour.data(), alpha.data(), faded.data(), count, black);
      Row out(count);
      overRow(below.data(), faded.data(), alpha.data(), out.data(), count, black);
      for (std::size_t i = 0; i < count; ++i) {
        const double share = alpha[i] / 255.0;
        ASSERT_NEAR(faded[i], black + (colour[i] - black) * share, 0.51) << i << " of " << count;
        ASSERT_NEAR(out[i], std::clamp(below[i] * (1 - share) + colour[i] * share, 0.0, 255.0), 1.01)
            << i << " of " << count << ", black " << int{black};
      }
    }
  }
}

TEST(PixelRows, SharesRunFromTheThresholdOverTheSoftness) {
  std::vector<std::uint16_t> thresholds(640);
  for (std::size_t i = 0; i < thresholds.size(); ++i) thresholds[i] = static_cast<std::uint16_t>(i * 102);
  Row shares(thresholds.size());
  for (const auto& [position, softness] :
       {std::pair{0, 1}, {30000, 1}, {30000, 9000}, {131070, 65535}, {-5, 300}}) {
    for (const auto count : kLengths) {
      sharesRow(thresholds.data(), position, softness, shares.data(), count);
      for (std::size_t i = 0; i < count; ++i) {
        const double past = std::clamp(position - thresholds[i], 0, softness);
        ASSERT_NEAR(shares[i], past * 255 / softness, 0.51) << i << " at " << position;
      }
    }
  }
}

TEST(PixelRows, HalvingTakesTheMeanOfFour) {
  for (const auto count : kLengths) {
    const auto upper = noise(2 * count, 3);
    const auto lower = noise(2 * count, 4);
    Row out(count);
    halveRows(upper.data(), lower.data(), out.data(), count);
    for (std::size_t i = 0; i < count; ++i) {
      const double mean = (upper[2 * i] + upper[2 * i + 1] + lower[2 * i] + lower[2 * i + 1]) / 4.0;
      ASSERT_NEAR(out[i], mean, 0.51) << "sample " << i << " of " << count;
    }
  }
}

// ITU-R BT.601 and BT.709, limited range; and a colour is the same by either matrix.
TEST(PixelRows, ColoursFollowTheStandards) {
  for (const auto matrix : {Matrix::Bt601, Matrix::Bt709}) {
    const auto other = matrix == Matrix::Bt601 ? Matrix::Bt709 : Matrix::Bt601;
    const double kr = matrix == Matrix::Bt601 ? 0.299 : 0.2126;
    const double kb = matrix == Matrix::Bt601 ? 0.114 : 0.0722;
    for (const auto count : kLengths) {
      auto y = noise(2 * count, 5);
      auto u = noise(count, 6);
      auto v = noise(count, 7);
      Row bgr(6 * count);
      const auto width = 2 * count - count % 2;  // of odd ones, too
      yuvToBgr(y.data(), u.data(), v.data(), bgr.data(), width, matrix);
      for (std::size_t i = 0; i < width; ++i) {
        const double luma = (y[i] - 16) / 219.0;
        const double pb = (u[i / 2] - 128) / 224.0;
        const double pr = (v[i / 2] - 128) / 224.0;
        const double red = luma + 2 * (1 - kr) * pr;
        const double blue = luma + 2 * (1 - kb) * pb;
        const double green = (luma - kr * red - kb * blue) / (1 - kr - kb);
        const double wanted[] = {blue, green, red};
        for (std::size_t c = 0; c < 3; ++c)
          ASSERT_NEAR(bgr[3 * i + c], std::clamp(wanted[c] * 255, 0.0, 255.0), 1.5) << i << " of " << count;
      }
      // Mild colours, so that none is beyond what a byte can hold.
      for (auto* row : {&y, &u, &v}) {
        for (auto& value : *row)
          value = static_cast<std::uint8_t>((row == &y ? 120 : 128) + (value - 128) / 3);
      }
      yuvToBgr(y.data(), u.data(), v.data(), bgr.data(), 2 * count, matrix);
      auto lower = y;
      changeMatrix(y.data(), lower.data(), u.data(), v.data(), count, matrix);
      EXPECT_EQ(y, lower) << "both rows alike";
      Row after(6 * count);
      yuvToBgr(y.data(), u.data(), v.data(), after.data(), 2 * count, other);
      for (std::size_t i = 0; i < bgr.size(); ++i) ASSERT_NEAR(bgr[i], after[i], 3) << i << " of " << count;
    }
  }
}

}  // namespace
}  // namespace kvo::media
