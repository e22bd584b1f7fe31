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
  constexpr const char* kCancel = "";
  struct Row {
    const char* what;
    std::string SkinPath, file;
    bool noDialog;
    const char* chosen;
    const char* held;
    const char* calls;
    std::string pathAfter;
    std::size_t logged;
  };
  const Row rows[] = {
      {"built in", "Def", "", true, kCancel, "/prog/Skins/blue.bmp", "pause all+ ", "Def", 0},
      {"built in, whatever the file", "Quirl", "/u/mine.png", false, kCancel, "/prog/Skins/Plastique.bmp",
       "pause all+ ", "Quirl", 0},
      {"file", "/u/mine.png", "/u/mine.png", true, kCancel, "/u/mine.png", "all PLAYON play ", "/u/mine.png",
       0},
      {"file that is gone", "/u/gone.png", "/u/gone.png", true, kCancel, "/prog/Skins/blue.bmp",
       "all PLAYON play ", "Def", 1},
      {"file that is no picture", "", "/u/broken.wmf", false, kCancel, "/prog/Skins/blue.bmp",
       "all PLAYON play ", "Def", 1},
      {"dialog", "", "", false, "/u/mine.png", "/u/mine.png", "pause all+ ", "/u/mine.png", 0},
      {"dialog, no picture", "", "", false, "/u/broken.wmf", "/prog/Skins/blue.bmp", "pause all+ ", "Def", 1},
      {"dialog, taken back", "", "", false, kCancel, "", "", "", 0},
      {"by name", "/u/mine.png", "", true, kCancel, "/prog/Skins/blue.bmp", "pause all+ ", "/u/mine.png", 0},
  };
  for (const auto& row : rows) {
    SkinsBench b;
    b.calls.holdsClip = true;
    b.settings.adjust().SkinPath = row.SkinPath;
    if (*row.chosen != '\0') b.dialogs.answers = {row.chosen};
    bool wasBusy = false;
    b.calls.whileBuilding = [&] {
      wasBusy = b.skin().SkinBusy && !b.skins.skins(true, true, "/u/mine.png", true);
    };
    const bool painted = *row.held != '\0';
    EXPECT_EQ(b.skins.skins(row.noDialog, false, row.file, false), painted) << row.what;
    EXPECT_EQ(b.pictures.held, row.held) << row.what;
    EXPECT_EQ(b.skin().picture, row.held) << row.what;
    EXPECT_EQ(b.calls.calls, row.calls) << row.what;
    EXPECT_EQ(b.path(), row.pathAfter) << row.what;
    EXPECT_EQ(b.log.texts().size(), row.logged) << row.what;
    EXPECT_EQ(wasBusy, painted) << row.what;
    EXPECT_FALSE(b.skin().SkinBusy || b.window.face.visible) << row.what;
  }
}

TEST(Skins, AskForAPictureWhereTheLastOneWasFound) {
  SkinsBench b;
  b.settings.adjust().SkinPath = "Quirl";
  const int ask = static_cast<int>(b.skins.menu().size()) - 1;
  b.skins.choose(ask);
  EXPECT_EQ(b.path(), "Quirl") << "taken back";
  EXPECT_FALSE(b.settings.state.IsDirty);
  b.skins.choose(2);
  b.settings.state.IsDirty = false;
  b.dialogs.answers = {"/u/mine.png"};
  b.skins.choose(ask);
  EXPECT_EQ(b.path(), "/u/mine.png");
  EXPECT_EQ(b.skin().LogoColor, 0xFF0000U) << "as it will be when the collection is opened again";
  EXPECT_TRUE(b.settings.state.IsDirty) << "it is to be kept";
  EXPECT_TRUE(b.skins.menu().back().isChosen);
  b.skins.choose(ask);
  ASSERT_EQ(b.dialogs.asked.size(), 3U);
  EXPECT_EQ(b.dialogs.asked[0].title, "Change KVO Skin.");
  EXPECT_EQ(b.dialogs.asked[0].folder, "/prog/Skins/");
  EXPECT_EQ(b.dialogs.asked[0].filters.at(b.dialogs.asked[0].filter).name,
            "All Supported Skin Types (*.Bmp;*.jpg;*.mov;*.dib;*.wmf)");
  EXPECT_EQ(b.dialogs.asked[2].folder, "/u/");
}

