// What the controls of the tab Effect do to the record of the chosen clip.
#include "editor/tabs/effect_tab.h"

#include "editor/tabs/keyframe_edits.h"
#include "editor/tabs/tab_bench.h"

namespace kvo {
namespace {

using test::does;
using test::lineOf;

struct EffectBench : test::TabBench {
  EffectTab tab;
  EffectBench() { enterTab(editing, tab, host); }
  [[nodiscard]] EffectSwitchFace& face(int position) { return tab.faces[static_cast<std::size_t>(position)]; }
};

constexpr int kBlur = 43, kMotion = 44, kAge = 45, kEase = 46, kColoredPencil = 14;

TEST(EffectTab, FollowsTheClipInHand) {
  EffectBench b;
  EXPECT_EQ(b.tab.Lst_Clips.rows().size(), 3U) << "music has no effects";
  EXPECT_EQ(b.face(1).caption + "|" + b.face(8).caption + "|" + b.face(9).tip,
            "Mirror|Fade to Black|Right click to configure Angled Strokes options");
  b.clip(2).EffectWord("01");
  chooseEffectClip(b.editing, b.tab, b.host, 1);
  EXPECT_EQ(lineOf(b.face(2).isOn, b.host.look()), "1 clip 2, sample Effect 2");
  for (const auto& [clip, asked] : {std::pair{3, "kill"}, {4, "tab 2"}, {2, "sample Effect 2"}}) {
    b.collection.icurMov = clip;
    followTab(b.editing, b.tab, b.host, true);
    EXPECT_EQ(b.host.look(), asked) << clip;
  }
  followTab(b.editing, b.tab, b.host, false);
  EXPECT_EQ(b.host.look(), "") << "it is seen already";
  b.collection.clearLists();
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(lineOf(b.host.look(), b.settings.state.ObjectChange, b.tab.enabled), "tab 1 99 0");
}

TEST(EffectTab, SwitchesAndSlidersWriteTheRecord) {
  const struct {
    const char* act;
    std::function<void(EffectBench&)> control;
    const char* stored;
  } rows[] = {
      // The switch; blur, strength and direction of motion blur, age; ease's two directions, scales and
      // progress, in, and camera.
      {"Mirror", does(tickEffect, 1, true), "1 | 0 0 0 0 |   0 0 0 0 0"},
      {"Blur", does(tickEffect, kBlur, true), "43 | 4 0 0 0 |   0 0 0 0 0"},
      {"Motion blur", does(tickEffect, kMotion, true), "44 | 0 14 20 0 |   0 0 0 0 0"},
      {"Film age", does(tickEffect, kAge, true), "45 | 0 0 0 35 |   0 0 0 0 0"},
      {"Ease", does(tickEffect, kEase, true), "46 | 0 0 0 0 | out  1 1 0 0 0"},
      {"Blur", does(moveEffectLevel, EffectLevel::Blur, 9), "0 | 9 0 0 0 |   0 0 0 0 0"},
      {"Motion blur strength", does(moveEffectLevel, EffectLevel::MotionStrength, 30),
       "0 | 0 30 0 0 |   0 0 0 0 0"},
      {"Motion blur direction", does(moveEffectLevel, EffectLevel::MotionDirection, 270),
       "0 | 0 0 270 0 |   0 0 0 0 0"},
      {"Film age", does(moveEffectLevel, EffectLevel::FilmAge, 80), "0 | 0 0 0 80 |   0 0 0 0 0"},
      {"Ease progress", does(moveEase, EaseLevel::Progress, 25), "0 | 0 0 0 0 |   0 0 0.25 0 0"},
      {"Starting magnification", does(moveEase, EaseLevel::StartScale, 0), "0 | 0 0 0 0 |   0 0 0 0 0"},
      {"Ease", does(chooseEase, true), "0 | 0 0 0 0 |   0 0 0 1 0"},
      {"Ease direction", does(chooseMoveDirection, 3), "0 | 0 0 0 0 | left  0 0 0 0 0"},
      {"Ease rotation", does(chooseRotation, 4), "0 | 0 0 0 0 |  down 0 0 0 0 0"},
      {"Ease camera", does(tickRotateCam, true), "0 | 0 0 0 0 |   0 0 0 0 1"},
      {"Ease in", does(pressEaseDefault, true), "0 | 0 0 0 0 |   1 0.75 0 0 0"},
  };
  for (const auto& row : rows) {
    EffectBench b;
    row.control(b);
    const auto& m = b.clip(1);
    EXPECT_EQ(lineOf(m.EffectWord().find('1') + 1, "|", m.BlurInt(), m.MBlurStrength(), m.MBlurDirection(),
                     m.AgeIntensity(), "|", m.MoveADirection(), m.MoveARotationDirection(), m.ScaleA(),
                     m.InitialScaleA(), m.EaseDuration(), m.EaseIN(), m.RevolveCamera()),
              row.stored)
        << row.act;
    EXPECT_LE(std::ranges::count(m.EffectWord(), '1'), 1) << row.act;
    EXPECT_EQ(b.host.look(), lineOf("edit", row.act, "1 0, sample Effect 1"));
    EffectBench refused;
    refused.host.refuses = true;
    refused.clip(1).IsDirty(false);
    row.control(refused);
    EXPECT_FALSE(refused.clip(1).IsDirty() || refused.tab.controls.switches.any()) << row.act;
    EXPECT_EQ(refused.host.look().find("sample"), std::string::npos) << row.act;
  }
}

TEST(EffectTab, KeyframesComeAndGoWithTheirEffect) {
  EffectBench b;
  tickEffect(b.editing, b.tab, b.host, kColoredPencil, true);
  EXPECT_EQ(b.clip(1).EffectWord().size(), 46U);
  EXPECT_FALSE(b.face(kColoredPencil).isKeyframed) << "the one that each effect begins with moves nothing";
  EXPECT_TRUE(AddKeyFrame(b.editing, 50, {}));
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_TRUE(b.face(kColoredPencil).isKeyframed);
  for (const bool on : {true, false, true}) tickEffect(b.editing, b.tab, b.host, kMotion, on);
  EXPECT_EQ(KeyframeCount(b.editing, kMotionBlurEffect, 1), 1) << "switched on once more";
  moveEffectLevel(b.editing, b.tab, b.host, EffectLevel::MotionStrength, 60);
  EXPECT_EQ(b.collection.KeyframeList[b.collection.KeyframeList.count()].Param[0].text(), "60");
  for (const int position : {kColoredPencil, kMotion}) tickEffect(b.editing, b.tab, b.host, position, false);
  EXPECT_EQ(lineOf(b.collection.KeyframeList.count(), b.clip(1).EffectWord()), "0 ");
}

TEST(EffectTab, ARightClickConfiguresWhatIsOn) {
  EffectBench b;
  const auto click = [&](int position) {
    const auto configured = configure(b.editing, b.tab, b.host, position);
    return std::string(configured.showsKeyframes ? "keyframes" : "") + configured.whyNot;
  };
  for (const int position : {1, kColoredPencil, kAge, kEase}) {
    EXPECT_EQ(click(position), "Switch the effect on first");
    tickEffect(b.editing, b.tab, b.host, position, true);
  }
  EXPECT_TRUE(b.boxes.shown.empty());
  EXPECT_EQ(click(1), "");
  EXPECT_EQ(b.boxes.shown.back().caption, "KVO - No Configurable Options");
  EXPECT_EQ(click(kColoredPencil), "keyframes");
  EXPECT_EQ(b.settings.state.KeyframeEffectNo, 8);
  EXPECT_EQ(click(kAge), "The age of a film has no keyframes");
  b.tab.ease.open = false;
  EXPECT_EQ(click(kEase), "");
  EXPECT_TRUE(b.tab.ease.open);
}

TEST(EffectTab, EasesPanelOpensWithItAndTellsItsValues) {
  EffectBench b;
  const auto panel = [&, &end = b.tab.ease.sliders[3]] {
    return lineOf(b.tab.ease.open, b.tab.ease.direction, end.heading, "of", end.Max);
  };
  showEaseOpts(b.editing, b.tab, b.host, true);
  EXPECT_FALSE(b.tab.ease.open) << "it is off";
  tickEffect(b.editing, b.tab, b.host, kEase, true);
  moveEase(b.editing, b.tab, b.host, EaseLevel::EndScale, 150);
  EXPECT_EQ(panel(), "1 2 Ending magnification - 1.5x of 500");
  b.clip(1).ScaleA(9);
  b.clip(1).MoveADirection("UP");
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(panel(), "1 5 Ending magnification - 9.0x of 900")
      << "a value of the record's is never out of reach";
  tickEffect(b.editing, b.tab, b.host, kEase, false);
  EXPECT_FALSE(b.tab.ease.open);
}

}  // namespace
}  // namespace kvo
