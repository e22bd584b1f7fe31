#include "core/file/section_reader.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

std::string rowsOf(const std::string& text, const char* name, int keepOpen = 0) {
  SectionReader reader(text);
  std::vector<SectionRow> rows;
  std::string out;
  if (!reader.GetSection(name, rows, keepOpen)) return "none";
  for (const auto& row : rows) out.append(row.key).append("|").append(row.value).append(";");
  return out;
}

TEST(SectionReader, FollowsTheItemRule) {
  const struct {
    const char* text;
    const char* rows;
  } rows[] = {
      {"[A]\r\nk = v\r\nl=w x \r\n\r\nm = z\r\n", "k|v;l|w x;"},
      {"[A]\nk = v, and more\nl = w\n", "k|v;l|w;"},
      {"[A]\r\nk = v,,x\r\nl = w\r\n", "k|v;l|w;"},
      {"[A]\r\n\"k = v, with comma\"\r\nl = w", "k|v, with comma;l|w;"},
      {"[A]\r\nk = see [here]\r\nl = w\r\n", "none"},
      {"[A]\r\nj = 1\r\nk = see [here.]\r\nl = w\r\n", "j|1;k|see [here.];l|w;"},
      {"[A]\r\n= nothing before\r\nno equals\r\nk = a=b\r\n", "k|a=b;"},
      {"[B]\r\nk = v\r\n", "none"},
      {"[A]\r\n\r\nk = v\r\n", "none"},
      {"", "none"},
  };
  for (const auto& row : rows) EXPECT_EQ(rowsOf(row.text, "A"), row.rows) << row.text;
}

TEST(SectionReader, KeepsItsPlaceAndStopsAtKnownLastRows) {
  SectionReader reader(
      "[M1Main]\r\nNotes = [odd]\r\nlost = 1\r\n\r\n[M1Audio]\r\nVolume = 1\r\nBalance = 2\r\nHasAudioFade= "
      "x\r\n\r\n"
      "[M2Main]\r\na = 1\r\n[M2Audio]\r\nVolume = 3\r\n");
  std::vector<SectionRow> rows;
  EXPECT_FALSE(reader.GetSection("M1Main", rows, 1));
  ASSERT_TRUE(reader.GetSection("M1Audio", rows, 1));
  EXPECT_EQ(rows.size(), 2U);
  ASSERT_TRUE(reader.GetSection("M2Main", rows, 2));
  EXPECT_EQ(rows.size(), 1U);
  ASSERT_TRUE(reader.GetSection("M2Audio", rows, 2)) << "a heading that ended a section is still found";
  EXPECT_FALSE(reader.GetSection("M1Main", rows, 2)) << "never backwards";
  EXPECT_TRUE(reader.GetSection("M1Audio", rows, 0)) << "from the top again";
}

}  // namespace
}  // namespace kvo
