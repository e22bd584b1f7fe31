// Handles under the user's hand, and marks.
#include "playback/positions_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::PositionsBench;
using test::Rows;
using enum SliderHandleId;

TEST(Marks, AHeldHandleSeeksTenTimesASecond) {
  for (const auto* name : {"a.avi", "a.wmv"}) {
    PositionsBench b(name);
    b.play();
    b.timers.Timer5.start();
    b.positions.marks.press(ImageBlob);
    EXPECT_FALSE(b.timers.Timer5.enabled()) << "nothing else moves it";
    b.positions.marks.drag(ImageBlob, 0.5);
    EXPECT_LT(b.seconds(), 1) << name;
    b.loop.advance(100);
    EXPECT_EQ(b.glass.digits.substr(0, 6), "00:05:") << name;
    b.positions.marks.drag(ImageBlob, 0.7);
    b.positions.core.displays.showPosition();
    b.positions.marks.release(ImageBlob, MouseKey::Left);
    EXPECT_NEAR(b.seconds(), 7, 0.01) << name;
    EXPECT_EQ(b.player.PlayerGetPlayState(), EngineState::Running) << name << " plays on";
    EXPECT_TRUE(b.timers.Timer5.enabled());
  }
  PositionsBench b("a.asf");
  b.positions.marks.press(ImageBlob);
  b.positions.marks.drag(ImageBlob, 0.5);
  b.loop.advance(300);
  EXPECT_LT(b.seconds(), 1) << "what comes over the net is sought for only at the end";
}

TEST(Marks, ReleasedHandlesBecomeTheMarksOfWhatIsSeen) {
  // Of a section that was 2 to 8; 0.301 is inside of a picture. With the other mouse key a mark goes back to
  // its end of the clip.
  const Rows<SliderHandleId, double, MouseKey, const char*, double> rows{
      {Img_MarkIn, 0.3, MouseKey::Left, "3 to 8, 75 to 200", 3},
      {Img_MarkIn, 0.301, MouseKey::Left, "3 to 8, 75 to 200", 3},
      {Img_MarkIn, 0.9, MouseKey::Left, "7.96 to 8, 199 to 200", 7.96},
      {Img_MarkIn, 0.5, MouseKey::Right, "0 to 8, 0 to 200", 0},
      {Img_MarkOut, 0.6, MouseKey::Left, "2 to 6, 50 to 150", 2},
      {Img_MarkOut, 1, MouseKey::Left, "2 to 10, 50 to 250", 2},
      {Img_MarkOut, 0.1, MouseKey::Left, "2 to 2.04, 50 to 51", 2},
      {Img_MarkOut, 0.5, MouseKey::Right, "2 to 10, 50 to 250", 2}};
  for (const auto* name : {"a.avi", "a.wmv"}) {
    for (const auto& [handle, part, key, marks, position] : rows) {
      PositionsBench b;
      const auto& clip = b.ready(name, {}, 2, 8);
      b.play();
      b.positions.marks.press(handle);
      EXPECT_NE(b.player.PlayerGetPlayState(), EngineState::Running) << "it stands meanwhile";
      b.positions.marks.drag(handle, part);
      b.loop.advance(100);
      EXPECT_EQ(b.marks(), "2 to 8, 50 to 200") << name << " while it is dragged";
      b.positions.marks.release(handle, key);
      const bool plays = key == MouseKey::Left;
      if (!plays) b.positions.marks.reset(handle);  // once is enough
      EXPECT_EQ(b.marks(), marks) << name;
      EXPECT_EQ(b.noted.edits.size(), 1U) << marks;
      EXPECT_NEAR(b.seconds(), position, 0.011) << name << marks;
      EXPECT_EQ(b.player.PlayerGetPlayState() == EngineState::Running, plays) << name << marks;
      EXPECT_EQ(b.mode.player.IsPaused, !plays) << marks;
      EXPECT_FALSE(b.state.held.MarkInDragging || b.state.held.MarkOutDragging);
      EXPECT_DOUBLE_EQ(b.slider.markIn, clip.LoopStart().number() / 10) << marks;
      EXPECT_DOUBLE_EQ(b.slider.markOut, clip.LoopEnd().number() / 10) << marks;
    }
  }
}

TEST(Marks, OfUnevenPicturesAreThePictureThatStands) {
  const std::vector<double> begins = {0, 2, 2.04, 9};
  for (const std::string name : {"a.avi", "a.wmv"}) {
    for (const bool late : {false, true}) {
      PositionsBench b;
      if (!late) b.counts.all["/v/" + name] = begins;
      auto& clip = b.ready(name);
      b.positions.marks.put(Img_MarkIn, 0.5);
      b.positions.marks.put(Img_MarkOut, 0.95);
      clip.IsDirty(false);
      if (late) b.counts.count("/v/" + name, begins);
      EXPECT_EQ(b.marks(), late ? "5 to 9.48, 2 to 3" : "2.04 to 9, 2 to 3") << name;
      EXPECT_FALSE(clip.IsDirty()) << "counting is nothing to be saved";
    }
  }
}

TEST(Marks, StayWhileKeyframesAreSetAndOnDiscs) {
  PositionsBench b("a.avi", {}, 2, 8);
  b.settings.state.KeyframeMode = 1;
  EXPECT_FALSE(b.positions.marks.press(Img_MarkIn));
  b.positions.marks.put(Img_MarkOut, 0.5);
  b.positions.marks.SetMarkIn();
  ASSERT_EQ(b.boxes.shown.size(), 3U);
  EXPECT_EQ(b.boxes.shown[0].text, "Cannot re-set Mark-In point while setting Keyframes");
  EXPECT_EQ(b.boxes.shown[1].text, "Cannot re-set Mark-Out point while setting Keyframes");
  EXPECT_EQ(b.boxes.shown[1].caption, "KVO5 - Keyframe Warning");
  b.settings.state.KeyframeMode = 0;
  b.ready("VTS_01_1.VOB");
  b.seek(3);
  b.positions.marks.SetMarkOut();
  b.positions.marks.SetMarkIn();
  b.positions.marks.put(Img_MarkIn, 0.5);
  EXPECT_EQ(b.boxes.shown.back().text, "Cannot set Editing Markers in DVD Clips.");
  EXPECT_EQ(b.marks(), "0 to 10, 0 to 250");
}

