// What the controls of the tab Effect do to the record of the chosen clip.
#include "editor/tabs/effect_tab.h"

#include "editor/tabs/keyframe_edits.h"
#include "editor/tabs/tab_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TabBench;

struct EffectBench : TabBench {
  EffectTab tab;
  EffectBench() { enterTab(editing, tab, host); }
  [[nodiscard]] EffectSwitchFace& face(int position) { return tab.faces[static_cast<std::size_t>(position)]; }
};

constexpr int kBlur = 43, kMotion = 44, kAge = 45, kEase = 46, kColoredPencil = 14;

TEST(EffectTab, FollowsTheClipInHand) {
  EffectBench b;
  EXPECT_EQ(b.tab.Lst_Clips.rows.size(), 3U) << "music has no effects";
  EXPECT_EQ(b.face(1).caption + "|" + b.face(8).caption + "|" + b.face(9).tip,
            "Mirror|Fade to Black|Right click to configure Angled Strokes options");
  b.clip(2).EffectWord("01");
  chooseEffectClip(b.editing, b.tab, b.host, 1);
  EXPECT_TRUE(b.face(2).isOn);
  EXPECT_EQ(b.host.look(), "clip 2, sample Effect 2");
  for (const auto& [clip, asked] : {std::pair{3, "kill"}, {4, "tab 2"}, {2, "sample Effect 2"}}) {
    b.collection.icurMov = clip;
    followTab(b.editing, b.tab, b.host, true);
    EXPECT_EQ(b.host.look(), asked) << clip;
  }
  followTab(b.editing, b.tab, b.host, false);
  EXPECT_EQ(b.host.look(), "") << "it is seen already";
  b.collection.clearLists();
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(b.host.look(), "tab 1");
  EXPECT_EQ(b.settings.state.ObjectChange, 99);
  EXPECT_FALSE(b.tab.enabled);
}

TEST(EffectTab, SwitchesAndSlidersWriteTheRecord) {
  struct Row {
    const char* what;
    std::function<void(EffectBench&)> act;
    std::function<std::string(Movie&)> field;
    const char* stored;
    const char* asked;  // ahead of " 1 0, sample Effect 1"
  };
  const auto tick = [](int position) {
    return [position](EffectBench& b) { tickEffect(b.editing, b.tab, b.host, position, true); };
  };
  const auto level = [](EffectLevel which, int value) {
    return [=](EffectBench& b) { moveEffectLevel(b.editing, b.tab, b.host, which, value); };
  };
  const auto ease = [](EaseLevel which, int value) {
    return [=](EffectBench& b) { moveEase(b.editing, b.tab, b.host, which, value); };
  };
  const auto does = [](auto act, auto choice) {
    return [=](EffectBench& b) { act(b.editing, b.tab, b.host, choice); };
  };
  const auto word = [](Movie& m) { return m.EffectWord(); };
  const auto blur = [](Movie& m) { return std::to_string(m.BlurInt()); };
  const auto motion = [](Movie& m) {
    return std::to_string(m.MBlurStrength()) + " " + std::to_string(m.MBlurDirection());
  };
  const auto age = [](Movie& m) { return std::to_string(m.AgeIntensity()); };
  const auto moves = [](Movie& m) {
    return m.MoveADirection() + " " + m.MoveARotationDirection() + " " + ShortText(m.ScaleA()) + " " +
           ShortText(m.InitialScaleA()) + " " + ShortText(m.EaseDuration()) + (m.EaseIN() ? " in" : "") +
           (m.RevolveCamera() ? " camera" : "");
  };
  const Row rows[] = {
      {"mirror", tick(1), word, "1000000000000000000000000000000000000000000000", "Mirror"},
      {"blur", tick(kBlur), blur, "4", "Blur"},
      {"motion blur", tick(kMotion), motion, "14 20", "Motion blur"},
      {"film age", tick(kAge), age, "35", "Film age"},
      {"ease begins moving out", tick(kEase), moves, "out  1 1 0", "Ease"},
      {"blur slider", level(EffectLevel::Blur, 9), blur, "9", "Blur"},
      {"strength", level(EffectLevel::MotionStrength, 30), motion, "30 0", "Motion blur strength"},
      {"direction", level(EffectLevel::MotionDirection, 270), motion, "0 270", "Motion blur direction"},
      {"age", level(EffectLevel::FilmAge, 80), age, "80", "Film age"},
      {"ease slider", ease(EaseLevel::Progress, 25), moves, "  0 0 0.25", "Ease progress"},
      {"ease at its end", ease(EaseLevel::StartScale, 0), moves, "  0 0 0", "Starting magnification"},
      {"ease in", does(chooseEase, true), moves, "  0 0 0 in", "Ease"},
      {"direction of moving", does(chooseMoveDirection, 3), moves, "left  0 0 0", "Ease direction"},
      {"rotation", does(chooseRotation, 4), moves, " down 0 0 0", "Ease rotation"},
      {"camera", does(tickRotateCam, true), moves, "  0 0 0 camera", "Ease camera"},
      {"preset", does(pressEaseDefault, true), moves, "  1 0.75 0", "Ease in"},
  };
  for (const auto& row : rows) {
    EffectBench b;
    row.act(b);
    EXPECT_EQ(row.field(b.clip(1)), row.stored) << row.what;
    EXPECT_EQ(b.host.look(), std::string("edit ") + row.asked + " 1 0, sample Effect 1") << row.what;
    EffectBench refused;
    refused.host.refuses = true;
    refused.clip(1).IsDirty(false);
    row.act(refused);
    EXPECT_FALSE(refused.clip(1).IsDirty()) << row.what;
    EXPECT_FALSE(refused.tab.controls.switches.any()) << row.what;
    EXPECT_EQ(refused.host.look().find("sample"), std::string::npos) << row.what;
  }
}

