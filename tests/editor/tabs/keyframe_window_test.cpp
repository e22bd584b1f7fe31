// What the window of keyframes does to the keyframes of the clip in hand.
#include "editor/tabs/keyframe_window.h"

#include "editor/tabs/effect_tab.h"
#include "editor/tabs/keyframe_edits.h"
#include "editor/tabs/tab_bench.h"

namespace kvo {
namespace {

using test::lineOf;

// A clip of 8 seconds at 25 frames; ColoredPencil is row 8 of the table and switch 14.
struct KeyframeBench : test::TabBench {
  KeyframeWindow window;
  EffectTab tab;

  explicit KeyframeBench(int position = 14) {
    settings.change().OutPutFrameRate = 25;
    clip(1).DurationTime(Value(8));
    clip(1).DurationFrames(Value(200));
    clip(1).LoopEnd(Value(8));
    files.all["/prog/ParamCols.dat"] = "ALICEBLUE\r\nBLUEVIOLET\r\n";
    enterTab(editing, tab, host);
    tickEffect(editing, tab, host, position, true);
    EXPECT_TRUE(configure(editing, tab, host, position).showsKeyframes);
    EXPECT_TRUE(ActivateKeyFrameForm(editing, window, host));
    host.look();
  }
  void add(int frame) {
    moveToFrame(window, frame);
    addKeyframeHere(editing, window, host);
  }
  [[nodiscard]] std::string frames() const {
    std::string all;
    for (const auto& point : window.points)
      all += std::to_string(point.frame) + ":" + ShortText(point.level) + " ";
    return all;
  }
  void slide(std::size_t slider, int value) { moveKeyframeSlider(editing, window, host, slider, value); }
};

TEST(KeyframeWindow, OpensForTheEffectWithItsValues) {
  KeyframeBench b;
  const auto& w = b.window;
  EXPECT_EQ(lineOf(w.effectName, "|", w.Lbl_Frame, "|", w.readings[0], w.readings[2], w.sliders[0].Value,
                   w.sliders[2].Value, "|", w.Cmb_ParamColor[3].whyNot, "|", w.whyNoDelete),
            "ColoredPencil | Current Frame = 000000 of 000200 | 30% 10 30 10 | This effect has no texture | "
            "The first keyframe stays");
  EXPECT_EQ(w.Lst_Keyframes.rows(), std::vector<std::string>{"Keyframe No = 0000000"});
  EXPECT_EQ(w.colours.at(static_cast<std::size_t>(w.Cmb_ParamColor[0].chosen)), "BLUEVIOLET");
  EXPECT_EQ(w.Cmb_ParamColor[1].chosen, 0) << "a colour that the list does not have";
  EXPECT_EQ(b.settings.state.KeyframeMode, kFlagOn);
  SuspendKeyframeForm(b.editing, b.window);
  EXPECT_EQ(b.settings.state.KeyframeMode, 0);

  auto& still = b.clip(3);
  still.LoopEnd(Value("N/A"));
  b.collection.icurMov = 3;
  EXPECT_FALSE(ActivateKeyFrameForm(b.editing, b.window, b.host));
  EXPECT_EQ(b.boxes.shown.back().caption + "|" + b.boxes.shown.back().text,
            "KVO5 - Clip format Error|The duration of this clip is reported as 0 seconds");
  still.LoopStart(Value(1));
  for (const auto& [frame, seconds] : {std::pair{50, 1.0}, {10, 0.0}}) {
    Keyframe k;
    placeKeyframe(b.editing, k, frame);
    EXPECT_EQ(k.Time.number(), seconds) << "from the still's Mark-In on";
  }
}

TEST(KeyframeWindow, KeyframesAreAddedChosenAndDeleted) {
  KeyframeBench b;
  // The keyframes, which of them is chosen in the order that they came, what is asked.
  const auto state = [&] {
    return lineOf(b.frames() + "|", b.window.Lst_Keyframes.ListIndex, b.host.look());
  };
  b.add(100);
  EXPECT_EQ(state(), "0:0 100:0 | 1 edit New keyframe 1 0, sample Keyframe 1")
      << "with two the level begins at nothing or all";
  b.slide(0, 30);
  EXPECT_EQ(state(), "0:0 100:0.3 | 1 edit Keyframe 1 0, sample Keyframe 1") << "in the controls, too";
  b.add(100);
  EXPECT_EQ(state(), "0:0 100:0.3 | 1 ") << "there is one";
  b.add(50);
  EXPECT_EQ(state(), "0:0 50:0.3 100:0.3 | 2 edit New keyframe 1 0, sample Keyframe 1");
  chooseKeyframe(b.editing, b.window, b.host, 1);
  EXPECT_EQ(state(), "0:0 50:0.3 100:0.3 | 1 sample Keyframe 1");
  EXPECT_EQ(b.window.Sld_FramePosMaster.Value, 100);
  deleteChosenKeyframe(b.editing, b.window, b.host);
  EXPECT_EQ(state(), "0:0 50:0.3 | 0 edit Delete keyframe 1 0, sample Keyframe 1");
  deleteAllKeyframes(b.editing, b.window, b.host);
  EXPECT_EQ(state(), "0:0 | 0 edit Delete all keyframes 1 0, sample Keyframe 1");
  deleteChosenKeyframe(b.editing, b.window, b.host);
  EXPECT_EQ(state(), "0:0 | 0 ") << "the only one stays";
  EXPECT_EQ(b.boxes.shown.front().caption, "KVO5 - Duplicate Keyframe warning");
}

TEST(KeyframeWindow, ControlsWriteTheChosenKeyframe) {
  KeyframeBench b;
  b.add(100);
  b.slide(0, 80);
  b.slide(8, 7);
  chooseParamColor(b.editing, b.window, b.host, 2, 1);
  const auto& k = b.collection.KeyframeList[2];
  const auto stored = [&] {  // and what the other one keeps
    return lineOf(k.Transparency, k.Param[7].text(), k.EC, b.collection.KeyframeList[1].Param[7].text());
  };
  EXPECT_EQ(stored(), "80 7 ALICEBLUE 0");
  chooseParamColor(b.editing, b.window, b.host, 2, 0);
  EXPECT_EQ(stored(), "80 7  0");
  tickInstantPreview(b.editing, b.window, b.host, false);
  b.host.look();
  b.slide(0, 20);
  EXPECT_EQ(b.host.look(), "edit Keyframe 1 0") << "no preview but by the box";

  removeKeyframes(b.editing, 1, 8);
  followKeyframes(b.editing, b.window);
  b.slide(1, 55);
  EXPECT_EQ(b.editor.effects.named("ColoredPencil")->Control[0], "55") << "without keyframes the table";
  EXPECT_EQ(b.window.sliders[1].Value, 55);
}

TEST(KeyframeWindow, TheSliderGoesFromMarkInToMarkOutAtAnyRate) {
  for (const auto& [clipRate, movieRate, first, last] :
       {std::array{25, 25, 250, 375}, {25, 30, 300, 450}, {50, 25, 250, 375}, {30, 25, 250, 375}}) {
    KeyframeBench b(43);
    b.settings.change().OutPutFrameRate = static_cast<Single>(movieRate);
    auto& clip = b.clip(1);
    clip.DurationTime(Value(20));
    clip.DurationFrames(Value(20 * clipRate));
    clip.LoopStart(Value(10));
    clip.LoopEnd(Value(15));
    ASSERT_TRUE(ActivateKeyFrameForm(b.editing, b.window, b.host));
    const auto& master = b.window.Sld_FramePosMaster;
    EXPECT_EQ((std::array{master.Min, master.Value, master.Max}), (std::array{first, first, last}))
        << clipRate << " in " << movieRate;
    b.add(last);
    b.settings.state.KeyframeEffectNo = 8;
    AddSingleBaseKeyFrame(b.editing);
    ASSERT_TRUE(ActivateKeyFrameForm(b.editing, b.window, b.host));
    EXPECT_EQ(b.frames(), std::to_string(first) + ":0.3 ") << "the base one stands at the Mark-In";
    EXPECT_FALSE(b.window.ignored.back());
  }
}

TEST(KeyframeWindow, DiamondsAreDraggedWithinTheClip) {
  for (const auto& [line, frame, level, frames] :
       {std::tuple{1, 120, 0.5, "0:0 50:0.3 120:0.5 "},
        {1, 900, 2, "0:0 50:0.3 200:1 "},
        {1, 50, 0.9, "0:0 50:0.3 100:0.9 "},  // is taken
        {0, 30, 1, "0:1 50:0.3 100:0.3 "},    // the first stays at its frame
        {2, 150, 0, "0:0 100:0.3 150:0 "}}) {
    KeyframeBench b;
    b.add(100);
    b.slide(0, 30);
    b.add(50);
    b.host.look();
    dragKeyframe(b.editing, b.window, b.host, line, frame, level);
    EXPECT_EQ(b.frames(), frames);
    EXPECT_EQ(b.host.look(), "edit Move keyframe 1 0, sample Keyframe 1");
    const auto& k = b.collection.KeyframeList[line + 1];
    EXPECT_EQ(k.Time.number(), k.FrameNo / 25.0);
  }
}

TEST(KeyframeWindow, BlursHaveTheirOwnControls) {
  KeyframeBench blur(43);
  EXPECT_EQ(blur.window.controls, KeyframeControls::Blur);
  EXPECT_EQ(blur.window.sliders[0].Value, 4) << "of the clip";
  blur.slide(0, 12);
  EXPECT_EQ(blur.clip(1).BlurInt(), 12) << "without keyframes the clip's own";
  blur.add(75);
  EXPECT_EQ(blur.frames(), "75:0.12 ");

  KeyframeBench motion(44);
  EXPECT_EQ(motion.window.controls, KeyframeControls::MotionBlur);
  EXPECT_EQ(motion.window.sliders[0].Value * 1000 + motion.window.sliders[1].Value, 14020);
  motion.slide(1, 90);
  tickMblurAddative(motion.editing, motion.window, motion.host, true);
  const auto& k = motion.collection.KeyframeList[1];
  EXPECT_EQ(lineOf(k.Param[1].text(), k.Param[2].text(), motion.window.Chk_MblurAddative), "90 1 1");
}

TEST(KeyframeWindow, MarksWhatLiesBeyondTheMarksAndClosesWithItsEffect) {
  KeyframeBench b;
  b.add(150);
  b.clip(1).LoopEnd(Value(4));
  followKeyframes(b.editing, b.window);
  EXPECT_EQ(lineOf(b.window.Lst_Keyframes.rows().at(1), b.window.ignored.at(1), b.frames() + "|",
                   b.window.Sld_FramePosMaster.Value),
            "IGNORED - Point after Mark Out - Keyframe No = 0000150 1 0:0 | 100");
  b.collection.MovieList.arrange({2, 3, 1, 4});
  b.collection.icurMov = 3;
  followKeyframes(b.editing, b.window);
  EXPECT_TRUE(b.window.visible && b.window.clipNo == 3) << "it goes with its clip";
  b.clip(3).EffectWord(std::string(EffectWord::kSwitches, '0'));
  followKeyframes(b.editing, b.window);
  EXPECT_FALSE(b.window.visible) << "the clip has the effect no more";
}

}  // namespace
}  // namespace kvo
