// Places on the slider's line, and what is written of places.
#include "playback/positions_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::PositionsBench;
using test::Rows;

TEST(Slider, APerCentIsAWholeNumberOfTwips) {
  for (const auto& [X1, X2, unit, half, end] : Rows<Twips, Twips, Twips, Twips, Twips>{
           {600, 8100, 75, 4350, 8100},
           {200, 450, 2, 300, 400},  // 2.5 goes to the even neighbour: the end is not reached
           {200, 550, 4, 400, 600},  // and 3.5 to 4
           {200, 7390, 72, 3800, 7400},
           {200, 240, 0, 200, 200}}) {
    SliderPlace line;
    line.X1 = X1;
    line.X2 = X2;
    EXPECT_EQ(percentUnit(line), unit) << X2;
    EXPECT_EQ(placeOnLine(line, 50), half) << X2;
    for (const double beyond : {100, 130}) EXPECT_EQ(placeOnLine(line, beyond), end) << X2;
    EXPECT_EQ(placeOnLine(line, -1), X1) << X2;
    EXPECT_EQ(percentOnLine(line, half), unit > 0 ? 50 : 0) << X2;
    EXPECT_EQ(percentOnLine(line, X2 + 500), unit > 0 ? 100 : 0) << X2;
  }
}

TEST(Slider, GlidesOnceBehindALoadAndOnlyToTheRight) {
  PositionsBench b("a.avi");
  auto& slider = b.positions.core.slider;
  const auto at = [&] { return placeOnLine(b.mode.slider, b.slider.position * 100) - 600; };
  slider.hold(0);
  slider.loaded();
  slider.SetposAsPct(2, "");  // 150 twips: three steps
  for (int step = 0; step < 3; ++step) b.loop.advance(20);
  EXPECT_NEAR(at(), 150, 1e-6);
  slider.SetposAsPct(50, "");
  EXPECT_EQ(at(), 3750) << "later moves jump";
  slider.loaded();
  slider.SetposAsPct(10, "");
  EXPECT_EQ(at(), 750) << "to the left it jumps";
  slider.hold(0);
  slider.loaded();
  slider.SetposAsPct(80, "");
  b.loop.advance(580);  // with the rests of 5 ms behind steps 3, 18 and 28 it has made 28 of 30 steps
  EXPECT_NEAR(at(), 28 * 60, 1e-6);
  b.loop.advance(40);
  EXPECT_EQ(at(), 6000) << "thirty steps are all";
  slider.hold(0);
  slider.loaded();
  slider.SetposAsPct(80, "");
  slider.hold(0.3);
  b.loop.advance(1000);
  EXPECT_EQ(at(), 2250) << "a hand ends it";
}

TEST(Displays, DigitsAndLabelGoByTheUnit) {
  PositionsBench b;
  auto& clip = b.ready();
  b.seek(4.16);
  EXPECT_EQ(b.glass.digits, "00:04:0104");
  EXPECT_EQ(b.label, "Time = 4.16 of 10.00");
  b.player.PlayerSetDisplayMode(DisplayMode::Frames);
  b.positions.core.displays.showPosition();
  EXPECT_EQ(b.glass.digits, "00:04:104");
  EXPECT_EQ(b.glass.digitsTip, "Point Time (mm:ss:frames)");
  EXPECT_EQ(digitsOfSeconds(3599.6, 25), "60:00:89990") << "frames are counted from the clip's start";
  clip.DurationTime(Value("N/A"));
  b.positions.core.displays.UpdateDigital();
  EXPECT_EQ(b.glass.digits, "");
  b.player.PlayerClear();
  b.label.clear();
  clip.IsStill(true);
  b.positions.core.displays.showPosition();
  EXPECT_EQ(b.label, "") << "a still waits for nothing";
  clip.IsStill(false);
  b.positions.core.displays.showPosition();
  EXPECT_EQ(b.label, "Waiting for media...");
}

TEST(Section, MarksAreCorrectedAndToldToEitherEngine) {
  const Rows<double, double, const char*> rows{{0, 0, "0 to 10, 0 to 250"},
                                               {2, 8, "2 to 8, 50 to 200"},
                                               {2, 12, "2 to 10, 50 to 250"},
                                               {-1, 8, "0 to 8, 0 to 200"},
                                               {4, 4.04, "4 to 4.04, 100 to 101"}};
  for (const auto* name : {"a.avi", "a.wmv"}) {
    for (const auto& [start, end, marks] : rows) {
      PositionsBench b;
      auto& clip = b.ready(name);
      clip.LoopStart(Value(start));
      clip.LoopEnd(Value(end));
      clip.IsDirty(false);
      b.player.PlayerSetDisplayMode(DisplayMode::Frames);
      b.positions.core.section.SectionToPlay(false);
      EXPECT_EQ(b.marks(), marks) << name;
      EXPECT_FALSE(clip.IsDirty()) << "a correction is nothing to be saved";
      EXPECT_EQ(b.player.PlayerGetDisplayMode(), DisplayMode::Frames);
      b.player.PlayerSetDisplayMode(DisplayMode::Seconds);
      EXPECT_EQ(b.player.PlayerGetSelectionStart(), clip.LoopStart().number()) << name << marks;
      EXPECT_EQ(b.player.PlayerGetSelectionEnd(), clip.LoopEnd().number()) << name << marks;
      b.seek(5);
      const double at = b.seconds();
      b.positions.core.section.SectionToPlay(true);
      EXPECT_EQ(b.seconds(), at) << "kept";
    }
  }
  PositionsBench b;
  auto& clip = b.ready("a.avi", {}, 2, 8);
  b.player.PlayerClear();
  b.positions.core.section.SectionToPlay(false);
  EXPECT_EQ(clip.LoopEnd().number(), 8) << "a file that is gone takes no mark with it";
}

}  // namespace
}  // namespace kvo
