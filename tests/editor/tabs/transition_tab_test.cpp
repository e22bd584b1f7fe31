// The Transition tab: what its controls write into the record, and what a chosen clip makes of them.
#include "editor/tabs/transition_tab.h"

#include "editor/tabs/tab_bench.h"
#include "support/memory_store.h"
#include "vocabulary/transitions.h"

namespace kvo {
namespace {

using test::lineOf;

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
  // What the clip has, and what the page shows of it then.
  void show(const char* name, double tenths) {
    test::withTransition(clip(), name, tenths);
    rules.show(true);
  }
  void fade(double tenths) { show("Fade", tenths); }
};

TEST(TransitionTab, TheListHasTheClipsWithAPicture) {
  TransitionBench b;
  std::string names;
  for (const auto& row : b.tab.Lst_TransitionMovies.rows()) names += nameOfRow(row) + " ";
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
  for (const auto& [number, length, wanted, held] :  // and the slider's end
       {std::tuple{2, 4, 15, "Fade 15 of 40"}, {2, 4, 90, "Fade 40 of 40"}, {1, 5, 90, "Fade 25 of 25"}}) {
    TransitionBench b;
    auto& clip = b.clip(number);
    clip.LoopEnd(Value(length));
    test::withTransition(clip, "Fade", wanted).IsDirty(false);
    b.collection.icurMov = number;
    b.rules.show(true);
    EXPECT_EQ(lineOf(clip.TransType(), clip.TransIn(), "of", b.tab.Sld_InMax), held);
    EXPECT_FALSE(clip.IsDirty() || !b.boxes.shown.empty()) << held;
  }
  TransitionBench b;
  b.fade(15);
  b.clip().LoopEnd(Value(0.1));
  for (const bool rebuild : {true, true, false}) b.rules.show(rebuild);
  const auto& warning = b.boxes.shown.at(0);
  EXPECT_EQ(lineOf(b.clip().TransType(), b.clip().TransIn(), warning.caption, "|", warning.text),
            "CUT 0 KVO - Transition warning | This clip or the previous clip is too short to apply a "
            "transition to");
  EXPECT_EQ(b.boxes.shown.size(), 1U) << "not for each change that is heard of";
}

TEST(TransitionTab, WhatCannotBeChosenSaysWhy) {
  const std::string kShort = "This clip or the previous clip is too short to apply a transition to";
  const std::pair<std::function<void(TransitionBench&)>, std::string> rows[] = {
      // The pane that is seen; why no transition, why no tiles, and what stands in their place.
      {[](auto& b) { b.fade(15); }, "tiles||"},
      {[](auto& b) { b.rules.pick("Shatter In"), b.rules.openParticles(true); },
       "particles||Click Transition first"},
      {[](auto& b) { b.rules.chooseCut(true); },
       "hint||Click Transition first|The clip follows without a transition.\nClick Transition to choose "
       "one."},
      {[](auto& b) { b.clip().LoopEnd(Value(0.1)); }, "hint|" + kShort + "|" + kShort + "|" + kShort},
      {[](auto& b) { b.collection.icurMov = 0; },
       "hint|Choose a clip first|Choose a clip first|Choose a clip at the left"},
      {[](auto& b) { b.collection.clearLists(); },
       "hint|Choose a clip first|Choose a clip first|Drop clips or stills on the timeline first"}};
  for (const auto& [before, expected] : rows) {
    TransitionBench b;
    b.fade(15);
    before(b);
    b.rules.show(true);
    const auto pane = paneOf(b.tab);
    const auto why = "|" + b.tab.whyNone + "|" + whyNoTiles(b.tab);
    EXPECT_EQ(pane == TransitionPane::Hint        ? "hint" + why + "|" + hintOf(b.tab)
              : pane == TransitionPane::Particles ? "particles" + why
                                                  : "tiles" + why,
              expected);
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
  EXPECT_EQ(lineOf(b.boxes.shown.size(), b.boxes.shown.at(0).caption, "|", b.tab.panel.Fra_FadDur),
            "1 KVO - Short Transition duration | Transition Duration - ( Duration is very Short! )")
      << "once for a clip and a length";
  EXPECT_EQ(b.host.look(), "edit Transition length 2 98, sample Transition 2, edit Transition length 2 98");
}

// Each control of the page, and what it leaves in the record.
TEST(TransitionTab, EachControlWritesItsField) {
  const struct {
    const char* before;  // over 1.5 seconds; a cut over none
    std::function<void(TransitionRules&)> act;
    std::string after;
  } rows[] = {
      {"CUT", [](auto& r) { r.pick("Barn"); }, "Barn 20 | = ="},
      {"Fade", [](auto& r) { r.pick("Barn"); }, "Barn 15 | = ="},
      {"Fade", [](auto& r) { r.chooseCut(true); }, "CUT 15 | = ="},
      {"CUT", [](auto& r) { r.chooseCut(false); }, "Dissolve 20 | = ="},
      {"Fade", [](auto& r) { r.pickNext(-1); }, "Dissolve 15 | = ="},
      {"Fade", [](auto& r) { r.pickNext(99); },
       std::string(transitionNames().back()) + " 15 | = ="},  // past the end
      {"CUT", [](auto& r) { r.moveDuration(33); }, "CUT 0 | = ="},
      {"Fade", [](auto& r) { r.moveDuration(99); }, "Fade 40 | = ="},
      {"Curtains", [](auto& r) { r.moveDuration(9); }, "Curtains 9 | = ="},  // not on offer, but served
      {"Blinds", [](auto& r) { r.typeFirstOption("12"); }, "Blinds 15 | bands=12 ="},
      {"Blinds", [](auto& r) { r.typeFirstOption("1x"); }, "Blinds 15 | = ="},
      {"Blinds", [](auto& r) { r.typeFirstOption("123456"); }, "Blinds 15 | = ="},
      {"Blinds", [](auto& r) { r.chooseSecondOption("Up"); }, "Blinds 15 | = Direction=Up"},
      {"Blinds", [](auto& r) { r.chooseSecondOption("hide"); }, "Blinds 15 | = ="},
      {"Blinds", [](auto& r) { r.chooseSecondOption("Up"), r.pick("Slide"); }, "Slide 15 | = ="},
  };
  for (const auto& row : rows) {
    TransitionBench b;
    b.show(row.before, std::string("CUT") == row.before ? 0 : 15);
    row.act(b.rules);
    const auto& m = b.clip();
    EXPECT_EQ(lineOf(m.TransType(), m.TransIn(), "|", m.ExtraParamName1() + "=" + m.ExtraParamValue1(),
                     m.ExtraParamName2() + "=" + m.ExtraParamValue2()),
              row.after)
        << row.before;
  }
  TransitionBench b;
  b.show("Heart", 15);
  b.rules.changeBorder({300, -1, 0xFF8000, 0, 4, false});
  b.rules.chooseMask("/m/x.jpg");
  const auto& m = b.clip();
  EXPECT_EQ(lineOf(m.BorderWidth(), m.BorderSoftness(), m.BorderColor().text(), m.ReplicateX(),
                   m.ReplicateY(), m.MaskName()),
            "255 0 #FF8000 1 4 /m/x.jpg");
}

TEST(TransitionTab, ParticlesAreOptionsOfTheCollection) {
  TransitionBench b;
  for (const auto& [name, shows] : {std::pair{"Whirlwind", true}, {"Shatter Left", false}, {"Fade", false}}) {
    b.show(name, 10);
    EXPECT_EQ(b.tab.panel.Cmd_ParticleOpts, shows) << name;
  }
  b.rules.openParticles(true);
  EXPECT_FALSE(b.tab.particlesOpen) << "a fade has none";
  b.rules.pick("Shatter Left");
  const bool offered = b.tab.panel.Cmd_ParticleOpts;
  b.rules.openParticles(true);
  EXPECT_EQ(lineOf(offered, b.tab.particlesOpen, b.clip().TransType()), "1 1 Shatter Left");
  const auto kept = [&, &p = b.settings.preferences()] {
    return lineOf(p.UseParticleDefaults, p.MaxParticles, p.ParticleMotionSpeed, p.ParticleSpinSpeed,
                  p.PartExponentialProgressDuration, p.PartExponentialProgressScale);
  };
  b.rules.changeParticles({false, 300, 20, 55, 4, 5});
  EXPECT_EQ(kept(), "0 300 20 5 0.4 0.5");
  auto defaults = b.tab.particles;
  defaults.Chk_UseParticleDefaults = true;
  b.rules.changeParticles(defaults);
  EXPECT_EQ(kept(), "1 300 20 5 0 0.3");
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
  EXPECT_EQ(lineOf(b.tab.panel.selected, b.tab.panel.listVisible, b.tab.Sld_In), "Barn 1 5")
      << "what is refused shows the record";
}

TEST(TransitionTab, NamesAreFoundAndRemembered) {
  TransitionBench b;
  auto& names = b.rules.names();
  using Names = std::vector<std::string>;
  names.find(" CIRCLE1");
  EXPECT_EQ(b.tab.names.shown.rows(), (Names{"Circle1", "Circle16"}));
  b.rules.pickNext(1);
  EXPECT_EQ(b.clip().TransType(), "Circle1");
  names.find("");
  EXPECT_EQ(b.tab.names.shown.rows().size(), transitionNames().size());
  for (const auto* name : {"Star5", "Barn"}) names.toggleFavourite(name);
  names.showFavouritesAlone(true);
  EXPECT_EQ(b.tab.names.shown.rows(), (Names{"Barn", "Circle1", "Star5"}));
  names.toggleFavourite("Star5");
  TransitionTab later;
  TransitionRules again(b.editing, later, b.host, b.store);
  EXPECT_TRUE(again.names().isFavourite("Barn") && !again.names().isFavourite("Star5"));
  EXPECT_EQ(later.names.lastUsed, Names{"Circle1"});
}

}  // namespace
}  // namespace kvo
