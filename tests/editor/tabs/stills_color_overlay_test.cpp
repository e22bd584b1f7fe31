// What the controls of the tabs Stills, Color and Overlay do to the records.
#include "editor/tabs/color_tab.h"
#include "editor/tabs/overlay_tab.h"
#include "editor/tabs/stills_tab.h"
#include "editor/tabs/tab_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TabBench;

struct StillsBench : TabBench {
  StillsTab tab;
  StillsBench() {
    auto& second = addVideo("second.bmp", 0, 3);
    second.IsStill(true);
    second.stretchmode(2);
    settings.adjust().StillsIndividual = true;
  }
  void open() {
    enterTab(editing, tab, host);
    host.look();
  }
  [[nodiscard]] std::string stills() {
    std::string all;
    for (const int i : {1, 3, 5})
      all += clip(i).LoopEnd().text() + "/" + std::to_string(clip(i).stretchmode()) + " ";
    return all;
  }
};

TEST(StillsTab, ShowsTheChosenStill) {
  StillsBench b;
  b.open();
  EXPECT_EQ(b.tab.caption, "Still Options - 2 stills in this collection");
  EXPECT_EQ(b.clip(3).DurationTime().text(), "7") << "a still without a length has the default one";
  EXPECT_EQ(b.tab.whyNot + b.tab.listWhyNot + b.tab.reading, "7.0 s");
  chooseStill(b.editing, b.tab, b.host, 1);
  EXPECT_EQ(b.host.look(), "clip 5");
  EXPECT_EQ(b.tab.reading + std::to_string(b.tab.controls.aspect), "3.0 s2");
  b.collection.icurMov = 2;
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(chosenClip(b.tab.Lst_Movies), 5) << "another clip in hand is no still";
  for (const int still : {5, 3}) b.collection.MovieList.remove(still);
  b.settings.state.DefaultStillDuration = 4.5F;
  followTab(b.editing, b.tab, b.host, true);
  for (const auto& whyNot : {b.tab.whyNot, b.tab.listWhyNot, b.tab.Slider1.whyNot})
    EXPECT_EQ(whyNot, "There is no still in this collection");
  EXPECT_EQ(b.tab.Slider1.Value, 4500);
  moveStillDuration(b.editing, b.tab, b.host, 6000);
  EXPECT_EQ(b.host.look(), "");
}

// The preview writes the options into the stills, tab or no tab.
TEST(StillsTab, APreviewLeavesThemWhatTheyHave) {
  struct Row {
    bool individually;
    double seconds;
    int aspect;
    bool shownIndividually;
  };
  for (const auto& row : {Row{true, 3, 2, true}, Row{false, 3, 2, false}, Row{false, 3.0004, 2, false},
                          Row{false, 4.2, 2, true}, Row{false, 3, 1, true}}) {
    StillsBench b;
    b.settings.adjust().StillsIndividual = row.individually;
    restoreStills(b.editing, b.tab);
    b.clip(3).LoopEnd(Value(row.seconds));
    b.clip(3).stretchmode(static_cast<Integer>(row.aspect));
    b.collection.icurMov = 3;
    const auto before = b.stills();
    ApplyStillSettings(b.editing, stillControls(b.editing, b.tab));
    EXPECT_EQ(b.stills(), before);
    EXPECT_EQ(b.tab.controls.individually, row.shownIndividually) << row.seconds << row.aspect;
    EXPECT_EQ(b.settings.preferences().StillsIndividual, row.individually) << "nothing is saved of it";
  }
}

TEST(StillsTab, AreSetAlikeOrOneByOne) {
  struct Row {
    bool individually;
    std::function<void(StillsBench&)> act;
    const char* stills;
    const char* asked;
  };
  const auto duration = [](StillsBench& b) { moveStillDuration(b.editing, b.tab, b.host, 2500); };
  const auto aspect = [](StillsBench& b) { chooseAspect(b.editing, b.tab, b.host, 3); };
  for (const auto& row : {Row{true, duration, "8/0 2.5/0 3/2 ", "edit Still duration 3 98"},
                          Row{false, duration, "8/0 2.5/0 2.5/0 ", "edit Still duration 0 98"},
                          Row{true, aspect, "8/0 7/3 3/2 ", "edit Still aspect 3 98"},
                          Row{false, aspect, "8/0 7/3 7/3 ", "edit Still aspect 0 98"}}) {
    StillsBench b;
    b.open();
    if (!row.individually) {
      chooseIndividually(b.editing, b.tab, b.host, false);
      EXPECT_EQ(b.stills(), "8/0 7/0 7/0 ") << "as the chosen one is";
    }
    EXPECT_EQ(b.tab.listWhyNot, row.individually ? "" : "All stills are treated the same");
    b.host.look();
    row.act(b);
    EXPECT_EQ(b.stills(), row.stills);
    EXPECT_EQ(b.host.look(), row.asked);
  }
}

