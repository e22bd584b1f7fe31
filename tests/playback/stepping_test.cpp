// Steps, rates, keys, the index, the remote's labels and the shuttle.
#include "playback/positions_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::FakeFile;
using test::PositionsBench;
using test::Rows;

TEST(Stepping, GoesByFramesWithinTheSection) {
  // Of a section from frame 50 to 200; a quiet step does not draw its key.
  const Rows<Step, bool, Long, Long> rows{
      {Step::Adv1, false, 100, 101}, {Step::Adv1, false, 198, 199}, {Step::Adv1, false, 199, 199},
      {Step::Rew1, false, 100, 99},  {Step::Rew1, true, 50, 49},    {Step::Rew1, false, 0, 0},
      {Step::Adv5, false, 100, 105}, {Step::Adv5, false, 196, 196}, {Step::Adv5, true, 100, 103},
      {Step::Rew5, false, 100, 95},  {Step::Rew5, true, 100, 95},   {Step::Rew5, false, 53, 53}};
  for (const auto* name : {"a.avi", "a.wmv"}) {
    for (const auto& [step, quiet, from, to] : rows) {
      PositionsBench b(name, {}, 2, 8);
      b.play();
      b.seek(static_cast<double>(from) / 25);
      b.positions.stepping.step(step, quiet);
      EXPECT_EQ(b.frame(), to) << name << " " << static_cast<int>(step) << " from " << from;
      EXPECT_EQ(b.label, "Frame = " + std::to_string(to) + " of 250") << name;
      EXPECT_EQ(b.keys.at(KeyPlace::FrameForward).image, step == Step::Adv1 && !quiet ? 11 : 0);
    }
  }
  for (const auto& [from, by, to] :
       {std::tuple{100, 7, 107}, {100, -60, 40}, {10, -60, 0}, {190, 60, 199}, {220, 5, 220}}) {
    PositionsBench wheel("a.avi", {}, 2, 8);
    wheel.seek(from / 25.0);
    wheel.positions.stepping.goBy(by);
    EXPECT_EQ(wheel.frame(), to) << from << " by " << by;
  }
  PositionsBench b("a.mp3", {.rate = 0});
  b.seek(3);
  b.positions.stepping.goBy(-5);
  b.seek(3);
  b.positions.stepping.Adv1(false);
  EXPECT_NEAR(b.seconds(), 3.1, 1e-9);
  b.positions.stepping.Adv5(false);
  EXPECT_NEAR(b.seconds(), 8.1, 1e-9) << "sound goes by seconds";
  b.ready("b.avi", {.seekable = false});
  b.positions.stepping.Adv1(false);
  EXPECT_EQ(b.control.calls.find("step"), std::string::npos);
}

TEST(Stepping, AHeldKeyRepeatsAndAShortPressIsOneStep) {
  PositionsBench b("a.avi", {}, 2, 8);
  auto& stepping = b.positions.stepping;
  stepping.press(Step::Adv1);
  stepping.release(Step::Adv1);
  EXPECT_EQ(b.frame(), 51);
  EXPECT_EQ(b.keys.at(KeyPlace::FrameForward).image, 11);
  stepping.press(Step::Adv1);
  b.loop.advance(650);
  EXPECT_EQ(b.frame(), 54) << "five a second";
  stepping.release(Step::Adv1);
  b.loop.advance(1000);
  EXPECT_EQ(b.frame(), 54);
  stepping.Lbl_End_Click();
  EXPECT_EQ(b.frame(), 200);
  stepping.Lbl_Start_Click();
  EXPECT_EQ(b.frame(), 50);
  b.ready("photo.jpg").IsStill(true);
  stepping.press(Step::Adv5);
  b.loop.advance(500);
  stepping.release(Step::Adv5);
  stepping.release(Step::Rew5);
  EXPECT_EQ(b.transport.calls, "NextMovie PreviewMovie1 ");
}

