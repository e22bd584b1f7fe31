#include "base/text.h"
#include "render/options_view.h"
#include "render/output_profiles.h"
#include "render/system_profile.h"
#include "render/wm8_profile.h"
#include "support/golden.h"
#include "support/memory_files.h"
#include "support/memory_locks.h"
#include "support/scripted_boxes.h"
#include "vocabulary/encode_profiles.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(OptionsView, HasAListOrWords) {
  std::string log;
  for (const auto kind :
       {OutputKind::Wmv, OutputKind::Wma, OutputKind::Mp4, OutputKind::Mp3, OutputKind::Gif}) {
    RenderState state;
    state.kind = kind;
    if (kind == OutputKind::Wmv || kind == OutputKind::Wma)
      state.Lst_WMVFormats = PopulateWMVProfileOpts(kind == OutputKind::Wma);
    else if (kind != OutputKind::Gif)
      state.Lst_MadeFor = {{"", "As on the Create page", "640 x 480"}};
    const auto view = optionsView(state);
    log += view.caption + (view.isListed() ? ", a list" : ", words") +
           (view.showsSizes ? ", with sizes" : "") + (view.offersOwnSize ? ", an own size" : "") + "\n" +
           view.hint + "\n";
    for (const auto* rows : {&view.profiles, &view.purposes})
      for (const auto& row : *rows) log += "  " + row.name + " | " + row.size + "\n";
  }
  test::expectGoldenLog(log);
}

TEST(OutputProfiles, TellOfTheirSize) {
  struct Row {
    int number;
    OutputSize output;
    bool usesCodecSize;
  };
  std::string log;
  for (const auto& row : {Row{7, {240, 176}, false}, Row{25, {240, 176}, false}, Row{35, {352, 288}, true},
                          Row{38, {640, 480}, true}, Row{26, {640, 480}, false}, Row{40, {641, 480}, true},
                          Row{20, {641, 481}, true}, Row{1, {641, 481}, false}}) {
    const auto told = ShowProfileDescription(row.number, row.output, row.usesCodecSize);
    log += std::to_string(row.number) + ": " + replaced(told.text, "\r\n", " / ") + "\n";
    for (const auto& box : told.warnings)
      log += "  " + box.caption + ": " + replaced(box.text, "\r\n", " / ") + "\n";
  }
  test::expectGoldenLog(log);
  EXPECT_FALSE(GetProfileXYDimensions(39) || GetProfileXYDimensions(16) || GetProfileXYDimensions(42));
}

// The text of both kinds, at the profile's own size and at the movie's; of the others what differs.
TEST(Wm8Profile, FilesAreWrittenToTheByte) {
  const auto whole = wm8ProfileBytes(29, std::nullopt, "") + wm8ProfileBytes(36, OutputSize{640, 360}, "16");
  test::expectGolden("profiles.prx", whole);
  const auto bytes = wm8ProfileBytes(41, std::nullopt, "");
  EXPECT_TRUE(bytes.starts_with(std::string("<\0P\0", 4)));
  EXPECT_TRUE(bytes.ends_with(std::string(">\0\r\0\n\0\r\0\n\0\r\n\r\n", 14)));
  EXPECT_TRUE(wm8ProfileBytes(25, std::nullopt, "").empty());
  EXPECT_TRUE(wm8ProfileBytes(42, std::nullopt, "").empty());
  for (int number = 0; number <= kLastProfile; ++number) {
    EXPECT_EQ(systemProfile(number).has_value(), number < kSystemProfiles) << number;
    EXPECT_EQ(wm8ProfileSize(number).has_value(), number >= kSystemProfiles) << number;
    EXPECT_FALSE(profileText(number).empty()) << number;
  }
}

struct Placed {
  test::MemoryFiles files;
  test::MemoryLocks locks;
  test::ScriptedBoxes boxes;
  ProgramFolder folder{"/prog"};
  SystemProfile profile{{files, locks, folder, boxes}};

  Placed() { files.all["/prog/wmsysprx.prx"] = "system"; }
};

TEST(SystemProfileFile, IsReplacedForTheLengthOfARender) {
  Placed p;
  p.files.all["/prog/wmsysprx.prx.old"] = "of a render that was killed";
  ASSERT_TRUE(p.profile.CreateWM8RenderProfile(30, OutputSize{640, 360}));
  EXPECT_EQ(p.files.all["/prog/wmsysprx.prx"], wm8ProfileBytes(30, OutputSize{640, 360}, ""));
  EXPECT_EQ(p.files.all["/prog/wmsysprx.prx.old"], "of a render that was killed") << "which was the system's";
  EXPECT_FALSE(p.profile.CreateWM8RenderProfile(31, std::nullopt)) << "one at a time";

  SystemProfile another({p.files, p.locks, p.folder, p.boxes});
  another.mend();
  EXPECT_FALSE(another.CreateWM8RenderProfile(31, std::nullopt));
  EXPECT_EQ(p.boxes.shown.size(), 1U);
  EXPECT_EQ(p.files.all["/prog/wmsysprx.prx"], wm8ProfileBytes(30, OutputSize{640, 360}, ""));

  p.profile.RestoreSysProfile();
  EXPECT_EQ(p.files.all.size(), 1U);
  EXPECT_EQ(p.files.all["/prog/wmsysprx.prx"], "of a render that was killed");
  EXPECT_TRUE(p.locks.held.empty());
  EXPECT_TRUE(another.CreateWM8RenderProfile(31, std::nullopt));
}

TEST(SystemProfileFile, TheNewerOfTwoIsUsedAndWhatFailsChangesNothing) {
  for (int failAt = 0; failAt <= 4; ++failAt) {
    Placed p;
    p.files.all["/prog/wmsyspr9.prx"] = "newer";
    p.files.failAt = failAt;
    const bool works = p.profile.CreateWM8RenderProfile(30, std::nullopt);
    EXPECT_EQ(std::tuple(works, p.files.all.contains("/prog/wmsyspr9.prx.old"),
                         p.files.all["/prog/wmsyspr9.prx"] != "newer", !p.locks.held.empty()),
              std::tuple(failAt == 0, failAt == 0, failAt == 0, failAt == 0))
        << failAt;
    EXPECT_EQ(p.files.all["/prog/wmsysprx.prx"], "system");
  }
}

TEST(SystemProfileFile, TellsWhatIsGone) {
  Placed p;
  p.files.all.clear();
  EXPECT_FALSE(p.profile.CreateWM8RenderProfile(30, std::nullopt));
  EXPECT_EQ(p.boxes.shown.at(0).text, "Failed to find WM8 System Encoding profiles");
  EXPECT_EQ(p.boxes.shown.at(0).caption, "KVO - Write WM8 Movie");
  for (const bool oursIsGone : {false, true}) {
    Placed q;
    ASSERT_TRUE(q.profile.CreateWM8RenderProfile(30, std::nullopt));
    q.files.all.erase("/prog/wmsysprx.prx.old");
    if (oursIsGone) q.files.all.clear();
    q.profile.RestoreSysProfile();
    EXPECT_EQ(q.boxes.shown.at(0).text, oursIsGone
                                            ? "Failed to restore the WM8 System Encoding profiles"
                                            : "Failed to restore the original WM8 System Encoding profiles");
    EXPECT_EQ(q.boxes.shown.at(0).caption, "KVO - WM8 Restore");
  }
}

}  // namespace
}  // namespace kvo