TEST(ColorTab, EachLevelWritesItsField) {
  TabBench b;
  ColorTab tab;
  b.clip(2).Red(110);
  b.collection.icurMov = 2;
  enterTab(b.editing, tab, b.host);
  EXPECT_EQ(tab.Lst_ColorAdjust.rows.size(), 3U) << "music has no colours";
  EXPECT_EQ(tab.levels[0].Value, 110);
  for (std::size_t i = 0; i < kColourLevels; ++i)
    moveColourLevel(b.editing, tab, b.host, static_cast<ColourLevel>(i), static_cast<int>(i) + 1);
  tickSepia(b.editing, tab, b.host, true);
  const auto stored = [&m = b.clip(2)] {
    std::string all = m.Sepia() ? "sepia " : "";
    for (const Single v :
         {m.Red(), m.Green(), m.Blue(), m.Threshold(), m.Contrast(), m.Brightness(), m.Gamma()})
      all += ShortText(v);
    return all;
  };
  EXPECT_EQ(stored(), "sepia 1234567");
  EXPECT_TRUE(tab.Chk_Sepia);
  EXPECT_EQ(b.host.look().substr(0, 29), "edit Red 2 0, sample Colour 2");
  resetColours(b.editing, tab, b.host);
  EXPECT_EQ(stored(), "0000000");
  EXPECT_EQ(tab.whyNot + tab.resetWhyNot, "All values are 0 already");
  b.host.look();
  b.host.refuses = true;
  moveColourLevel(b.editing, tab, b.host, ColourLevel::Red, 40);
  EXPECT_EQ(tab.levels[0].Value, 0) << "it shows what the record has";
  b.clip(1).Gamma(3);
  for (const int chosenElsewhere : {4, 1, 3}) {
    b.collection.icurMov = chosenElsewhere;
    followTab(b.editing, tab, b.host, true);
    EXPECT_EQ(tab.enabled && tab.levels[0].Enabled, chosenElsewhere < 4);
  }
  EXPECT_EQ(b.host.look(), "edit Red 2 0, kill, sample Colour 1, kill")
      << "music and the third clip have nothing to show";
}

struct OverlayBench : TabBench {
  OverlayTab tab;
  OverlayBench() {
    enterTab(editing, tab, host);
    host.look();
  }
};

TEST(OverlayTab, EachControlIsPackedIntoTheBackdrop) {
  struct Row {
    std::function<void(OverlayBench&)> act;
    const char* word;
    const char* asked;
  };
  const auto does = [](auto act, auto... choice) {
    return [=](OverlayBench& b) { act(b.editing, b.tab, b.host, choice...); };
  };
  const Row rows[] = {
      {does(chooseOverlay, 2), "003001100000000000000", "Overlay"},
      {does(chooseOverlayStyle, OverlayStyle::Radial), "002201100000000000000", "Overlay transparency"},
      {does(chooseOverlayPosition, 12), "002012100000000000000", "Overlay position"},
      {does(moveMaxOpacity, 85), "002001085000000000000", "Overlay opacity"},
      {does(moveOverlayIn, 1000), "002001100010000000000", "Overlay fade in"},
      {does(moveOverlayOut, 1500), "002001100000000150000", "Overlay fade out"},
      {does(tickTrimOverlay, true), "002001100000000000001", "Overlay trim"},
      {does(tickOverlaySound, true), "002001100000000000000", "Overlay sound"},
      {does(tickBackdropSound, true), "002001100000000000000", "Backdrop sound"},
      {does(clearPicInPic), "", "Clear overlay"},
  };
  for (const auto& row : rows) {
    OverlayBench b;
    for (const int clip : {1, 2}) b.clip(clip).HasAudio(true);
    chooseOverlay(b.editing, b.tab, b.host, 1);
    b.host.look();
    row.act(b);
    EXPECT_EQ(b.clip(1).HasPicInPic(), row.word);
    EXPECT_EQ(b.host.look(), std::string("edit ") + row.asked + " 1 0, sample PictureInPicture 1");
  }
}

TEST(OverlayTab, WithoutAnOverlayNothingIsKept) {
  OverlayBench b;
  EXPECT_EQ(b.tab.whyNot + b.tab.pairWhyNot, "This backdrop has no overlay");
  EXPECT_EQ(b.tab.notice, "Choose a clip to lay over the backdrop.");
  moveMaxOpacity(b.editing, b.tab, b.host, 40);
  EXPECT_EQ(b.host.look() + b.clip(1).HasPicInPic(), "");
  EXPECT_EQ(b.tab.Sld_MaxTransparency.heading, "Max Opacity 40%") << "it waits for the overlay";
  chooseOverlay(b.editing, b.tab, b.host, 1);
  EXPECT_EQ(b.clip(1).HasPicInPic(), "002001040000000000000");
  EXPECT_EQ(b.tab.pairWhyNot, "");
  EXPECT_EQ(b.tab.notice, "The new clip is an uncompressed 32-bit movie, large on disk.");
  EXPECT_EQ(b.tab.Sld_OverlayIn.Max, 4000) << "half of the longer clip";
}

TEST(OverlayTab, LoadsTheBackdropThatIsChosen) {
  OverlayBench b;
  b.clip(2).HasPicInPic("001203070005000025001");
  b.clip(1).HasAudio(true);
  b.clip(1).AudioOutputLevel(0.5F);
  chooseBackdrop(b.editing, b.tab, b.host, 1);
  EXPECT_EQ(b.host.look(), "clip 2, sample PictureInPicture 2");
  EXPECT_EQ(chosenClip(b.tab.Lst_PicinPicOverlays), 1);
  EXPECT_EQ(picInPicText(b.tab.look), "001203070005000025001");
  EXPECT_EQ(b.tab.overlaySound.box.caption, "Add Audio from Overlay Clip - ( Level = 50% )");
  EXPECT_EQ(b.tab.overlaySound.whyNot + b.tab.backdropSound.whyNot, "Clip has no Audio");
  b.clip(2).HasPicInPic("001203040005000025001");
  followTab(b.editing, b.tab, b.host, false);
  EXPECT_EQ(b.tab.look.maxOpacity, 40) << "as by an undo";
  b.settings.state.ObjectChange = 96;
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(b.host.look(), "") << "a mark has been moved";
  b.settings.state.ObjectChange = 99;
  b.collection.MovieList.remove(3);
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(b.host.look(), "kill, sample PictureInPicture 2");
  EXPECT_EQ(b.tab.Lst_PicinPicOverlays.rows.size(), 2U);
}

}  // namespace
}  // namespace kvo
