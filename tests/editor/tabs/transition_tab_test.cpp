// The Transition tab: what its controls write into the record, and what a chosen clip makes of them.
#include "editor/tabs/transition_tab.h"

#include "editor/tabs/tab_bench.h"
#include "support/memory_store.h"

#include <functional>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct TransitionBench : test::Bench {
  TransitionTab tab;
  test::NotingHost host{collection};
  test::MemoryStore store;
  TransitionRules rules{editing, tab, host, store};

  TransitionBench() {
    addVideo("a.avi", 0, 6);
    addVideo("b.avi", 0, 4);
    addMusic("song.mp3", 0, 30);
    addVideo("c.mp4", 0, 3);
    collection.icurMov = 2;
    rules.enter();
  }
  Movie& clip(int number = 2) { return collection.MovieList[number]; }
  void fade(Single tenths) {
    clip().TransType("Fade");
    clip().TransIn(tenths);
    rules.show(true);
  }
};

TEST(TransitionTab, TheListHasTheClipsWithAPicture) {
  TransitionBench b;
  std::string names;
  for (const auto& row : b.tab.Lst_TransitionMovies.rows) names += nameOfRow(row) + " ";
  EXPECT_EQ(names, "a.avi b.avi c.mp4 ");
  b.rules.chooseMovie(2);
  EXPECT_EQ(b.tab.Lbl_Tranclips, "song.mp3 -->  c.mp4");
  b.collection.icurMov = 3;
  b.rules.show(true);
  EXPECT_FALSE(b.tab.Lst_TransitionMovies.hasChoice());
  b.rules.pick("Barn");
  EXPECT_EQ(b.clip(4).TransType() + b.clip(3).TransType(), "CUTCUT");
}

TEST(TransitionTab, AChosenClipIsHeldWithinItsLimit) {
  struct Row {
    const char* name;
    int number;
    double length;
    Single wanted;
    const char* held;  // and the slider's end
  };
  for (const auto& row : {Row{"fits", 2, 4, 15, "Fade 15 of 40"}, Row{"too long", 2, 4, 90, "Fade 40 of 40"},
                          Row{"the first clip: half of it", 1, 5, 90, "Fade 25 of 25"}}) {
    TransitionBench b;
    auto& clip = b.clip(row.number);
    clip.LoopEnd(Value(row.length));
    clip.TransType("Fade");
    clip.TransIn(row.wanted);
    clip.IsDirty(false);
    b.collection.icurMov = row.number;
    b.rules.show(true);
    EXPECT_EQ(clip.TransType() + " " + ShortText(clip.TransIn()) + " of " + std::to_string(b.tab.Sld_InMax),
              row.held)
        << row.name;
    EXPECT_FALSE(clip.IsDirty() || !b.boxes.shown.empty()) << row.name;
  }
  TransitionBench b;
  b.fade(15);
  b.clip().LoopEnd(Value(0.1));
  for (const bool rebuild : {true, true, false}) b.rules.show(rebuild);
  EXPECT_EQ(b.clip().TransType() + ShortText(b.clip().TransIn()), "CUT0");
  ASSERT_EQ(b.boxes.shown.size(), 1U) << "not for each change that is heard of";
  EXPECT_EQ(b.boxes.shown.at(0).caption + "|" + b.boxes.shown.at(0).text,
            "KVO - Transition warning|This clip or the previous clip is too short to apply a transition to");
}

TEST(TransitionTab, WhatCannotBeChosenSaysWhy) {
  const std::string kShort = "This clip or the previous clip is too short to apply a transition to";
  const struct {
    const char* name;
    std::function<void(TransitionBench&)> before;
    TransitionPane pane;
    std::string why;  // no transition, no tiles; what stands in their place
  } rows[] = {
      {"a transition", [](auto& b) { b.fade(15); }, TransitionPane::Tiles, "||"},
      {"its particles",
       [](auto& b) {
         b.rules.pick("Shatter In");
         b.rules.openParticles(true);
       },
       TransitionPane::Particles, "|Click Transition first|"},
      {"a cut", [](auto& b) { b.rules.chooseCut(true); }, TransitionPane::Hint,
       "|Click Transition first|The clip follows without a transition.\nClick Transition to choose one."},
      {"too short", [](auto& b) { b.clip().LoopEnd(Value(0.1)); }, TransitionPane::Hint,
       kShort + "|" + kShort + "|" + kShort},
      {"none chosen", [](auto& b) { b.collection.icurMov = 0; }, TransitionPane::Hint,
       "Choose a clip first|Choose a clip first|Choose a clip at the left"},
      {"no clips", [](auto& b) { b.collection.clearLists(); }, TransitionPane::Hint,
       "Choose a clip first|Choose a clip first|Drop clips or stills on the timeline first"}};
  for (const auto& row : rows) {
    TransitionBench b;
    b.fade(15);
    row.before(b);
    b.rules.show(true);
    EXPECT_EQ(paneOf(b.tab), row.pane) << row.name;
    const auto hint = row.pane == TransitionPane::Hint ? hintOf(b.tab) : "";
    EXPECT_EQ(b.tab.whyNone + "|" + whyNoTiles(b.tab) + "|" + hint, row.why) << row.name;
  }
}