TEST(Rate, IsKeptWithTheClipUnlessItsKindRefuses) {
  for (const auto& [name, speed, box] :
       Rows<const char*, double, const char*>{{"a.avi", 20, ""},
                                              {"a.wma", 10, "KVO5 - Convert Audio"},
                                              {"a.wmv", 10, ""},
                                              {"a.asf", 10, ""},
                                              {"Track01.CDA", 10, "KVO5 - Audio Speed Change"},
                                              {"http://host/a.mp3", 10, ""}}) {
    PositionsBench b;
    auto& clip = b.ready(name);
    b.positions.rate.SetRate("2.0");
    EXPECT_EQ(clip.Playspeed(), static_cast<Single>(speed)) << name;
    EXPECT_EQ(b.noted.edits.size(), speed == 20 ? 1U : 0U) << name;
    EXPECT_EQ(b.boxes.shown.empty() ? "" : b.boxes.shown.back().caption, box) << name;
    if (speed != 20) continue;
    EXPECT_EQ(b.noted.edits.front(), "speed of 98") << "the editor times the movie anew";
    EXPECT_TRUE(b.mode.player.IsPlaying && !b.mode.player.IsPaused);
    EXPECT_EQ(b.glass.rate + " " + b.state.rate.value, "2.0x 2.0x");
    EXPECT_EQ(b.state.rate.lights, 10);
    b.loop.advance(2100);
    EXPECT_TRUE(b.state.rate.visible && b.state.rate.faded);
    b.loop.advance(200);
    EXPECT_FALSE(b.state.rate.visible);
    b.positions.rate.Lbl_Speedo_Click();
    EXPECT_EQ(b.control.rate(), 1);
    b.positions.rate.Lbl_Speedo_Click();
    EXPECT_EQ(b.control.rate(), 2) << "back to the clip's own";
  }
  for (const auto* name : {"a.mpg", "a.vob"}) {  // on a graph, which refuses
    PositionsBench graph;
    graph.settings.user.MPEGRoutingVMR = true;
    auto& clip = graph.ready(name);
    clip.Playspeed(15);
    graph.play();
    graph.positions.rate.SetRate("2.0");
    graph.positions.rate.Lbl_Speedo_Click();
    EXPECT_EQ(clip.Playspeed(), 15) << name << " the user's own speed stays";
    EXPECT_TRUE(graph.noted.edits.empty()) << name;
    EXPECT_EQ(graph.state.rate.value, rateLabel(graph.player.PlayerGetRate()))
        << "the lights show what holds";
    EXPECT_EQ(graph.player.PlayerGetPlayState(), EngineState::Running) << name << " plays on";
  }
  PositionsBench b;
  bool stripped = false;
  b.positions.core.doors.StripWavFromCurrentVideo = [&] { stripped = true; };
  b.ready("a.wma");
  b.boxes.answers = {Answer::No, Answer::Yes};
  b.positions.rate.SetRate("0.50");
  EXPECT_FALSE(stripped);
  b.positions.rate.SetRate("0.50");
  EXPECT_TRUE(stripped);
  EXPECT_EQ(b.transport.calls, "PreviewMovie1 play ");
  EXPECT_TRUE(b.boxes.shown[0].text.ends_with("Do you wish to convert the file ?"));
}

TEST(Levels, ReachThePlayerAsTheRecordHasThem) {
  for (const auto& [name, vfw, level] : Rows<const char*, bool, double>{
           {"a.avi", true, 0.4}, {"a.avi", false, 1}, {"a.wma", true, 1}, {"http://h/a.mp3", true, 1}}) {
    PositionsBench b;
    auto& clip = b.ready(name);
    clip.IsVFWCompat(vfw);
    clip.AudioOutputLevel(0.4F);
    clip.Volume(1200);
    clip.Balance(Value(700));
    b.positions.levels.takeRecord();
    EXPECT_NEAR(b.control.outputLevel, level, 1e-6) << name;
    EXPECT_EQ(std::pair(b.control.volume, b.control.balance), std::pair(-1200, -300));
  }
  PositionsBench b("a.avi");
  b.positions.levels.UpdateRateDisp(5);
  EXPECT_EQ(b.collection.MovieList[1].AudioOutputLevel(), 0.5F);
  EXPECT_EQ(b.noted.edits, std::vector<std::string>{"level of 1"});
  EXPECT_EQ(b.state.level.title + " " + b.state.level.value, "Output Level 0.5");
  b.positions.levels.toggleMute();
  EXPECT_EQ(b.state.level.value, "Mute");
  b.ready("b.wmv");
  b.positions.levels.toggleMute();
  EXPECT_FALSE(b.control.mute || b.graphs.graph->mute);
  b.player.PlayerMuteON();
  b.ready("c.avi");
  EXPECT_FALSE(b.control.mute) << "as the glass shows it";
}

