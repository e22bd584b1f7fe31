#include "core/records/setting_rows.h"

#include <map>
#include <set>

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
  std::set<std::string_view> marking;
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
      if (row.marks) marking.insert(row.name);
    }
  }
  EXPECT_EQ(marking,
            (std::set<std::string_view>{
                "DefaultStartupVid", "MoviesInGroup", "MuteAtStart", "DelayTimer", "DisplayColor",
                "JoinSaveAs", "LoadFrom", "OutputResolution", "OutPutFrameRate", "OutputColorDepth",
                "PreviewType", "ExternalOverlayTrackName", "DubInPlaylistAudioTrks", "ExternalAudioStack",
                "FadInVal", "FadOutVal", "PreviewCPU", "TrackFadeInOut", "VideoTrackFadeAmt"}));
  ASSERT_NE(settingRow("MaxParticles"), nullptr);
  EXPECT_EQ(settingRow("MaxParticles")->read.range.to, 31000);
  EXPECT_EQ(settingRow("NoSuchField"), nullptr);
}

TEST(SettingRows, TextsBecomeValuesByTheRuleOfTheirRow) {
  const auto chars = [](std::size_t count) { return std::string(count, 'e'); };
  struct Row {
    const char* name;
    std::string text;
    std::string becomes;
    bool rewrites = true;
  };
  const Row rows[] = {
      {"OutputColorDepth", "15", "24"},
      {"OutputColorDepth", "32", "32", false},
      {"OutputColorDepth", "65552", "24"},
      {"PreviewType", "0", "5"},
      {"PreviewType", "11", "10"},
      {"PreviewType", "x", "10"},
      {"PreviewType", "65546", "10"},
      {"PreviewType", "-70000", "5"},
      {"FadInVal", "0", "0.2"},
      {"FadInVal", "-1E+60", "0.2"},
      {"FadInVal", "x", "3"},
      {"FadOutVal", "x", "5"},
      {"OutPutFrameRate", "1.5", "24"},
      {"OutPutFrameRate", "-1E+60", "24"},
      {"OutPutFrameRate", "x", "25"},
      {"OutputResolution", "1001", "8"},
      {"OutputResolution", "32768", "8"},
      {"OutputResolution", "1000", "1000", false},
      {"MouseWheelControl", "1", "2"},
      {"MouseWheelControl", "3", "3", false},
      {"ScrollDelay", "0", "0.2"},
      {"ModemType", "0", "350"},
      {"PreviewCPU", "11", "5"},
      {"PreviewCPU", "-100000", "5"},
      {"DirectXPrebuffer", "1024", "30"},
      {"DirectXPrebuffer", "1023", "1023", false},
      {"MaxParticles", "31001", "64"},
      {"MaxParticles", "70000", "64"},
      {"ParticleSpinSpeed", "0", "35"},
      {"KeyframeCount", "10000", "10000", false},
      {"KeyframeCount", "10001", "0"},
      {"KeyframeCount", "3000000000", "0"},
      {"MoviesInGroup", "two", "-1"},
      {"MoviesInGroup", "-70000", "-1", false},
      {"WheelTripPlay", "70000", "7", false},  // no limit is given, so what does not convert changes nothing
      {"RenderHeight", "x", "320", false},
      {"DefaultStartupVid", "NO DEFAULT", "", false},
      {"MuteAtStart", "true", "True", false},
      {"MuteAtStart", "yes", "False"},
      {"CDAutoAnim", "maybe", "True"},
      {"RunMode", "NOT RUN", "CREATOR"},
      {"RunMode", "x", "CREATOR", false},
      {"NoofUses", "7", "8"},
      {"NoofUses", "x", "1"},
      {"UserName", "x", "Unknown", false},
      {"AcceptedAgreement", "False", "True", false},
      {"GrfFileName", "a\\\\b.grf", "a\\b.grf", false},
      {"GrfFileName", "", "/prog/KVORender.grf", false},
      {"ErrorLog", "", "/prog/KVOError.Log"},
      {"JoinSaveAs", chars(128), "/prog"},
      {"LoadFrom", "/./x/", "/x/", false},
      {"Email", chars(128), "Unknown"},
      {"Email", chars(127), chars(127), false},
      {"Email", chars(129), chars(129), false}};
  const ProgramFolder folder("/prog");
  for (const auto& row : rows) {
    KVO2 s;
    SettingRead read{s, folder};
    const auto* setting = settingRow(row.name);
    ASSERT_NE(setting, nullptr) << row.name;
    readSetting(*setting, read, row.text);
    EXPECT_EQ(setting->text(s), row.becomes) << row.name << " " << row.text;
    EXPECT_EQ(read.rewrite, row.rewrites) << row.name << " " << row.text;
  }
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
