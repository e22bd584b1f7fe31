#include "base/numbers.h"

#include "support/real_world.h"

#include <clocale>
#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct Masked {
  double value;
  const char* mask;
  const char* text;
};

TEST(FormatMask, RoundsHalfAwayFromZeroOnTheDecimalText) {
  // clang-format off
  const Masked rows[] = {
      {2.675, "0.00", "2.68"}, {-2.675, "0.00", "-2.68"}, {5, "0.0000", "5.0000"},
      {0.00005, "0.0000", "0.0001"}, {0.5, "0", "1"}, {1.5, "0", "2"}, {-0.0, "0.0", "0.0"},
      {-0.04, "0.0", "0.0"}, {9.99, "0.0", "10.0"}, {999.995, "0.00", "1000.00"},
      {1e15, "0", "1000000000000000"}, {1234.5, "###.##", "1234.5"}, {0.5, "###.##", ".5"},
      {5, "##.#0", "5.00"}, {7.256, "000.000", "007.256"}, {3.25, "##0.0##s", "3.25s"},
      {3, "##0.0##s", "3.0s"}, {7, "00", "07"}, {12345, "00", "12345"}, {0, "#####", ""},
      {std::numeric_limits<double>::infinity(), "0.0", "0.0"}};
  // clang-format on
  for (const auto& row : rows)
    EXPECT_EQ(FormatMask(row.value, row.mask), row.text) << row.value << " by " << row.mask;
}

TEST(ShortText, HasNoTrailingZerosAndNoNoise) {
  // clang-format off
  const std::pair<double, const char*> rows[] = {
      {4, "4"}, {4.125, "4.125"}, {0.01 - 0.125, "-0.115"}, {0.1 + 0.2, "0.3"}, {-0.0, "0"},
      {1e14, "100000000000000"}, {999999999999999, "999999999999999"}, {1e15, "1E+15"}, {1.5e16, "1.5E+16"},
      {-2.5e300, "-2.5E+300"}, {0.00001, "0.00001"}, {1.0 / 3, "0.333333333333333"}, {1e-20, "1E-20"}};
  // clang-format on
  for (const auto& [value, text] : rows) EXPECT_EQ(ShortText(value), text);
  EXPECT_EQ(ShortText(29.97F), "29.97");
  EXPECT_EQ(ShortText(0.1F), "0.1");
  EXPECT_EQ(ShortText(16777216.0F), "1.677722E+07");
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
  EXPECT_FALSE(toInteger(32767.5));
  EXPECT_EQ(toInteger(-32768), -32768);
  EXPECT_FALSE(toLong(std::numeric_limits<double>::quiet_NaN()));
}

TEST(Numbers, DoNotFollowTheLocale) {
  const test::ScratchFolder folder;
  const auto made = test::runProgram({"localedef", "-i", "de_DE", "-f", "UTF-8", folder / "de_DE.UTF-8"});
  ::setenv("LOCPATH", folder.path().c_str(), 1);
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << made.err;
  ASSERT_EQ(std::to_string(1.5), "1,500000") << "the locale is in force";
  EXPECT_EQ(FormatMask(1.5, "0.00"), "1.50");
  EXPECT_EQ(ShortText(1.5), "1.5");
  EXPECT_EQ(ShortText(29.97F), "29.97");
  EXPECT_EQ(ToNumber("1.5"), 1.5);
  EXPECT_EQ(ToNumber("1,5"), 1);
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace kvo
