#include "base/frame_rate.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(FrameRate, IsTheRatioThatADecimalMeans) {
  // clang-format off
  const struct {
    double decimal;
    FrameRate rate;
  } rows[] = {
      {25, 25}, {24, 24}, {1, 1}, {1000, 1000}, {12.5, {25, 2}}, {0.4, {2, 5}}, {33.33, {3333, 100}},
      {29.5, {59, 2}}, {23.976, {24000, 1001}}, {23.97602, {24000, 1001}}, {23.98, {24000, 1001}},
      {static_cast<double>(23.98F), {24000, 1001}}, {29.97, {30000, 1001}}, {29.98, {30000, 1001}},
      {30, 30}, {47.95, {48000, 1001}}, {59.94, {60000, 1001}}, {59.95, {60000, 1001}},
      {119.88, {120000, 1001}}, {14.985, {15000, 1001}}, {11.99, {12000, 1001}}, {23.9, {239, 10}},
      {23.995, {4799, 200}}, {59.9, {599, 10}}};
  // clang-format on
  for (const auto& row : rows) {
    const auto rate = FrameRate::fromDecimal(row.decimal);
    ASSERT_TRUE(rate) << row.decimal;
    EXPECT_EQ(*rate, row.rate) << row.decimal << ": " << rate->numerator() << "/" << rate->denominator();
  }
  for (const double none : {0.0, -25.0, 1e-9, 1e9, std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity()}) {
    EXPECT_FALSE(FrameRate::fromDecimal(none)) << none;
  }
  for (double odd = 1; odd < 1000; odd += 0.7321) {
    const auto rate = FrameRate::fromDecimal(odd);
    ASSERT_TRUE(rate);
    EXPECT_NEAR(rate->perSecond(), odd, rate->denominator() == 1001 ? 0.01 : 1e-7 * odd);
  }
}

TEST(FrameRate, FramesBeginAtOrBehindTheirTime) {
  EXPECT_EQ(FrameRate(25).frameFrom(0), 0);
  EXPECT_EQ(FrameRate(25).frameFrom(0.04), 1);
  EXPECT_EQ(FrameRate(25).frameFrom(0.05), 2);
  EXPECT_EQ(FrameRate(25).frameAt(0.05), 1);
  const FrameRate ntsc(30000, 1001);
  EXPECT_EQ(ntsc.frameFrom(1.0010), 30) << "four decimals are near enough";
  EXPECT_EQ(ntsc.frameFrom(0.0334), 1);
  EXPECT_EQ(ntsc.unitsAt(30000, 44100), 1001 * 44100);
  EXPECT_EQ(ntsc.unitsAt(1, 44100), 1471) << "1471.47 samples";
  for (const auto& rate : {FrameRate(25), ntsc, FrameRate(24000, 1001), FrameRate(7, 3), FrameRate(1000)}) {
    for (std::int64_t frame = 0; frame < 3000; ++frame) {
      const double seconds = rate.secondsAt(frame);
      ASSERT_EQ(rate.frameAt(seconds), frame);
      ASSERT_EQ(rate.frameFrom(seconds), frame);
      ASSERT_EQ(rate.frameAt(std::round(seconds * 1e5) / 1e5), frame) << "five decimals";
    }
  }
}

}  // namespace
}  // namespace kvo