TEST(TransitionTab, TheCaptionsTellTheLength) {
  TransitionBench b;
  b.clip().IsStill(true);
  b.clip().LoopEnd(Value("N/A"));
  b.rules.show(true);
  EXPECT_EQ(b.clip().LoopEnd().text(), "7") << "a still gets the length of stills";
  b.clip().IsStill(false);
  b.clip().LoopEnd(Value(4));
  b.fade(15);
  EXPECT_EQ(b.tab.inOver + "|" + b.tab.length + "|" + b.tab.panel.selected + "|" + b.tab.panel.Fra_FadDur,
            "In over 1.5 Secs|1.5|Fade|Transition Duration");
  b.host.look();
  b.rules.moveDuration(2);
  b.rules.moveDuration(0);
  EXPECT_TRUE(b.boxes.shown.empty()) << "while it is dragged";
  b.rules.letGo();
  b.rules.letGo();
  ASSERT_EQ(b.boxes.shown.size(), 1U) << "once for a clip and a length";
  EXPECT_EQ(b.boxes.shown.at(0).caption, "KVO - Short Transition duration");
  EXPECT_EQ(b.tab.panel.Fra_FadDur, "Transition Duration - ( Duration is very Short! )");
  EXPECT_EQ(b.host.look(), "edit Transition length 2 98, sample Transition 2, edit Transition length 2 98");
}

// Each control of the page, and what it leaves in the record.
TEST(TransitionTab, EachControlWritesItsField) {
  const auto kind = [](const Movie& m) { return m.TransType() + " " + ShortText(m.TransIn()); };
  const auto extras = [](const Movie& m) {
    return m.ExtraParamName1() + "=" + m.ExtraParamValue1() + " " + m.ExtraParamName2() + "=" +
           m.ExtraParamValue2();
  };
  const auto border = [](const Movie& m) {
    return std::to_string(m.BorderWidth()) + " " + ShortText(m.BorderSoftness()) + " " +
           m.BorderColor().text() + " " + std::to_string(m.ReplicateX()) + " " +
           std::to_string(m.ReplicateY());
  };
  const auto mask = [](const Movie& m) { return m.MaskName(); };
  struct Row {
    const char* name;
    const char* before;  // over 1.5 seconds; a cut over none
    std::function<void(TransitionRules&)> act;
    std::function<std::string(const Movie&)> field;
    const char* after;
  };
  for (const auto& row : {
           Row{"a tile", "CUT", [](auto& r) { r.pick("Barn"); }, kind, "Barn 20"},
           Row{"another tile", "Fade", [](auto& r) { r.pick("Barn"); }, kind, "Barn 15"},
           Row{"the switch to Cut", "Fade", [](auto& r) { r.chooseCut(true); }, kind, "CUT 15"},
           Row{"the switch back", "CUT", [](auto& r) { r.chooseCut(false); }, kind, "Dissolve 20"},
           Row{"an arrow", "Fade", [](auto& r) { r.pickNext(-1); }, kind, "Dissolve 15"},
           Row{"an arrow past the end", "Fade", [](auto& r) { r.pickNext(99); }, kind, "Filled V Up 15"},
           Row{"the length of a cut", "CUT", [](auto& r) { r.moveDuration(33); }, kind, "CUT 0"},
           Row{"the length past its limit", "Fade", [](auto& r) { r.moveDuration(99); }, kind, "Fade 40"},
           Row{"not on offer, but served", "Curtains", [](auto& r) { r.moveDuration(9); }, kind,
               "Curtains 9"},
           Row{"digits", "Blinds", [](auto& r) { r.typeFirstOption("12"); }, extras, "bands=12 ="},
           Row{"no digits", "Blinds", [](auto& r) { r.typeFirstOption("1x"); }, extras, "= ="},
           Row{"six digits", "Blinds", [](auto& r) { r.typeFirstOption("123456"); }, extras, "= ="},
           Row{"a direction", "Blinds", [](auto& r) { r.chooseSecondOption("Up"); }, extras,
               "= Direction=Up"},
           Row{"no direction", "Blinds", [](auto& r) { r.chooseSecondOption("hide"); }, extras, "= ="},
           Row{"options of the one before", "Blinds",
               [](auto& r) { r.chooseSecondOption("Up"), r.pick("Slide"); }, extras, "= ="},
           Row{"border", "Heart",
               [](auto& r) {
                 r.changeBorder({300, -1, 0xFF8000, 0, 4, false});
               },
               border, "255 0 #FF8000 1 4"},
           Row{"a mask", "Heart", [](auto& r) { r.chooseMask("/m/x.jpg"); }, mask, "/m/x.jpg"},
       }) {
    TransitionBench b;
    b.clip().TransType(row.before);
    b.clip().TransIn(b.clip().TransType() == "CUT" ? 0 : 15);
    b.rules.show(true);
    row.act(b.rules);
    EXPECT_EQ(row.field(b.clip()), row.after) << row.name;
  }
}