TEST(Marks, AreSetWhereThePlayerStands) {
  // Of a section that was 2 to 8.
  const Rows<bool, double, const char*, const char*> rows{
      {true, 3.02, "3 to 8, 75 to 200", ""},
      {true, 9, "0 to 10, 0 to 250", "KVO - MarkOut before start"},
      {false, 6.02, "2 to 6, 50 to 150", ""},
      {false, 1, "0 to 10, 0 to 250", "KVO5 - End after Start"},
      {false, 0, "2 to 8, 50 to 200", ""}};
  for (const auto* name : {"a.avi", "a.wmv"}) {
    for (const auto& [in, seconds, marks, box] : rows) {
      PositionsBench b(name, {}, 2, 8);
      b.play();
      b.seek(seconds);
      const double at = b.seconds();
      in ? b.positions.marks.SetMarkIn() : b.positions.marks.SetMarkOut();
      EXPECT_EQ(b.marks(), marks) << name << seconds;
      EXPECT_EQ(b.boxes.shown.empty() ? "" : b.boxes.shown.back().caption, box) << name << seconds;
      EXPECT_EQ(b.seconds(), at) << name << " the picture stays";
      EXPECT_TRUE(b.mode.player.IsPaused) << name;
    }
  }
  PositionsBench b("a.avi", {}, 2, 8);
  b.positions.marks.ResetMarks();
  EXPECT_EQ(b.marks(), "0 to 10, 0 to 250");
  EXPECT_EQ(b.noted.edits, std::vector<std::string>{"marks of 96"});
  b.ready("endless.avi", {.duration = 0});
  b.positions.marks.SetMarkIn();
  b.positions.marks.SetMarkOut();
  EXPECT_EQ(b.noted.edits.size(), 1U) << "without a length there are none";
}

TEST(Marks, TakenBackTheyReachThePlayer) {
  for (const auto* name : {"a.avi", "a.wmv"}) {
    PositionsBench b;
    auto& clip = b.ready(name, {}, 2, 8);
    b.seek(5);
    clip.LoopStart(Value(1));
    clip.LoopEnd(Value(6));
    clip.Volume(600);
    b.positions.takeRecord();
    EXPECT_EQ(b.player.PlayerGetSelectionStart(), 1) << name;
    EXPECT_EQ(b.control.volume, -600);
    EXPECT_NEAR(b.seconds(), 5, 0.01);
    b.positions.endOfPlayMoved(clip);
    if (b.player.UsingCorona()) {
      EXPECT_EQ(b.graphs.graph->stopTime(), 6) << name;
    }
  }
}

TEST(Positioner, GoesToWhatIsTypedAndSetsMarksThere) {
  PositionsBench b("a.avi", {}, 2, 8);
  auto& positioner = b.positions.positioner;
  const auto& state = b.state.positioner;
  positioner.Pic_DigNumbers_Click();
  EXPECT_EQ(state.digits + " " + state.unit + " " + state.reading, "02.0000 seconds 00050 of 00250");
  positioner.type("4x.1.6");
  EXPECT_TRUE(positioner.goToTyped());
  EXPECT_EQ(state.digits, "04.1600");
  positioner.nudge(-2);
  EXPECT_EQ(b.frame(), 103) << "4.14 lies in it";
  positioner.choose(Increment::Frames);
  positioner.type("120");
  positioner.choose(Whatto::SetMarkInPoint);
  positioner.apply();
  EXPECT_EQ(b.marks(), "4.8 to 8, 120 to 200");
  EXPECT_EQ(state.digits + " " + state.unit, "120.000 frames");
  positioner.type("251");
  positioner.apply();
  EXPECT_EQ(state.refusal, "The clip has 250 frames");
  EXPECT_EQ(b.marks(), "4.8 to 8, 120 to 200") << "nothing is set at another place";
  positioner.gotoMarkOut();
  EXPECT_EQ(b.frame(), 200);
  positioner.reset();
  EXPECT_EQ(b.marks(), "0 to 10, 0 to 250");
  b.ready("slow.avi", {.duration = 10, .rate = 1});
  positioner.Pic_DigNumbers_Click(Whatto::SetMarkoutPoint);
  positioner.choose(Increment::Tenths);
  EXPECT_EQ(state.Opt_Increment, Increment::Frames);
}

TEST(Marks, BetweenTwoClipsNothingIsKeptWithTheNext) {
  PositionsBench b("a.avi");
  b.seek(4);
  b.mode.player.clipWaits = true;
  b.positions.marks.SetMarkIn();
  b.positions.marks.SetMarkOut();
  b.positions.marks.put(Img_MarkIn, 0.5);
  b.positions.rate.SetRate("2.0");
  b.positions.remote.step(Step::Adv1);
  b.positions.keys.KeyCommand('P');
  EXPECT_EQ(b.marks(), "0 to 10, 0 to 250");
  EXPECT_TRUE(b.noted.edits.empty());
  EXPECT_EQ(b.player.PlayerGetRate(), 1);
  EXPECT_EQ(b.seconds(), 4);
  EXPECT_EQ(b.transport.calls, "PlayGraphic ") << "the transport's keys, as ever";
}

}  // namespace
}  // namespace kvo
