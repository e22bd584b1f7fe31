// Keys, ticks and faces, and what they make of what plays.
#include "playback/transport_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Rows;
using test::TransportBench;

TEST(Transport, KeysPlayPauseAndStop) {
  for (const auto* name : {"a.avi", "a.wmv"}) {
    TransportBench b;
    auto& clip = b.add(name);
    auto& t = b.transport;
    b.mode.player.IsPaused = true;  // as at the start
    t.PreviewMovie(1);
    int number = 0;
    for (const auto& [act, shown, state] : Rows<std::function<void()>, const char*, EngineState>{
             {[] {}, "1 paused", EngineState::Stopped},
             {[&] { t.Img_Play_Click(); }, "1 playing", EngineState::Running},
             {[&] { t.Lbl_PauseGraphic_Click(); }, "1 paused", EngineState::Stopped},
             {[&] { t.Lbl_PauseGraphic_Click(); }, "1 playing", EngineState::Running},
             {[&] { t.pictureClicked(PictureButton::Right); }, "1 paused", EngineState::Paused},
             {[&] { t.pictureClicked(PictureButton::Left); }, "1 playing", EngineState::Running},
             {[&] { t.Image8_Click(); }, "1 paused", EngineState::Stopped},
             {[&] { b.display.Lbl_MiniMode_Click(); }, "1 paused",
              EngineState::Stopped},  // a face without keys
             {[&] { t.Img_Play_Click(); }, "1 playing", EngineState::Running},
             {[&] { b.mode.toolbar.Img_Toolbar.visible = false, t.pictureClicked(PictureButton::Left); },
              "1 playing", EngineState::Running},  // only the toolbar comes back
             {[&] { t.pictureClicked(PictureButton::Left); }, "1 paused", EngineState::Paused}}) {
      act();
      b.loop.advance(300);
      EXPECT_EQ(b.shown(), shown) << name << " act " << number;
      EXPECT_EQ(b.player.PlayerGetPlayState(), state) << name << " act " << number++;
    }
    clip.Playspeed(20);
    t.playPressed({.right = true});
    EXPECT_EQ(clip.Playspeed(), 20) << "the record is the host's to change";
    EXPECT_EQ(b.host.asked.find("speed1 ") != std::string::npos, std::string(name) == "a.avi");
    t.playPressed({.shift = true});
    EXPECT_EQ(b.timers.Timer7.enabled() ? b.timers.Timer7.interval() : 0, 100);
    t.Lbl_PauseGraphic_Click();
    EXPECT_EQ(b.shown(), "1 paused");
    b.settings.user.LoopPreviews = true;
    t.mnu_Looping_Click();  // begins to play
    EXPECT_EQ(b.shown(), "1 playing");
    EXPECT_EQ(b.control.playCount, kForEver);
  }
}

TEST(Transport, BackwardsEndsWithWhateverPlaysStopsOrSeeks) {
  TransportBench b;
  auto& t = b.transport;
  const std::function<void()> acts[] = {[&] { t.Image8_Click(); },
                                        [&] { t.pictureClicked(PictureButton::Left); },
                                        [&] { t.Img_Play_Click(); },
                                        [&] { b.player.PlayerSetCurrentPosition(2); },
                                        [&] { b.player.PlayerPause(); },
                                        [&] { b.player.PlayerStep(1); },
                                        [&] { b.display.Lbl_MiniMode_Click(); }};
  for (const auto* name : {"a.avi", "a.wmv"}) {
    b.add(name);
    t.PreviewMovie(b.collection.MovieList.count());
    for (const auto& act : acts) {
      b.player.PlayerSetDisplayMode(DisplayMode::Frames);
      b.player.PlayerSetCurrentPosition(2);
      t.playPressed({.shift = true});
      b.loop.advance(500);
      EXPECT_GT(b.player.PlayerGetCurrentPosition(), 100) << name << " is at its last frames";
      act();
      EXPECT_FALSE(b.timers.Timer7.enabled()) << name << " act " << &act - acts;
    }
  }
}

TEST(Transport, StillsGoOnOverTheWholeScreenAlone) {
  for (const auto& [covers, seconds, expected] : Rows<bool, Integer, const char*>{
           {true, 1, "122122122"}, {true, 0, "111111111"}, {false, 1, "111111111"}, {true, 4, "111122222"}}) {
    TransportBench b;
    for (const auto* name : {"a.jpg", "b.jpg"}) b.add(name).IsStill(true);
    b.settings.user.StillDelayTimer = seconds;
    b.transport.PreviewMovie(1);
    b.mode.IsFullScreenWindow = covers;
    std::string walk;
    for (const char* c = expected; *c != 0; ++c) {
      walk += std::to_string(b.collection.icurMov);
      b.loop.advance(1000);
    }
    EXPECT_EQ(walk, expected) << covers << " " << seconds;
    b.transport.Image8_Click();
    EXPECT_FALSE(b.timers.StillTimer.enabled());
  }
}