TEST(TransitionTab, ParticlesAreOptionsOfTheCollection) {
  TransitionBench b;
  for (const auto& [name, shows] : {std::pair{"Whirlwind", true}, {"Shatter Left", false}, {"Fade", false}}) {
    b.clip().TransType(name);
    b.clip().TransIn(10);
    b.rules.show(true);
    EXPECT_EQ(b.tab.panel.Cmd_ParticleOpts, shows) << name;
  }
  b.rules.openParticles(true);
  EXPECT_FALSE(b.tab.particlesOpen) << "a fade has none";
  b.rules.pick("Shatter Left");
  EXPECT_TRUE(b.tab.panel.Cmd_ParticleOpts);
  b.rules.openParticles(true);
  EXPECT_TRUE(b.tab.particlesOpen);
  EXPECT_EQ(b.clip().TransType(), "Shatter Left");
  const auto kept = [&] {
    const auto& p = b.settings.preferences();
    return std::tuple(p.UseParticleDefaults, p.MaxParticles, p.ParticleMotionSpeed, p.ParticleSpinSpeed,
                      p.PartExponentialProgressDuration, p.PartExponentialProgressScale);
  };
  b.rules.changeParticles({false, 300, 20, 55, 4, 5});
  EXPECT_EQ(kept(), std::tuple(false, 300, 20, 5, 0.4F, 0.5F));
  auto defaults = b.tab.particles;
  defaults.Chk_UseParticleDefaults = true;
  b.rules.changeParticles(defaults);
  EXPECT_EQ(kept(), std::tuple(true, 300, 20, 5, 0.0F, 0.3F));
}

TEST(TransitionTab, ASampleIsShownForWhatLooksOtherwise) {
  TransitionBench b;
  EXPECT_EQ(b.host.look(), "kill, sample Transition 2") << "of a cut";
  b.rules.show(true);
  EXPECT_EQ(b.host.look(), "") << "nothing has changed";
  b.rules.pick("Barn");
  b.rules.show(true);  // the change watch hears of the pick
  b.rules.pick("Barn");
  EXPECT_EQ(b.host.look(),
            "edit Transition 2 98, sample Transition 2, edit Transition 2 98, sample Transition 2");
  b.clip().TransIn(5);  // by an undo
  b.rules.show(true);
  b.rules.enter();
  EXPECT_EQ(b.host.look(), "sample Transition 2, sample Transition 2");
  b.host.refuses = true;
  b.rules.pick("Fade");
  b.rules.moveDuration(30);
  b.rules.chooseCut(true);
  EXPECT_EQ(b.tab.panel.selected + (b.tab.panel.listVisible ? " in the list, " : ", ") +
                std::to_string(b.tab.Sld_In),
            "Barn in the list, 5")
      << "what is refused shows the record";
}

TEST(TransitionTab, NamesAreFoundAndRemembered) {
  TransitionBench b;
  auto& names = b.rules.names();
  using Names = std::vector<std::string>;
  names.find(" CIRCLE1");
  EXPECT_EQ(b.tab.names.shown, (Names{"Circle1", "Circle16"}));
  b.rules.pickNext(1);
  EXPECT_EQ(b.clip().TransType(), "Circle1");
  names.find("");
  EXPECT_EQ(b.tab.names.shown.size(), transitionNames().size());
  for (const auto* name : {"Star5", "Barn"}) names.toggleFavourite(name);
  names.showFavouritesAlone(true);
  EXPECT_EQ(b.tab.names.shown, (Names{"Barn", "Circle1", "Star5"}));
  names.toggleFavourite("Star5");
  TransitionTab later;
  TransitionRules again(b.editing, later, b.host, b.store);
  EXPECT_TRUE(again.names().isFavourite("Barn") && !again.names().isFavourite("Star5"));
  EXPECT_EQ(later.names.lastUsed, Names{"Circle1"});
}

}  // namespace
}  // namespace kvo
