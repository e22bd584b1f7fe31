#include "core/records/setting_rows.h"

#include <map>
#include <set>
#include <vector>

#include <gtest/gtest.h>

namespace kvo {
namespace {

std::string sampleOf(SettingKind kind) {
  switch (kind) {
    case SettingKind::Boolean:
    case SettingKind::Flag:
      return "True";
    case SettingKind::Integer:
    case SettingKind::Long:
      return "3";
    case SettingKind::Single:
    case SettingKind::Double:
      return "2.5";
    default:
      return "a text";
  }
}

TEST(SettingRows, EachFieldConvertsBothWaysAndMarksAsItShould) {
  std::set<std::string_view> names;
  for (const auto& section : settingSections()) {
    for (const auto& row : section.rows) {
      EXPECT_TRUE(names.insert(row.name).second || row.name == "ShowVids") << row.name;
      KVO2 s;
      const auto sample = sampleOf(row.kind);
      EXPECT_TRUE(row.take(s, sample)) << row.name;
      EXPECT_EQ(row.text(s), sample) << row.name;
      EXPECT_EQ(s.state.IsDirty, row.marks || row.name == "IsDirty") << row.name;
      EXPECT_EQ(row.take(s, "no number"), sample == "a text") << row.name;
      EXPECT_EQ(row.kept == Kept::Collection, !row.key.empty() && row.kept != Kept::User) << row.name;
    }
  }
  EXPECT_TRUE(settingRow("OutPutFrameRate")->marks);
  EXPECT_FALSE(settingRow("RenderHeight")->marks);
  EXPECT_EQ(settingRow("NoSuchField"), nullptr);
}

// A row for each: together they are as large as what they stand for.
TEST(SettingRows, NoValueOfTheUsersIsWithout) {
  std::size_t bytes = sizeof(UserStore*);
  for (const auto& section : settingSections()) {
    for (const auto& row : section.rows) {
      if (row.kept != Kept::User) continue;
      bytes += row.kind == SettingKind::Boolean   ? sizeof(UserValue<Boolean>)
               : row.kind == SettingKind::Integer ? sizeof(UserValue<Integer>)
                                                  : sizeof(UserValue<double>);
    }
  }
  EXPECT_EQ(bytes, sizeof(UserValues));
}

using Readings = std::vector<std::pair<std::string, std::string>>;  // a text, and what it becomes

void expectRead(const std::map<std::string, Readings>& table, bool rewrites) {
  const ProgramFolder folder("/prog");
  for (const auto& [name, readings] : table) {
    const auto* row = settingRow(name);
    ASSERT_NE(row, nullptr) << name;
    for (const auto& [text, becomes] : readings) {
      KVO2 s;
      SettingRead read{s, folder};
      readSetting(*row, read, text);
      EXPECT_EQ(row->text(s), becomes) << name << " " << text;
      EXPECT_EQ(read.rewrite, rewrites) << name << " " << text;
    }
  }
}

TEST(SettingRows, TextsBecomeValuesByTheRuleOfTheirRow) {
  const auto chars = [](std::size_t count) { return std::string(count, 'e'); };
  expectRead({{"OutputColorDepth", {{"32", "32"}}},
              {"DirectXPrebuffer", {{"1023", "1023"}}},
              {"MoviesInGroup", {{"-70000", "-1"}}},
              {"WheelTripPlay", {{"70000", "7"}}},  // it has no limit: what does not convert changes nothing
              {"RenderHeight", {{"x", "320"}}},
              {"DefaultStartupVid", {{"NO DEFAULT", ""}, {chars(128), ""}}},
              {"RunMode", {{"x", "CREATOR"}}},
              {"AcceptedAgreement", {{"False", "True"}}},
              {"GrfFileName", {{"a\\\\b.grf", "a\\b.grf"}, {"", "/prog/KVORender.grf"}}},
              {"LoadFrom", {{"/./x/", "/x/"}}},
              {"Email", {{chars(127), chars(127)}, {chars(129), chars(129)}}}},
             false);
  expectRead({{"OutputColorDepth", {{"15", "24"}, {"65552", "24"}}},
              {"PreviewType", {{"0", "5"}, {"11", "10"}, {"x", "10"}, {"65546", "10"}, {"-70000", "5"}}},
              {"FadInVal", {{"0", "0.2"}, {"-1E+60", "0.2"}, {"x", "3"}}},
              {"MouseWheelControl", {{"1", "2"}}},
              {"DirectXPrebuffer", {{"1024", "30"}, {"0", "30"}}},
              {"KeyframeCount", {{"10001", "0"}, {"-1", "0"}, {"3000000000", "0"}}},
              {"MoviesInGroup", {{"two", "-1"}}},
              {"MuteAtStart", {{"yes", "False"}}},
              {"RunMode", {{"NOT RUN", "CREATOR"}}},
              {"NoofUses", {{"7", "8"}, {"x", "1"}}},
              {"ErrorLog", {{"", "/prog/KVOError.Log"}}},
              {"Email", {{chars(128), "Unknown"}}}},
             true);
}

TEST(SettingRows, AMissingSectionGivesWhatAFreshObjectHoldsButForThese) {
  const std::map<std::string_view, std::string_view> others = {
      {"LoopPreviews", "True"},
      {"SliderPauseOnRepo", "True"},
      {"LoopCol", "as it was"},
      {"ShowVids", "as it was"},
      {"StillsIndividual", "as it was"},
      {"GrfFileName", "/prog/KVORender.grf"},
      {"StillSavePath", "/prog/ExtractedFrames"},
  };
  const KVO2 fresh;
  const ProgramFolder folder("/prog");
  for (const auto& section : headSections().last(2)) {
    KVO2 s;
    for (const auto& row : section.rows) row.take(s, sampleOf(row.kind));
    SettingRead read{s, folder};
    readWithoutSection(section, read);
    EXPECT_TRUE(read.rewrite);
    for (const auto& row : section.rows) {
      const auto other = others.find(row.name);
      const auto becomes = other == others.end()          ? row.text(fresh)
                           : other->second == "as it was" ? sampleOf(row.kind)
                                                          : std::string(other->second);
      EXPECT_EQ(row.text(s), becomes) << row.name;
    }
  }
}

}  // namespace
}  // namespace kvo
