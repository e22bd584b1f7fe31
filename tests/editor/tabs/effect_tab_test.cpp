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

TEST(EffectTab, ShowsTheClipsWithAPictureAndTheOneInHand) {
  EffectBench b;
  EXPECT_EQ(b.tab.Lst_Clips.rows.size(), 3U) << "music has no effects";
  EXPECT_EQ(chosenClip(b.tab.Lst_Clips), 1);
  EXPECT_EQ(b.face(1).caption + "|" + b.face(8).caption + "|" + b.face(9).caption,
            "Mirror|Fade to Black|Angled Strokes");
  EXPECT_EQ(b.face(9).tip, "Right click to configure Angled Strokes options");
  b.clip(2).EffectWord("01");
  chooseEffectClip(b.editing, b.tab, b.host, 1);
  EXPECT_TRUE(b.face(2).isOn);
  EXPECT_EQ(b.host.look(), "clip 2, sample Effect 2");
}

TEST(EffectTab, FollowsTheClipInHand) {
  EffectBench b;
  b.collection.icurMov = 3;
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(chosenClip(b.tab.Lst_Clips), 3);
  EXPECT_EQ(b.host.look(), "kill") << "it has no effects to show";
  b.clip(2).EffectWord("01");
  b.collection.icurMov = 2;
  followTab(b.editing, b.tab, b.host, true);
  followTab(b.editing, b.tab, b.host, false);
  EXPECT_EQ(b.host.look(), "sample Effect 2");
  b.collection.icurMov = 4;
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(b.host.look(), "tab 2") << "sound has no effects";
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
    const char* asked;
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
  const Row rows[] = {
      {"mirror", tick(1), [](Movie& m) { return m.EffectWord(); },
       "1000000000000000000000000000000000000000000000", "edit Mirror 1 0, sample Effect 1"},
      {"blur", tick(kBlur), [](Movie& m) { return std::to_string(m.BlurInt()); }, "4",
       "edit Blur 1 0, sample Effect 1"},
      {"motion blur", tick(kMotion),
       [](Movie& m) { return std::to_string(m.MBlurStrength() * 1000 + m.MBlurDirection()); }, "14020",
       "edit Motion blur 1 0, sample Effect 1"},
      {"film age", tick(kAge), [](Movie& m) { return std::to_string(m.AgeIntensity()); }, "35",
       "edit Film age 1 0, sample Effect 1"},
      {"ease begins moving out", tick(kEase),
       [](Movie& m) { return m.MoveADirection() + ShortText(m.ScaleA()) + ShortText(m.InitialScaleA()); },
       "out11", "edit Ease 1 0, sample Effect 1"},
      {"blur slider", level(EffectLevel::Blur, 9), [](Movie& m) { return std::to_string(m.BlurInt()); }, "9",
       "edit Blur 1 0, sample Effect 1"},
      {"strength", level(EffectLevel::MotionStrength, 30),
       [](Movie& m) { return std::to_string(m.MBlurStrength()); }, "30",
       "edit Motion blur strength 1 0, sample Effect 1"},
      {"direction", level(EffectLevel::MotionDirection, 270),
       [](Movie& m) { return std::to_string(m.MBlurDirection()); }, "270",
       "edit Motion blur direction 1 0, sample Effect 1"},
      {"age", level(EffectLevel::FilmAge, 80), [](Movie& m) { return std::to_string(m.AgeIntensity()); },
       "80", "edit Film age 1 0, sample Effect 1"},
      {"ease slider", ease(EaseLevel::Progress, 25), [](Movie& m) { return ShortText(m.EaseDuration()); },
       "0.25", "edit Ease progress 1 0, sample Effect 1"},
      {"ease at its end", ease(EaseLevel::StartScale, 0),
       [](Movie& m) { return ShortText(m.InitialScaleA()); }, "0",
       "edit Starting magnification 1 0, sample Effect 1"},
      {"ease in", [](EffectBench& b) { chooseEase(b.editing, b.tab, b.host, true); },
       [](Movie& m) { return std::string(m.EaseIN() ? "in" : "out"); }, "in",
       "edit Ease 1 0, sample Effect 1"},
      {"direction of moving", [](EffectBench& b) { chooseMoveDirection(b.editing, b.tab, b.host, 3); },
       [](Movie& m) { return m.MoveADirection(); }, "left", "edit Ease direction 1 0, sample Effect 1"},
      {"rotation", [](EffectBench& b) { chooseRotation(b.editing, b.tab, b.host, 4); },
       [](Movie& m) { return m.MoveARotationDirection(); }, "down",
       "edit Ease rotation 1 0, sample Effect 1"},
      {"camera", [](EffectBench& b) { tickRotateCam(b.editing, b.tab, b.host, true); },
       [](Movie& m) { return std::string(m.RevolveCamera() ? "on" : ""); }, "on",
       "edit Ease camera 1 0, sample Effect 1"},
      {"preset", [](EffectBench& b) { pressEaseDefault(b.editing, b.tab, b.host, true); },
       [](Movie& m) { return ShortText(m.InitialScaleA()) + m.MoveADirection(); }, "0.75",
       "edit Ease in 1 0, sample Effect 1"},
  };
  for (const auto& row : rows) {
    EffectBench b;
    row.act(b);
    EXPECT_EQ(row.field(b.clip(1)), row.stored) << row.what;
    EXPECT_EQ(b.host.look(), row.asked) << row.what;
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
  showEaseOpts(b.editing, b.tab, b.host, true);
  EXPECT_FALSE(b.tab.ease.open) << "it is off";
  b.host.look();
  tickEffect(b.editing, b.tab, b.host, kEase, true);
  EXPECT_TRUE(b.tab.ease.open);
  EXPECT_EQ(b.tab.ease.direction, 2);
  moveEase(b.editing, b.tab, b.host, EaseLevel::EndScale, 150);
  EXPECT_EQ(b.tab.ease.sliders[3].heading, "Ending magnification - 1.5x");
  EXPECT_EQ(b.tab.ease.sliders[3].Value, 150);
  b.clip(1).ScaleA(9);
  b.clip(1).MoveADirection("UP");
  followTab(b.editing, b.tab, b.host, true);
  EXPECT_EQ(b.tab.ease.sliders[3].Max, 900) << "a value of the record's is never out of reach";
  EXPECT_EQ(b.tab.ease.direction, 5);
  EXPECT_TRUE(b.tab.ease.open);
  tickEffect(b.editing, b.tab, b.host, kEase, false);
  EXPECT_FALSE(b.tab.ease.open);
}

}  // namespace
}  // namespace kvo