// A collection of all kinds, and what the user has on the screen meanwhile.
struct MixedBench : TransportBench {
  MixedBench() {
    add("a.avi", 2);
    add("b.mp3", 2);
    media["/v/b.mp3"] = {.duration = 2, .rate = 0};
    add("c.avi", 2);
    add("d.jpg").IsStill(true);
    transport.PreviewMovie(1);
  }
  /// The clips in hand within so many seconds, in each tenth of which something holds.
  std::string walk(double seconds, const std::function<void()>& holds) {
    std::string clips;
    for (int tenths = 0; tenths < seconds * 10; ++tenths) {
      loop.advance(100);
      holds();
      if (!clips.ends_with(shown().front())) clips += shown().front();
    }
    return clips;
  }
};

TEST(Transport, AWindowKeepsItsSizeForClipsThatFollowByThemselves) {
  MixedBench b;
  b.display.Lbl_MiniMode_Click();
  b.display.Form_Resize(9000, 6000);
  const auto size = b.mode.window.place;
  EXPECT_EQ(b.walk(9, [&] { EXPECT_EQ(b.mode.window.place, size) << b.shown(); }), "1234");
  b.transport.PreviewMovie(1);
  EXPECT_EQ(b.mode.window.place.width, 9600) << "the size of one that is chosen";
}

TEST(Transport, ThePictureAloneGoesOnWithTheCollection) {
  MixedBench b;
  b.settings.user.StillDelayTimer = 1;
  b.display.mnu_DirXFullSC_Click();
  const auto isAlone = [&] { EXPECT_TRUE(b.mode.pictureAlone && b.mode.ticks.mnu_DirXFullSC) << b.shown(); };
  EXPECT_EQ(b.walk(10.5, isAlone), "12341") << "a still has its time there";
  EXPECT_TRUE(b.mode.player.fullScreen && !b.mode.ticks.lockAndZoomEnabled);
  b.add("e.html").IsHTML(true);
  b.transport.PreviewMovie(5);
  EXPECT_FALSE(b.mode.pictureAlone) << "a page has a window of its own";
}

TEST(Transport, PlaysAllFromTheFirst) {
  MixedBench b;
  b.transport.playAll();
  b.loop.advance(300);
  EXPECT_EQ(b.shown(), "1 playing");
  b.transport.PreviewMovie(3);
  b.transport.Lbl_PauseGraphic_Click();
  b.transport.playAll();
  EXPECT_EQ(b.shown(), "1 playing") << "whatever is in hand";
  TransportBench empty;
  empty.transport.playAll();
  EXPECT_EQ(empty.shown(), "0");
}

TEST(Transport, TheKeyGoesOnFromAStillThatDoesNotGoOnByItself) {
  MixedBench b;
  const auto press = [&](int clip) {
    b.transport.PreviewMovie(clip);
    b.transport.playPressed({});
    b.loop.advance(300);
    return b.shown();
  };
  EXPECT_EQ(press(4), "1 playing") << "behind the last clip the collection begins again";
  b.add("e.avi");
  EXPECT_EQ(press(4), "5 playing");
  b.display.coverOrBack();
  b.settings.user.StillDelayTimer = 3;
  EXPECT_EQ(press(4), "4") << "it has its time there";
  b.settings.user.StillDelayTimer = 0;
  EXPECT_EQ(press(4), "5 playing");
  b.transport.PreviewMovie(4);
  b.transport.Img_Play_Click();
  EXPECT_EQ(b.shown(), "4") << "one that is chosen to be shown stays";
}

TEST(Transport, NothingPlaysAgainWhereTheFaceChangesBetweenTwoClips) {
  MixedBench b;
  b.loop.advance(2200);
  ASSERT_TRUE(b.mode.player.clipWaits);
  for (const auto change :
       {&Display::Lbl_MiniMode_Click, &Display::Lbl_MinMax_Click, &Display::Lbl_MiniMode_Click}) {
    (b.display.*change)();
    EXPECT_NE(b.player.PlayerGetPlayState(), EngineState::Running);
    EXPECT_TRUE(b.mode.player.clipWaits);
  }
}

}  // namespace
}  // namespace kvo
