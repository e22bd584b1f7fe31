// Keys, ticks and faces, and what they make of what plays.
#include "playback/transport_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TransportBench;

TEST(Transport, KeysPlayPauseAndStop) {
  for (const auto* name : {"a.avi", "a.wmv"}) {
    TransportBench b;
    auto& clip = b.add(name);
    auto& t = b.transport;
    b.mode.player.IsPaused = true;  // as at the start
    t.PreviewMovie(1);
    const struct {
      std::function<void()> act;
      const char* shown;
      EngineState state;
    } rows[] = {
        {[] {}, "1 paused", EngineState::Stopped},
        {[&] { t.Img_Play_Click(); }, "1 playing", EngineState::Running},
        {[&] { t.Lbl_PauseGraphic_Click(); }, "1 paused", EngineState::Stopped},
        {[&] { t.Lbl_PauseGraphic_Click(); }, "1 playing", EngineState::Running},
        {[&] { t.pictureClicked(PictureButton::Right); }, "1 paused", EngineState::Paused},
        {[&] { t.pictureClicked(PictureButton::Left); }, "1 playing", EngineState::Running},
        {[&] { t.Image8_Click(); }, "1 paused", EngineState::Stopped},
        {[&] { b.display.Lbl_MiniMode_Click(); }, "1 paused", EngineState::Stopped},  // a face without keys
        {[&] { t.Img_Play_Click(); }, "1 playing", EngineState::Running},
        {[&] { b.mode.toolbar.Img_Toolbar.visible = false, t.pictureClicked(PictureButton::Left); },
         "1 playing", EngineState::Running},  // only the toolbar comes back
        {[&] { t.pictureClicked(PictureButton::Left); }, "1 paused", EngineState::Paused},
    };
    int number = 0;
    for (const auto& row : rows) {
      row.act();
      b.loop.advance(300);
      EXPECT_EQ(b.shown(), row.shown) << name << " act " << number;
      EXPECT_EQ(b.player.PlayerGetPlayState(), row.state) << name << " act " << number++;
    }
    clip.Playspeed(20);
    t.playPressed({.right = true});
    EXPECT_EQ(clip.Playspeed(), 20);  // the record is the host's to change
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
  const struct {
    bool covers;
    Integer seconds;
    const char* walk;  // a letter every second
  } rows[] = {
      {true, 1, "122122122"}, {true, 0, "111111111"}, {false, 1, "111111111"}, {true, 4, "111122222"}};
  for (const auto& row : rows) {
    TransportBench b;
    for (const auto* name : {"a.jpg", "b.jpg"}) b.add(name).IsStill(true);
    b.settings.user.StillDelayTimer = row.seconds;
    b.transport.PreviewMovie(1);
    b.mode.IsFullScreenWindow = row.covers;
    std::string walk;
    for (const char* c = row.walk; *c != 0; ++c) {
      walk += std::to_string(b.collection.icurMov);
      b.loop.advance(1000);
    }
    EXPECT_EQ(walk, row.walk) << row.covers << " " << row.seconds;
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
};

TEST(Transport, AWindowKeepsItsSizeForClipsThatFollowByThemselves) {
  MixedBench b;
  b.display.Lbl_MiniMode_Click();
  b.display.Form_Resize(9000, 6000);
  const auto size = b.mode.window.place;
  std::string walk;
  for (int tenths = 0; tenths < 90; ++tenths) {
    b.loop.advance(100);
    EXPECT_EQ(b.mode.window.place, size) << b.shown();
    if (walk.empty() || walk.back() != b.shown().front()) walk += b.shown().front();
  }
  EXPECT_EQ(walk, "1234");
  b.transport.PreviewMovie(1);
  EXPECT_EQ(b.mode.window.place.width, 9600) << "the size of one that is chosen";
}

TEST(Transport, ThePictureAloneGoesOnWithTheCollection) {
  MixedBench b;
  b.settings.user.StillDelayTimer = 1;
  b.display.mnu_DirXFullSC_Click();
  std::string walk;
  for (int tenths = 0; tenths < 105; ++tenths) {
    b.loop.advance(100);
    EXPECT_TRUE(b.mode.pictureAlone && b.mode.ticks.mnu_DirXFullSC) << b.shown();
    if (walk.empty() || walk.back() != b.shown().front()) walk += b.shown().front();
  }
  EXPECT_EQ(walk, "12341") << "a still has its time there";
  EXPECT_TRUE(b.mode.player.fullScreen && !b.mode.ticks.lockAndZoomEnabled);
  b.add("e.html").IsHTML(true);
  b.transport.PreviewMovie(5);
  EXPECT_FALSE(b.mode.pictureAlone) << "a page has a window of its own";
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
