// Numbers as texts and texts as numbers; frame rates.
#include "base/numbers.h"

#include "base/frame_rate.h"
#include "support/real_world.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(FormatMask, RoundsHalfAwayFromZeroOnTheDecimalText) {
  // clang-format off
  const std::tuple<double, const char*, const char*> rows[] = {
      {2.675, "0.00", "2.68"}, {-2.675, "0.00", "-2.68"}, {5, "0.0000", "5.0000"},
      {0.00005, "0.0000", "0.0001"}, {0.5, "0", "1"}, {1.5, "0", "2"}, {-0.0, "0.0", "0.0"},
      {-0.04, "0.0", "0.0"}, {9.99, "0.0", "10.0"}, {999.995, "0.00", "1000.00"},
      {1e15, "0", "1000000000000000"}, {1234.5, "###.##", "1234.5"}, {0.5, "###.##", ".5"},
      {5, "##.#0", "5.00"}, {7.256, "000.000", "007.256"}, {3.25, "##0.0##s", "3.25s"},
      {3, "##0.0##s", "3.0s"}, {7, "00", "07"}, {12345, "00", "12345"}, {0, "#####", ""},
      {std::numeric_limits<double>::infinity(), "0.0", "0.0"}};
  // clang-format on
  for (const auto& [value, mask, text] : rows)
    EXPECT_EQ(FormatMask(value, mask), text) << value << " by " << mask;
}

TEST(ShortText, HasNoTrailingZerosAndNoNoise) {
  // clang-format off
  const std::pair<double, const char*> rows[] = {
      {4, "4"}, {4.125, "4.125"}, {0.01 - 0.125, "-0.115"}, {0.1 + 0.2, "0.3"}, {-0.0, "0"},
      {1e14, "100000000000000"}, {999999999999999, "999999999999999"}, {1e15, "1E+15"}, {1.5e16, "1.5E+16"},
      {-2.5e300, "-2.5E+300"}, {0.00001, "0.00001"}, {1.0 / 3, "0.333333333333333"}, {1e-20, "1E-20"}};
  // clang-format on
  for (const auto& [value, text] : rows) EXPECT_EQ(ShortText(value), text);
  EXPECT_EQ(ShortText(0.1F), "0.1");
  EXPECT_EQ(ShortText(29.97F) + " " + ShortText(16777216.0F), "29.97 1.677722E+07");
}

TEST(ToNumber, TakesTheLeadingNumber) {
  const std::pair<const char*, double> rows[] = {{"", 0},           {"N/A", 0},  {"1,5", 1},    {"12 px", 12},
                                                 {"  -3.5x", -3.5}, {".5", 0.5}, {"-", 0},      {"1e3", 1000},
                                                 {"1e", 1},         {"+7", 7},   {"8.0000", 8}, {"inf", 0},
                                                 {"nan", 0},        {".", 0},    {"5.", 5}};
  for (const auto& [text, value] : rows) EXPECT_EQ(ToNumber(text), value) << text;
}

TEST(NumberIn, TakesOnlyAWholeNumberText) {
  EXPECT_EQ(numberIn(" 12 "), 12);
  for (const auto* text : {"", "12x", "1,5", "N/A", "--1", "0x10"}) EXPECT_FALSE(numberIn(text)) << text;
}

TEST(RoundToWhole, GoesToTheEvenNeighbourAtHalves) {
  const std::pair<double, double> rows[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},   {-0.5, 0},
                                            {-1.5, -2}, {2.4999, 2}, {2.5001, 3}};
  for (const auto& [value, whole] : rows) EXPECT_EQ(RoundToWhole(value), whole) << value;
  EXPECT_EQ(toInteger(-32768), -32768);
  EXPECT_FALSE(toInteger(32767.5) || toLong(std::numeric_limits<double>::quiet_NaN()));
}

TEST(Numbers, DoNotFollowTheLocale) {
  const test::ScratchFolder folder;
  const auto made = test::runProgram({"localedef", "-i", "de_DE", "-f", "UTF-8", folder / "de_DE.UTF-8"});
  ::setenv("LOCPATH", folder.path().c_str(), 1);
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << made.err;
  ASSERT_EQ(std::to_string(1.5), "1,500000") << "the locale is in force";
  EXPECT_EQ(FormatMask(1.5, "0.00") + " " + ShortText(1.5) + " " + ShortText(29.97F), "1.50 1.5 29.97");
  EXPECT_EQ(ToNumber("1.5"), 1.5);
  EXPECT_EQ(ToNumber("1,5"), 1);
  std::setlocale(LC_ALL, "C");
}

TEST(FrameRate, IsTheRatioThatADecimalMeans) {
  // clang-format off
  const std::pair<double, FrameRate> rows[] = {
      {25, 25}, {24, 24}, {1, 1}, {1000, 1000}, {12.5, {25, 2}}, {0.4, {2, 5}}, {33.33, {3333, 100}},
      {29.5, {59, 2}}, {23.976, {24000, 1001}}, {23.97602, {24000, 1001}}, {23.98, {24000, 1001}},
      {static_cast<double>(23.98F), {24000, 1001}}, {29.97, {30000, 1001}}, {29.98, {30000, 1001}},
      {30, 30}, {47.95, {48000, 1001}}, {59.94, {60000, 1001}}, {59.95, {60000, 1001}},
      {119.88, {120000, 1001}}, {14.985, {15000, 1001}}, {11.99, {12000, 1001}}, {23.9, {239, 10}},
      {23.995, {4799, 200}}, {59.9, {599, 10}}};
  // clang-format on
  for (const auto& [decimal, ratio] : rows) {
    const auto rate = FrameRate::fromDecimal(decimal);
    ASSERT_TRUE(rate) << decimal;
    EXPECT_EQ(*rate, ratio) << decimal << ": " << rate->numerator() << "/" << rate->denominator();
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
