// What the controls of the tabs Stills, Color and Overlay do to the records.
#include "editor/tabs/color_tab.h"
#include "editor/tabs/overlay_tab.h"
#include "editor/tabs/stills_tab.h"
#include "editor/tabs/tab_bench.h"

namespace kvo {
namespace {

using test::does;
using test::lineOf;
using test::TabBench;

struct StillsBench : TabBench {
  StillsTab tab;
  StillsBench() {
    addStill("second.bmp", 3).stretchmode(2);
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
  EXPECT_EQ(b.clip(3).DurationTime().text(), "7") << "a still without a length has the default one";
  EXPECT_EQ(lineOf(b.tab.caption, b.tab.whyNot + b.tab.listWhyNot + "|", b.tab.reading),
            "Still Options - 2 stills in this collection | 7.0 s");
  chooseStill(b.editing, b.tab, b.host, 1);
  EXPECT_EQ(lineOf(b.host.look(), b.tab.reading, b.tab.controls.aspect), "clip 5 3.0 s 2");
  b.collection.icurMov = 2;
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(chosenClip(b.tab.Lst_Movies), 5) << "another clip in hand is no still";
  for (const int still : {5, 3}) b.collection.MovieList.remove(still);
  b.settings.state.DefaultStillDuration = 4.5F;
  followTab(b.editing, b.tab, b.host, true);
  for (const auto& whyNot : {b.tab.whyNot, b.tab.listWhyNot, b.tab.Slider1.whyNot})
    EXPECT_EQ(whyNot, "There is no still in this collection");
  moveStillDuration(b.editing, b.tab, b.host, 6000);
  EXPECT_EQ(lineOf(b.tab.Slider1.Value, b.host.look()), "4500 ");
}

// The preview writes the options into the stills, tab or no tab.
TEST(StillsTab, APreviewLeavesThemWhatTheyHave) {
  for (const auto& [individually, seconds, aspect, shownIndividually] : {std::tuple{true, 3.0, 2, true},
                                                                         {false, 3, 2, false},
                                                                         {false, 3.0004, 2, false},
                                                                         {false, 4.2, 2, true},
                                                                         {false, 3, 1, true}}) {
    StillsBench b;
    b.settings.adjust().StillsIndividual = individually;
    restoreStills(b.editing, b.tab);
    b.clip(3).LoopEnd(Value(seconds));
    b.clip(3).stretchmode(static_cast<Integer>(aspect));
    b.collection.icurMov = 3;
    const auto before = b.stills();
    ApplyStillSettings(b.editing, stillControls(b.editing, b.tab));
    EXPECT_EQ(b.stills(), before);
    EXPECT_EQ(b.tab.controls.individually, shownIndividually) << seconds << aspect;
    EXPECT_EQ(b.settings.preferences().StillsIndividual, individually) << "nothing is saved of it";
  }
}

TEST(StillsTab, AreSetAlikeOrOneByOne) {
  const struct {
    bool individually;
    std::function<void(StillsBench&)> act;
    const char* expected;
  } rows[] = {{true, does(moveStillDuration, 2500), "8/0 2.5/0 3/2 edit Still duration 3 98"},
              {false, does(moveStillDuration, 2500), "8/0 2.5/0 2.5/0 edit Still duration 0 98"},
              {true, does(chooseAspect, 3), "8/0 7/3 3/2 edit Still aspect 3 98"},
              {false, does(chooseAspect, 3), "8/0 7/3 7/3 edit Still aspect 0 98"}};
  for (const auto& row : rows) {
    StillsBench b;
    b.open();
    if (!row.individually) {
      chooseIndividually(b.editing, b.tab, b.host, false);
      EXPECT_EQ(b.stills(), "8/0 7/0 7/0 ") << "as the chosen one is";
    }
    EXPECT_EQ(b.tab.listWhyNot, row.individually ? "" : "All stills are treated the same");
    b.host.look();
    row.act(b);
    EXPECT_EQ(b.stills() + b.host.look(), row.expected);
  }
}

TEST(ColorTab, EachLevelWritesItsField) {
  TabBench b;
  ColorTab tab;
  b.clip(2).Red(110);
  b.collection.icurMov = 2;
  enterTab(b.editing, tab, b.host);
  EXPECT_EQ(lineOf(tab.Lst_ColorAdjust.rows().size(), tab.levels[0].Value), "3 110")
      << "music has no colours";
  for (std::size_t i = 0; i < kColourLevels; ++i)
    moveColourLevel(b.editing, tab, b.host, static_cast<ColourLevel>(i), static_cast<int>(i) + 1);
  tickSepia(b.editing, tab, b.host, true);
  const auto stored = [&m = b.clip(2)] {
    return lineOf(m.Sepia(), m.Red(), m.Green(), m.Blue(), m.Threshold(), m.Contrast(), m.Brightness(),
                  m.Gamma());
  };
  EXPECT_EQ(lineOf(stored(), tab.Chk_Sepia), "1 1 2 3 4 5 6 7 1");
  EXPECT_EQ(b.host.look().substr(0, 29), "edit Red 2 0, sample Colour 2");
  resetColours(b.editing, tab, b.host);
  EXPECT_EQ(lineOf(stored(), tab.whyNot + tab.resetWhyNot), "0 0 0 0 0 0 0 0 All values are 0 already");
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
  const struct {
    std::function<void(OverlayBench&)> act;
    const char* word;
    const char* asked;
  } rows[] = {
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
    EXPECT_EQ(lineOf(b.clip(1).HasPicInPic(), b.host.look()),
              lineOf(row.word, "edit", row.asked, "1 0, sample PictureInPicture 1"));
  }
}

TEST(OverlayTab, WithoutAnOverlayNothingIsKept) {
  OverlayBench b;
  const auto state = [&] {
    return lineOf(b.clip(1).HasPicInPic(), b.tab.whyNot + b.tab.pairWhyNot, "|", b.tab.notice);
  };
  EXPECT_EQ(state(), " This backdrop has no overlay | Choose a clip to lay over the backdrop.");
  moveMaxOpacity(b.editing, b.tab, b.host, 40);
  EXPECT_EQ(b.host.look() + b.clip(1).HasPicInPic(), "");
  EXPECT_EQ(b.tab.Sld_MaxTransparency.heading, "Max Opacity 40%") << "it waits for the overlay";
  chooseOverlay(b.editing, b.tab, b.host, 1);
  EXPECT_EQ(state(), "002001040000000000000  | The new clip is an uncompressed 32-bit movie, large on disk.");
  EXPECT_EQ(b.tab.Sld_OverlayIn.Max, 4000) << "half of the longer clip";
}

TEST(OverlayTab, LoadsTheBackdropThatIsChosen) {
  OverlayBench b;
  b.clip(2).HasPicInPic("001203070005000025001");
  b.clip(1).HasAudio(true);
  b.clip(1).AudioOutputLevel(0.5F);
  chooseBackdrop(b.editing, b.tab, b.host, 1);
  EXPECT_EQ(lineOf(b.host.look(), "|", chosenClip(b.tab.Lst_PicinPicOverlays), picInPicText(b.tab.look)),
            "clip 2, sample PictureInPicture 2 | 1 001203070005000025001");
  EXPECT_EQ(lineOf(b.tab.overlaySound.box.caption, b.tab.overlaySound.whyNot + b.tab.backdropSound.whyNot),
            "Add Audio from Overlay Clip - ( Level = 50% ) Clip has no Audio");
  b.clip(2).HasPicInPic("001203040005000025001");
  followTab(b.editing, b.tab, b.host, false);
  EXPECT_EQ(b.tab.look.maxOpacity, 40) << "as by an undo";
  b.settings.state.ObjectChange = 96;
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(b.host.look(), "") << "a mark has been moved";
  b.settings.state.ObjectChange = 99;
  b.collection.MovieList.remove(3);
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(lineOf(b.host.look(), b.tab.Lst_PicinPicOverlays.rows().size()),
            "kill, sample PictureInPicture 2 2");
}

}  // namespace
}  // namespace kvo
