#include "program/skins.h"

#include "support/program_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct SkinsBench : test::ProgramBench {
  SkinsBench() {
    files.put({"/prog/Skins", "/prog/Skins/snakesk.jpg", "/u/mine.png"}, "picture");
    files.all["/u/broken.wmf"] = "?";
  }
  [[nodiscard]] const SkinState& skin() const { return window.skin; }
  [[nodiscard]] const std::string& path() const { return settings.preferences().SkinPath; }
};

TEST(Skins, ArePickedBySettingThenFileThenDialogThenName) {
  const std::string mine = "/u/mine.png", gone = "/u/gone.png", broken = "/u/broken.wmf",
                    blue = "/prog/Skins/blue.bmp";
  // The setting, the file, whether there is a dialog and what is chosen in it, which is cancelled else; the
  // picture, what was called, the setting then and how much was logged.
  const std::tuple<std::string, std::string, bool, std::string, std::string> rows[] = {
      {"Def", "", false, "", blue + " pause all+ Def 0"},
      {"Quirl", mine, true, "", "/prog/Skins/Plastique.bmp pause all+ Quirl 0"},
      {mine, mine, false, "", mine + " all PLAYON play " + mine + " 0"},
      {gone, gone, false, "", blue + " all PLAYON play Def 1"},
      {"", broken, true, "", blue + " all PLAYON play Def 1"},
      {"", "", true, mine, mine + " pause all+ " + mine + " 0"},
      {"", "", true, broken, blue + " pause all+ Def 1"},
      {mine, "", false, "", blue + " pause all+ " + mine + " 0"},
  };
  for (const auto& [SkinPath, file, asks, chosen, becomes] : rows) {
    SCOPED_TRACE(SkinPath + " " + file + " " + chosen);
    SkinsBench b;
    b.calls.holdsClip = true;
    b.settings.adjust().SkinPath = SkinPath;
    if (!chosen.empty()) b.dialogs.answers = {chosen};
    bool wasBusy = false;
    b.calls.whileBuilding = [&] { wasBusy = b.skin().SkinBusy && !b.skins.skins(true, true, mine, true); };
    EXPECT_TRUE(b.skins.skins(!asks, false, file, false));
    EXPECT_EQ(b.pictures.held + " " + b.calls.calls + b.path() + " " + std::to_string(b.log.texts().size()),
              becomes);
    EXPECT_EQ(b.skin().picture, b.pictures.held);
    EXPECT_TRUE(wasBusy && !b.skin().SkinBusy && !b.window.face.visible);
  }
}

TEST(Skins, BringTheirColoursAndAreFoundAgain) {
  const std::tuple<std::size_t, const char*, ColorRef, ColorRef> rows[] = {
      {0, "pause all+ Def 12632064", 0xC0C000, 0xC0C000},
      {1, "pause all+ Quirl 12632064", 0xC0C000, 0xC0C000},
      {2, "stop all+ /prog/Skins/snakesk.jpg 65280", 0xFFFF00, 0x00FF00}};
  for (const auto& [place, becomes, logo, display] : rows) {
    SCOPED_TRACE(becomes);
    SkinsBench b;
    b.skins.choose(static_cast<int>(place));
    EXPECT_EQ(b.calls.calls + b.path() + " " + b.settings.preferences().DisplayColor, becomes);
    EXPECT_TRUE(b.settings.state.IsDirty);
    const auto revision = b.skin().revision;
    b.window.skin.LogoColor = b.window.skin.DisplayColor = 0;
    b.skins.applyStored();
    EXPECT_GT(b.skin().revision, revision);
    EXPECT_EQ(b.skin().LogoColor, logo);
    EXPECT_EQ(b.skin().DisplayColor, display);
    EXPECT_EQ(b.skin().logoCaption, "KVO5     ");
    EXPECT_TRUE(b.skins.menu()[place].isChosen);
  }
  SkinsBench b;
  b.settings.adjust().SkinPath = "/u/mine.png";
  b.skins.choose(3);  // its picture is not there
  EXPECT_EQ(b.path() + b.calls.calls, "/u/mine.png");
  b.files.all["/prog/Skins/snakesk.jpg"] = "no";
  b.skins.choose(2);
  EXPECT_EQ(b.path() + b.settings.preferences().DisplayColor, "Def12632064")
      << "the colours of what is shown";
  EXPECT_EQ(b.boxes.told(),
            "KVO5 - Change Skin|no picture /prog/Skins/snakesk.jpg\r\nThe default skin takes its place.");
}

TEST(ColorOfText, ReadsBothForms) {
  const std::pair<const char*, ColorRef> rows[] = {
      {"65280", 65280}, {"&H00FF0000&", 0xFF0000}, {"&H12x", kDefaultColor}, {"-1", kDefaultColor}};
  for (const auto& [text, colour] : rows) EXPECT_EQ(colorOfText(text), colour) << text;
}

}  // namespace
}  // namespace kvo