TEST(Skins, BringTheirColoursAndAreFoundAgain) {
  struct Row {
    int place;
    const char* path;
    ColorRef logo, display;
    const char* calls;
  };
  const Row rows[] = {
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
  b.window.commandRuns = true;
  b.skins.choose(1);
  EXPECT_EQ(b.path(), "Def") << "another command runs";
}

TEST(Skins, OfASettingAreNamedInAnyCase) {
  const std::string unused(128, 'x');
  const std::tuple<std::string, const char*, const char*> rows[] = {
      {"", "Def", "/prog/Skins/blue.bmp"},
      {unused, "Def", "/prog/Skins/blue.bmp"},
      {" QUIRL ", "Quirl", "/prog/Skins/Plastique.bmp"},
      {"def", "Def", "/prog/Skins/blue.bmp"},
      {"/u/mine.png", "/u/mine.png", "/u/mine.png"},
  };
  for (const auto& [stored, path, held] : rows) {
    SkinsBench b;
    b.settings.adjust().SkinPath = stored;
    b.settings.change().DisplayColor = "&H00FF0000&";
    b.skins.applyStored();
    EXPECT_EQ(b.path(), path);
    EXPECT_EQ(b.pictures.held, held);
    EXPECT_EQ(b.skin().DisplayColor, 0xFF0000U);
  }
  SkinsBench own;
  own.settings.adjust().SkinPath = "/u/mine.png";
  own.skins.applyStored();
  EXPECT_EQ(own.skin().LogoColor, 0xFF0000U) << "a picture of the user's has no colour of its own";
  const auto revision = own.skin().revision;
  own.skins.FadBorder(" KVO5 ", 0xFF0000);
  EXPECT_EQ(own.skin().revision, revision) << "what is painted is as it was";
  own.skins.FadBorder("KVO5 - Audio", 0xFF0000);
  EXPECT_GT(own.skin().revision, revision);
}

TEST(Skins, WithoutAnyPictureLeaveTheWindowBareAndSayWhy) {
  SkinsBench b;
  b.files.all.clear();
  b.skins.applyStored();
  EXPECT_EQ(b.skin().picture + b.skin().mask, "");
  EXPECT_EQ(b.log.texts().size(), 2U) << "the mask and the picture";
}

TEST(FontTest, AtSizeOneTellsOfLargeText) {
  struct Row {
    int textHeight;
    double factor;
    const char* choice;
    bool isTold;
  };
  const Row rows[] = {{16, 1, "0", false},  {17, 1, "0", true},     {20, 1.5, "0", false},
                      {20, 1.5, "1", true}, {20, 1, "1.25", false}, {20, 1, "2", false}};
  for (const auto& row : rows) {
    SkinsBench b;
    b.saveCollection("/prog/KVO5.INI", {});
    b.desktop.facts.textHeight = row.textHeight;
    b.desktop.all = {{"one", {}, {}, row.factor}};
    b.store.all["InterfaceSize"] = row.choice;
    b.startUp.run({}, "/");
    EXPECT_EQ(b.boxes.shown.size(), row.isTold ? 1U : 0U)
        << row.textHeight << " " << row.factor << row.choice;
  }
}

TEST(ColorOfText, ReadsBothForms) {
  const std::pair<const char*, ColorRef> rows[] = {
      {"65280", 65280}, {"&H00FF0000&", 0xFF0000}, {"&H12x", kDefaultColor}, {"-1", kDefaultColor}};
  for (const auto& [text, colour] : rows) EXPECT_EQ(colorOfText(text), colour) << text;
}

}  // namespace
}  // namespace kvo