TEST(KeyCommands, DoWhatTheTableSays) {
  // From 4 s on; the large steps are a fiftieth of the section.
  for (const auto& [key, calls, seconds, speed] :
       Rows<int, const char*, double, double>{{' ', "PlayGraphic ", 4, 1},
                                              {'P', "PlayGraphic ", 4, 1},
                                              {'n', "PlayGraphic ", 4, 1},
                                              {',', "", 3.96, 1},
                                              {KeyCommands::kArrowRight, "", 4.04, 1},
                                              {'<', "", 3.8, 1},
                                              {190, "", 4.2, 1},
                                              {'2', "PreviewMovie2 ", 4, 1},
                                              {'d', "", 4, 2},
                                              {'H', "", 4, 0.5},
                                              {'q', "", 4, 0.25},
                                              {'e', "", 9, 1},
                                              {'I', "", 5, 1},
                                              {'s', "", 0, 1},
                                              {'T', "NextMovie ", 4, 1},
                                              {'v', "PreviewMovie1 ", 4, 1}}) {
    PositionsBench b("b.avi");
    b.ready("a.avi");
    b.seek(4);
    b.player.PlayerSetDisplayMode(DisplayMode::Frames);  // as behind a step
    EXPECT_TRUE(b.positions.keys.KeyCommand(key)) << key;
    EXPECT_EQ(b.transport.calls, calls) << key;
    EXPECT_FALSE(b.player.PlayerGetPlayState() == EngineState::Running &&
                 b.player.PlayerGetDisplayMode() == DisplayMode::Frames)
        << key;
    EXPECT_NEAR(b.seconds(), seconds, 1e-6) << key;
    EXPECT_EQ(b.control.rate(), speed) << key;
  }
  PositionsBench b;
  EXPECT_FALSE(b.positions.keys.KeyCommand(' ')) << "there is no clip yet";
  b.ready();
  for (const int key : {'3', '0', 'x', 'l', 'L', '\t'}) EXPECT_FALSE(b.positions.keys.KeyCommand(key)) << key;
  int panels = 0;
  b.positions.core.doors.remotePanel = [&] { ++panels; };
  EXPECT_TRUE(b.positions.keys.KeyCommand('L'));
  EXPECT_FALSE(b.positions.keys.KeyCommand('l'));
  EXPECT_EQ(panels, 1);
  EXPECT_TRUE(b.positions.keys.KeyCommand('m'));
  EXPECT_TRUE(b.control.mute);
  b.ready();
  b.noted.visible = false;
  EXPECT_FALSE(b.positions.keys.KeyCommand('1')) << "the list is not seen";
  b.settings.user.LoopCol = true;
  EXPECT_TRUE(b.positions.keys.KeyCommand('t'));
  EXPECT_EQ(std::exchange(b.transport.calls, ""), "PreviewMovie1 ") << "the remote's next goes round";
  b.settings.user.LoopCol = false;
  b.collection.icurMov = 1;
  b.positions.remote.Lbl_PrevMov_Click();
  EXPECT_EQ(b.transport.calls, "") << "ahead of the first there is none";
  b.settings.state.ShuttleProInstalled = true;
  for (const int key : {'h', 'n', 'q', 's'}) EXPECT_FALSE(b.positions.keys.KeyCommand(key)) << key;
  b.play();
  b.positions.keys.KeyCommand('p');
  EXPECT_EQ(b.transport.calls, "pause ");
}

