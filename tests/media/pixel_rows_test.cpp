#include "media/pixel_rows.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::media {
namespace {

// Lengths about the widths of vectors, so that bodies and rests of the loops are both run.
constexpr std::size_t kLengths[] = {1, 2, 7, 16, 31, 32, 33, 64, 127, 640};

std::vector<std::uint8_t> noise(std::size_t count, std::uint32_t state) {
  std::vector<std::uint8_t> bytes(count);
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
    std::vector<std::uint8_t> out(count);
    for (const int share : {0, 1, 77, 128, 255, kFullShare}) {
      mixRow(below.data(), above.data(), out.data(), count, share);
      for (std::size_t i = 0; i < count; ++i) {
        const double wanted = below[i] + (above[i] - below[i]) * share / 256.0;
        ASSERT_NEAR(out[i], wanted, 0.5) << "sample " << i << " of " << count << ", share " << share;
      }
    }
    auto inPlace = below;
    mixRow(inPlace.data(), above.data(), inPlace.data(), count, 128);
    mixRow(below.data(), above.data(), out.data(), count, 128);
    EXPECT_EQ(inPlace, out);
  }
}

TEST(PixelRows, LayingOverWeighsByAlpha) {
  for (const auto count : kLengths) {
    const auto below = noise(count, 5);
    const auto alpha = noise(count, 7);
    for (const auto black : {std::uint8_t{0}, std::uint8_t{16}, std::uint8_t{128}}) {
      std::vector<std::uint8_t> faded(count);
      const auto colour = noise(count, 6);
      fadeRow(colour.data(), alpha.data(), faded.data(), count, black);
      std::vector<std::uint8_t> out(count);
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
  std::vector<std::uint8_t> shares(thresholds.size());
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
    std::vector<std::uint8_t> out(count);
    halveRows(upper.data(), lower.data(), out.data(), count);
    for (std::size_t i = 0; i < count; ++i) {
      const double mean = (upper[2 * i] + upper[2 * i + 1] + lower[2 * i] + lower[2 * i + 1]) / 4.0;
      ASSERT_NEAR(out[i], mean, 0.51) << "sample " << i << " of " << count;
    }
  }
}

// A colour is the same by either matrix.
TEST(PixelRows, ChangingTheMatrixKeepsTheColours) {
  for (const auto from : {Matrix::Bt601, Matrix::Bt709}) {
    const auto to = from == Matrix::Bt601 ? Matrix::Bt709 : Matrix::Bt601;
    for (const auto count : kLengths) {
      // Mild colours, so that none is beyond what a byte can hold.
      const auto mild = [](std::vector<std::uint8_t> row, int middle) {
        for (auto& v : row) v = static_cast<std::uint8_t>(middle + (v - 128) / 3);
        return row;
      };
      auto upper = mild(noise(2 * count, 8), 120);
      auto lower = mild(noise(2 * count, 9), 120);
      auto u = mild(noise(count, 10), 128);
      auto v = mild(noise(count, 11), 128);
      std::vector<std::uint8_t> before(6 * count);
      std::vector<std::uint8_t> after(6 * count);
      for (auto* row : {&upper, &lower}) {
        auto otherRow = *row;
        auto newRow = *row;
        auto newU = u;
        auto newV = v;
        yuvToBgr(row->data(), u.data(), v.data(), before.data(), 2 * count, from);
        changeMatrix(newRow.data(), otherRow.data(), newU.data(), newV.data(), count, from);
        EXPECT_EQ(newRow, otherRow) << "both rows alike";
        yuvToBgr(newRow.data(), newU.data(), newV.data(), after.data(), 2 * count, to);
        for (std::size_t i = 0; i < before.size(); ++i)
          ASSERT_NEAR(before[i], after[i], 3) << i << " of " << count;
      }
    }
  }
}

// ITU-R BT.601 and BT.709, limited range.
TEST(PixelRows, ColoursFollowTheStandards) {
  for (const auto matrix : {Matrix::Bt601, Matrix::Bt709}) {
    const double kr = matrix == Matrix::Bt601 ? 0.299 : 0.2126;
    const double kb = matrix == Matrix::Bt601 ? 0.114 : 0.0722;
    for (const auto count : kLengths) {
      const auto y = noise(count, 5);
      const auto u = noise((count + 1) / 2, 6);
      const auto v = noise((count + 1) / 2, 7);
      std::vector<std::uint8_t> bgr(3 * count);
      yuvToBgr(y.data(), u.data(), v.data(), bgr.data(), count, matrix);
      for (std::size_t i = 0; i < count; ++i) {
        const double luma = (y[i] - 16) / 219.0;
        const double pb = (u[i / 2] - 128) / 224.0;
        const double pr = (v[i / 2] - 128) / 224.0;
        const double red = luma + 2 * (1 - kr) * pr;
        const double blue = luma + 2 * (1 - kb) * pb;
        const double green = (luma - kr * red - kb * blue) / (1 - kr - kb);
        const auto wanted = [](double c) { return std::clamp(c * 255, 0.0, 255.0); };
        ASSERT_NEAR(bgr[3 * i], wanted(blue), 1.5) << i;
        ASSERT_NEAR(bgr[3 * i + 1], wanted(green), 1.5) << i;
        ASSERT_NEAR(bgr[3 * i + 2], wanted(red), 1.5) << i;
      }
    }
  }
}

TEST(PixelRows, AGreyRampComesOutGrey) {
  std::vector<std::uint8_t> y(220);
  std::iota(y.begin(), y.end(), std::uint8_t{16});
  const std::vector<std::uint8_t> none(110, 128);
  std::vector<std::uint8_t> bgr(660);
  yuvToBgr(y.data(), none.data(), none.data(), bgr.data(), y.size(), Matrix::Bt601);
  EXPECT_EQ(bgr.front(), 0);
  EXPECT_EQ(bgr.back(), 255);
  for (std::size_t i = 0; i < bgr.size(); i += 3) {
    EXPECT_EQ(bgr[i], bgr[i + 1]);
    EXPECT_EQ(bgr[i], bgr[i + 2]);
  }
}

}  // namespace
}  // namespace kvo::media
