#include "program/skins.h"

#include "support/program_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct SkinsBench : test::ProgramBench {
  SkinsBench() {
    for (const auto* name : {"/prog/Skins", "/prog/Skins/snakesk.jpg", "/u/mine.png"})
      files.all[name] = "picture";
    files.all["/u/broken.wmf"] = "?";
  }
  [[nodiscard]] const SkinState& skin() const { return window.skin; }
  [[nodiscard]] const std::string& path() const { return settings.preferences().SkinPath; }
};

TEST(Skins, ArePickedBySettingThenFileThenDialogThenName) {
  const struct {
    const char* what;
    std::string SkinPath, file;
    bool noDialog;
    std::string chosen;   // in the dialog, which is cancelled else
    const char* becomes;  // the picture, what was called, the setting
    std::size_t logged = 0;
  } rows[] = {
      {"built in", "Def", "", true, "", "/prog/Skins/blue.bmp pause all+ Def"},
      {"built in, whatever the file", "Quirl", "/u/mine.png", false, "",
       "/prog/Skins/Plastique.bmp pause all+ Quirl"},
      {"file", "/u/mine.png", "/u/mine.png", true, "", "/u/mine.png all PLAYON play /u/mine.png"},
      {"file that is gone", "/u/gone.png", "/u/gone.png", true, "",
       "/prog/Skins/blue.bmp all PLAYON play Def", 1},
      {"file that is no picture", "", "/u/broken.wmf", false, "", "/prog/Skins/blue.bmp all PLAYON play Def",
       1},
      {"dialog", "", "", false, "/u/mine.png", "/u/mine.png pause all+ /u/mine.png"},
      {"dialog, no picture", "", "", false, "/u/broken.wmf", "/prog/Skins/blue.bmp pause all+ Def", 1},
      {"by name", "/u/mine.png", "", true, "", "/prog/Skins/blue.bmp pause all+ /u/mine.png"},
  };
  for (const auto& row : rows) {
    SkinsBench b;
    b.calls.holdsClip = true;
    b.settings.adjust().SkinPath = row.SkinPath;
    if (!row.chosen.empty()) b.dialogs.answers = {row.chosen};
    bool wasBusy = false;
    b.calls.whileBuilding = [&] {
      wasBusy = b.skin().SkinBusy && !b.skins.skins(true, true, "/u/mine.png", true);
    };
    EXPECT_TRUE(b.skins.skins(row.noDialog, false, row.file, false)) << row.what;
    EXPECT_EQ(b.pictures.held + " " + b.calls.calls + b.path(), row.becomes) << row.what;
    EXPECT_EQ(b.skin().picture, b.pictures.held) << row.what;
    EXPECT_EQ(b.log.texts().size(), row.logged) << row.what;
    EXPECT_TRUE(wasBusy) << row.what;
    EXPECT_FALSE(b.skin().SkinBusy || b.window.face.visible) << row.what;
  }
}

TEST(Skins, BringTheirColoursAndAreFoundAgain) {
  const struct {
    int place;
    const char* path;
    ColorRef logo, display;
    const char* calls;
  } rows[] = {
      {0, "Def", 0xC0C000, 0xC0C000, "pause all+ "},
      {1, "Quirl", 0xC0C000, 0xC0C000, "pause all+ "},
      {2, "/prog/Skins/snakesk.jpg", 0xFFFF00, 0x00FF00, "stop all+ "},
  };
  for (const auto& row : rows) {
    SkinsBench b;
    b.skins.choose(row.place);
    EXPECT_EQ(b.path(), row.path);
    EXPECT_EQ(b.settings.preferences().DisplayColor, std::to_string(row.display));
    EXPECT_EQ(b.calls.calls, row.calls);
    EXPECT_TRUE(b.settings.state.IsDirty);
    const auto revision = b.skin().revision;
    b.window.skin.LogoColor = b.window.skin.DisplayColor = 0;
    b.skins.applyStored();
    EXPECT_GT(b.skin().revision, revision);
    EXPECT_EQ(b.skin().LogoColor, row.logo) << row.path;
    EXPECT_EQ(b.skin().DisplayColor, row.display) << row.path;
    EXPECT_EQ(b.skin().logoCaption, "KVO5     ");
    EXPECT_TRUE(b.skins.menu()[static_cast<std::size_t>(row.place)].isChosen);
  }
  SkinsBench b;
  b.settings.adjust().SkinPath = "/u/mine.png";
  b.skins.choose(3);  // its picture is not there
  EXPECT_EQ(b.path() + b.calls.calls, "/u/mine.png");
  b.files.all["/prog/Skins/snakesk.jpg"] = "no";
  b.skins.choose(2);
  EXPECT_EQ(b.path(), "Def");
  EXPECT_EQ(b.settings.preferences().DisplayColor, "12632064") << "the colours of what is shown";
  ASSERT_EQ(b.boxes.shown.size(), 1U);
  EXPECT_EQ(b.boxes.shown[0].text, "no picture /prog/Skins/snakesk.jpg\r\nThe default skin takes its place.");
}

TEST(ColorOfText, ReadsBothForms) {
  const std::pair<const char*, ColorRef> rows[] = {
      {"65280", 65280}, {"&H00FF0000&", 0xFF0000}, {"&H12x", kDefaultColor}, {"-1", kDefaultColor}};
  for (const auto& [text, colour] : rows) EXPECT_EQ(colorOfText(text), colour) << text;
}

}  // namespace
}  // namespace kvo