TEST(EffectTab, KeyframesComeAndGoWithTheirEffect) {
  EffectBench b;
  tickEffect(b.editing, b.tab, b.host, kColoredPencil, true);
  EXPECT_FALSE(b.face(kColoredPencil).isKeyframed) << "the one that each effect begins with moves nothing";
  EXPECT_TRUE(AddKeyFrame(b.editing, 50, {}));
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_TRUE(b.face(kColoredPencil).isKeyframed);
  for (const bool on : {true, false, true}) tickEffect(b.editing, b.tab, b.host, kMotion, on);
  EXPECT_EQ(KeyframeCount(b.editing, kMotionBlurEffect, 1), 1) << "switched on once more";
  moveEffectLevel(b.editing, b.tab, b.host, EffectLevel::MotionStrength, 60);
  EXPECT_EQ(b.collection.KeyframeList[b.collection.KeyframeList.count()].Param[0].text(), "60");
  for (const int position : {kColoredPencil, kMotion}) tickEffect(b.editing, b.tab, b.host, position, false);
  EXPECT_EQ(b.collection.KeyframeList.count(), 0);
  EXPECT_EQ(b.clip(1).EffectWord(), "");
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
  const auto panel = [&] {
    const auto& end = b.tab.ease.sliders[3];
    return (b.tab.ease.open ? std::to_string(b.tab.ease.direction) : "closed") + " " + end.heading + " of " +
           std::to_string(end.Max);
  };
  showEaseOpts(b.editing, b.tab, b.host, true);
  EXPECT_FALSE(b.tab.ease.open) << "it is off";
  tickEffect(b.editing, b.tab, b.host, kEase, true);
  moveEase(b.editing, b.tab, b.host, EaseLevel::EndScale, 150);
  EXPECT_EQ(panel(), "2 Ending magnification - 1.5x of 500");
  b.clip(1).ScaleA(9);
  b.clip(1).MoveADirection("UP");
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(panel(), "5 Ending magnification - 9.0x of 900")
      << "a value of the record's is never out of reach";
  tickEffect(b.editing, b.tab, b.host, kEase, false);
  EXPECT_FALSE(b.tab.ease.open);
}

}  // namespace
}  // namespace kvo