TEST(Markers, MakeAnIndexThatIsFollowedAndChosenFrom) {
  PositionsBench b("plain.avi", {.markers = {{0, "All"}}});
  EXPECT_FALSE(b.state.markers.available || b.state.markers.visible);
  const auto& state = b.state.markers;
  for (const auto* name : {"a.wmv", "a.mkv"}) {  // a graph, and the engine of properties
    b.ready(name, {.duration = 130, .markers = {{0, "One"}, {4, "Two"}, {70, "Three"}}});
    EXPECT_TRUE(state.available && state.visible) << name;
    EXPECT_EQ(state.list.rows(),
              (std::vector<std::string>{"1)  One - 00m:04", "2)  Two - 01m:06", "3)  Three - 01m:00"}));
    EXPECT_EQ(state.reached, 0);
  }
  b.seek(69.99);
  b.loop.advance(500);
  EXPECT_EQ(state.reached, 1);
  b.play();
  b.positions.markers.choose(2);
  EXPECT_NEAR(b.seconds(), 70, 0.01);
  EXPECT_EQ(state.reached, 2);
  EXPECT_TRUE(b.mode.player.IsPlaying);
  b.ready("b.mkv", {.seekable = false, .markers = {{0, "One"}, {4, "Two"}}});
  b.positions.markers.choose(1);
  EXPECT_EQ(b.boxes.shown.back().text, "Seeking is not possible in this stream");
}

TEST(Shuttle, RingAndKeysDriveThePlayer) {
  PositionsBench b("a.avi", {.duration = 100}, 2, 80);
  b.settings.state.ShuttleProInstalled = true;
  const auto press = [&](int code) { return b.positions.keys.KeyCommand(code); };
  EXPECT_TRUE(press(80));
  EXPECT_EQ(b.control.rate(), 1.5);
  EXPECT_TRUE(press(77));
  EXPECT_EQ(b.control.rate(), 1);
  EXPECT_TRUE(b.mode.player.IsPaused);
  b.seek(79);
  press(83);
  b.loop.advance(2000);
  EXPECT_NEAR(b.seconds(), 2 + 8 * 0.15, 0.3) << "15 jumps, round at Mark-Out";
  b.seek(40);
  press(84);
  b.loop.advance(100);
  b.positions.closeDisplays();
  b.seek(40);
  b.loop.advance(500);
  EXPECT_EQ(b.seconds(), 40) << "no jump in the next clip";
  press(86);
  b.loop.advance(180);
  EXPECT_EQ(b.frame(), 998) << "78 seconds in 850 steps of 2 frames";
  press(85);
  EXPECT_FALSE(b.state.held.ShuttleStepping) << "slow: frame by frame";
  b.seek(2.04);
  b.loop.advance(1000);
  EXPECT_EQ(b.frame(), 50) << "stops at Mark-In";
  press(79);
  press(78);
  b.seek(40);
  b.loop.advance(460);
  EXPECT_EQ(b.frame(), 1003) << "slower than any rate: a frame each 150 ms";
  press(86);
  press(78);
  b.seek(2.08);
  b.loop.advance(1000);
  EXPECT_EQ(b.frame(), 50) << "back, and no further than Mark-In";
  int added = 0;
  b.positions.core.doors.AddMoviesm = [&] { ++added; };
  EXPECT_TRUE(press(69) && press(70));
  EXPECT_EQ(b.transport.calls + std::to_string(added), "stop stop 2");
  b.seek(10);
  press(67);
  b.seek(20);
  press(68);
  EXPECT_EQ(b.marks(), "10 to 20, 250 to 500");
  press(66);
  EXPECT_TRUE(b.state.positioner.visible);
  EXPECT_EQ(b.state.positioner.Opt_Whatto, Whatto::SetMarkoutPoint);
  EXPECT_FALSE(press('Z' + 1));
}

}  // namespace
}  // namespace kvo
