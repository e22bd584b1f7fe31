#include "playback/transport_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TransportBench;

// Both engines: one tells of its end, the other is looked at every 0.6 seconds.
TEST(Transport, CollectionsGoOnAsTheirTicksSay) {
  const struct {
    const char* what;
    std::vector<const char*> clips;
    PlayOrder order;
    Integer delay;
    bool withoutGaps;
    double seconds;
    const char* expected;
    const char* shown;
  } rows[] = {
      {"one", {"a.avi"}, {}, 0, false, 40, "1@0 ", "1 paused"},
      {"one, graph", {"a.wmv"}, {}, 0, false, 40, "1@0 ", "1 paused"},
      {"two", {"a.avi", "b.avi"}, {}, 0, false, 40, "1@0 2@10.5 ", "2 paused"},
      {"two, graph", {"a.wmv", "b.wmv"}, {}, 0, false, 40, "1@0 2@10.7 ", "2 paused"},
      {"mixed", {"a.wmv", "b.avi", "c.wmv"}, {}, 0, false, 40, "1@0 2@10.7 3@21.2 ", "3 paused"},
      {"pause of 3", {"a.avi", "b.wmv", "c.avi"}, {}, 3, false, 40, "1@0 2@13 3@26.2 ", "3 paused"},
      {"pause of 20", {"a.avi", "b.avi"}, {}, 20, false, 50, "1@0 2@30 ", "2 paused"},
      {"no gaps", {"a.avi", "b.avi", "c.avi"}, {}, 0, true, 40, "1@0 2@10 3@20 ", "3 paused"},
      {"no gaps, graph", {"a.wmv", "b.wmv", "c.avi"}, {}, 0, true, 40, "1@0 2@10 3@20 ", "3 paused"},
      {"no gaps but a pause", {"a.avi", "b.avi"}, {}, 3, true, 40, "1@0 2@13 ", "2 paused"},
      {"around",
       {"a.avi", "b.avi"},
       {false, false, true},
       0,
       false,
       35,
       "1@0 2@10.5 1@21 2@31.5 ",
       "2 playing"},
      {"around, graph, pause",
       {"a.wmv", "b.wmv"},
       {false, false, true},
       3,
       false,
       35,
       "1@0 2@13.2 1@26.4 ",
       "1 playing"},
      {"one around", {"a.avi"}, {false, false, true}, 0, false, 30, "1@0 1@10.5 1@21 ", "1 playing"},
      {"loops", {"a.avi", "b.avi"}, {true}, 0, false, 30, "1@0 ", "1 playing"},
      {"last loops, graph", {"a.wmv"}, {true}, 0, false, 30, "1@0 1@10.3 1@20.5 ", "1 playing"},
      {"rewinds", {"a.avi", "b.avi"}, {false, true}, 0, false, 30, "1@0 ", "1 paused"},
      {"rewinds, graph", {"a.wmv", "b.wmv"}, {false, true}, 0, false, 30, "1@0 ", "1 paused"},
      {"a file has gone", {"a.avi", "gone.avi", "c.avi"}, {}, 0, false, 30, "1@0 ", "2"},
  };
  for (const auto& row : rows) {
    TransportBench b;
    for (const auto* name : row.clips) b.add(name, std::string(name) == "gone.avi" ? 0 : 10);
    b.settings.user.LoopPreviews = row.order.mnu_Looping;
    b.settings.user.RewAtEnd = row.order.mnu_RewAtEnd;
    b.settings.user.LoopCol = row.order.mnu_LoopCollectionsOnPlayback;
    b.settings.state.InterClipDelay = row.delay;
    b.settings.user.PlayWithoutGaps = row.withoutGaps;
    b.transport.PreviewMovie(0);
    EXPECT_EQ(b.beginnings(row.seconds), row.expected) << row.what;
    EXPECT_EQ(b.shown(), row.shown) << row.what;
  }
}

TEST(Transport, AnEndIsLeftAloneWhileTheUserIsAtIt) {
  const auto play = [](auto change) {
    TransportBench b;
    b.add("a.avi");
    b.add("b.avi");
    b.transport.PreviewMovie(1);
    b.loop.advance(9000);
    change(b);
    b.loop.advance(3000);
    return b.shown();
  };
  EXPECT_EQ(play([](auto& b) { b.host.markHeld = true; }), "1 paused");
  EXPECT_EQ(play([](auto& b) { b.host.commandRuns = true; }), "1 playing");
  EXPECT_EQ(play([](auto& b) {
              b.host.commandRuns = true;  // a box is open over the end, and is answered behind it
              b.loop.advance(2000);
              b.host.commandRuns = false;
            }),
            "2 playing");
  EXPECT_EQ(play([](auto& b) { b.transport.halt(); }), "1 paused");
  EXPECT_EQ(play([](auto& b) {  // another clip is chosen in the pause
              b.settings.state.InterClipDelay = 20;
              b.loop.advance(2000);
              EXPECT_EQ(b.shown(), "2 paused");
              b.transport.PreviewMovie(1);
            }),
            "1 paused");
  EXPECT_EQ(play([](auto& b) {  // the key ends the pause
              b.settings.state.InterClipDelay = 20;
              b.loop.advance(2000);
              b.transport.Lbl_PauseGraphic_Click();
            }),
            "2 playing");
}

// An end on its way home, and what happens ahead of it.
TEST(Transport, AnEndIsOnlyThatOfWhatPlaysUntilThen) {
  for (const auto* kind : {".avi", ".wmv"}) {
    const struct {
      const char* what;
      std::function<void(TransportBench&)> act;
      const char* shown;
    } rows[] = {
        {"nothing", [](auto&) {}, "2 playing"},
        {"another clip", [](auto& b) { b.transport.PreviewMovie(3); }, "3 playing"},
        {"the same once more", [](auto& b) { b.transport.PreviewMovie(1); }, "1 playing"},
        {"sent back", [](auto& b) { b.player.PlayerSetCurrentPosition(1), b.player.GlobalMediaPlay(); },
         "1 playing"}};
    for (const auto& row : rows) {
      TransportBench b;
      for (const auto* name : {"a", "b", "c", "d"}) b.add(std::string(name) + kind);
      b.settings.user.PlayWithoutGaps = true;
      b.transport.PreviewMovie(1);
      b.loop.advance(5000);
      b.player.UsingCorona() ? b.graphs.graph->comeToEnd() : b.control.comeToEnd();
      row.act(b);
      b.loop.advance(5000);
      EXPECT_EQ(b.shown(), row.shown) << row.what << kind;
    }
  }
}

TEST(Transport, ADiscThatHasBeenStoppedGoesOnBehindItsEndAgain) {
  for (const bool byKey : {true, false}) {
    TransportBench b;
    b.add("a.vob");
    b.add("b.vob");
    b.transport.PreviewMovie(1);
    b.loop.advance(2000);
    b.transport.Image8_Click();
    byKey ? b.transport.Img_Play_Click() : b.transport.pictureClicked(PictureButton::Right);
    b.loop.advance(9500);
    EXPECT_EQ(b.shown(), "2 playing") << byKey;
  }
}

TEST(Transport, NothingOfTheClipBeforePlaysBehindAPage) {
  for (const auto* before : {"a.avi", "a.wmv", "a.vob"}) {
    TransportBench b;
    b.add(before);
    b.add("b.html").IsHTML(true);
    b.transport.PreviewMovie(1);
    b.loop.advance(12000);
    EXPECT_EQ(b.shown(), "2") << before;
    EXPECT_TRUE(b.player.PlayerIsEmpty()) << before;
    EXPECT_EQ(b.pages.shown.size(), 1U) << before;
  }
}

TEST(Transport, TheClipThatTheListHasGoneOnToIsTheOneThatPlays) {
  const struct {
    const char* what;
    std::function<void(Transport&)> act;
    const char* shown;
    int inPlayer;
  } rows[] = {
      {"picture", [](auto& t) { t.pictureClicked(PictureButton::Right); }, "2 playing", 2},
      {"stop", [](auto& t) { t.Image8_Click(); }, "2 paused", 1},
      {"stop, play", [](auto& t) { t.Image8_Click(), t.Img_Play_Click(); }, "2 playing", 2},
      {"stop, picture", [](auto& t) { t.Image8_Click(), t.pictureClicked(PictureButton::Right); },
       "2 playing", 2},
      {"own rate", [](auto& t) { t.playPressed({.right = true}); }, "2 playing", 2},
  };
  for (const auto& row : rows) {
    TransportBench b;
    b.add("a.avi");
    b.add("b.avi");
    b.settings.state.InterClipDelay = 20;
    b.transport.PreviewMovie(1);
    b.loop.advance(11000);
    EXPECT_TRUE(b.mode.player.clipWaits);
    row.act(b.transport);
    b.loop.advance(3000);
    EXPECT_EQ(b.shown(), row.shown) << row.what;
    EXPECT_EQ(b.mode.player.clip, row.inPlayer) << row.what;
    EXPECT_EQ(b.mode.player.clipWaits, row.inPlayer == 1) << row.what;
  }
}

TEST(Transport, WhatTheUserDoesWhileAClipIsOpenedStands) {
  const struct {
    std::function<void(Transport&)> act;
    int number;
  } rows[] = {{[](auto& t) { t.PreviewMovie(3); }, 3},  // sound waits for its key
              {[](auto& t) { t.Image8_Click(); }, 2}};
  for (const auto& row : rows) {
    TransportBench b;
    for (const auto* name : {"a.avi", "b.wmv", "c.wav"}) b.add(name);
    b.transport.PreviewMovie(1);
    b.loop.advance(9000);
    b.graphs.whileOpening = [&] { row.act(b.transport); };
    b.loop.advance(3000);
    EXPECT_EQ(b.collection.icurMov, row.number);
    EXPECT_NE(b.player.PlayerGetPlayState(), EngineState::Running) << row.number;
  }
}

TEST(Transport, AShortClipIsMeasuredInSecondsWhateverIsShown) {
  TransportBench b;
  b.add("a.avi");
  b.add("b.avi", 0.5);
  b.transport.PreviewMovie(1);
  b.loop.advance(10700);
  b.settings.user.RewAtEnd = true;
  b.player.PlayerSetDisplayMode(DisplayMode::Frames);
  b.loop.advance(1000);
  EXPECT_EQ(b.control.position(), 0.5);  // too short to be rewound
  EXPECT_EQ(b.player.PlayerGetDisplayMode(), DisplayMode::Frames);
}

TEST(Transport, ACollectionGoesRoundFromAPlayerThatStandsToo) {
  for (const bool around : {true, false}) {
    TransportBench b;
    b.add("a.wmv");
    b.add("b.wmv");
    b.settings.user.LoopCol = around;
    b.transport.PreviewMovie(1);
    b.loop.advance(5000);
    b.transport.pictureClicked(PictureButton::Right);
    b.graphs.graph->seek(10);
    b.loop.advance(2000);
    EXPECT_EQ(b.shown(), around ? "2 playing" : "1 paused");
  }
}

TEST(Transport, WhatCoversTheScreenAtItsSizePlaysAtOnce) {
  for (const bool covers : {true, false}) {
    TransportBench b;
    b.add("a.wav");
    b.settings.user.DefaultZoom100 = true;
    b.settings.state.KVOIsInEditMode = true;
    b.mode.IsFullScreenWindow = covers;
    b.transport.PreviewMovie(1);
    EXPECT_EQ(b.control.state() == EngineState::Running, covers);
  }
}

TEST(Transport, EachKindOfClipHasItsSurface) {
  const struct {
    const char* name;
    std::function<void(Movie&)> kind;
    bool plays;
    const char* rewindTip;
  } rows[] = {
      {"a.avi", {}, true, "Right-Click to position to start or Click or Hold Down to rewind 5 frames"},
      {"a.mov", {}, true, "Right-Click to position to start or Click or Hold Down to rewind 5 frames"},
      {"a.vob", {}, true, "Right-Click for Previous Chapter or Click or Hold Down to rewind 5 secs"},
      {"a.wav", {}, false, "Right-Click to position to start or Click or Hold Down to rewind 5 frames"},
      {"a.jpg", [](Movie& c) { c.IsStill(true); }, false, "Click for Previous Clip"},
      {"a.cda", {}, false, "Right-Click for Previous Track or Click or Hold Down to rewind 5 secs"},
      {"a.mov", [](Movie& c) { c.IsTrueQT4(true); }, false, ""},
      {"a.rm", [](Movie& c) { c.IsTrueRM(true); }, false, ""},
      {"a.html", [](Movie& c) { c.IsHTML(true); }, false, ""},
      {"gone.avi", {}, false, "Right-Click to position to start or Click or Hold Down to rewind 5 frames"},
  };
  for (const auto& row : rows) {
    TransportBench b;
    b.add("before.avi");
    auto& clip = b.add(row.name, std::string(row.name) == "gone.avi" ? 0 : 10);
    if (row.kind) row.kind(clip);
    b.transport.PreviewMovie(1);
    b.transport.PreviewMovie(2);
    EXPECT_EQ(b.player.PlayerGetPlayState() == EngineState::Running, row.plays) << row.name;
    EXPECT_EQ(b.state.tips.rewind, row.rewindTip) << row.name;
    EXPECT_EQ(b.mode.still.Img_Still.visible, clip.IsStill()) << row.name;
    EXPECT_EQ(b.desktop.files,
              clip.IsTrueQT4() ? std::vector<std::string>{"/v/a.mov"} : decltype(b.desktop.files){});
    EXPECT_EQ(b.pages.shown.size(), clip.IsHTML() ? 1U : 0U) << row.name;
    EXPECT_EQ(b.state.lbl_Novid.text == "a.mov is shown by another program", clip.IsTrueQT4()) << row.name;
    EXPECT_TRUE(b.timers.Timer6.enabled()) << row.name;
  }
  TransportBench none;  // a page where no window is there for it
  none.pages.there = false;
  none.add("http://page.example/").IsHTML(true);
  none.transport.PreviewMovie(1);
  EXPECT_EQ(none.desktop.pages, std::vector<std::string>{"http://page.example/"});
}

TEST(Transport, AClipTakesItsOwnWithIt) {
  TransportBench b;
  b.add("a.avi").LoopStart(Value(2));
  b.add("b.avi").LoopEnd(Value(0));
  b.files.all["/v/a.smi"] = "texts";
  b.settings.state.ShowCaps = true;
  b.transport.PreviewMovie(1);
  EXPECT_EQ(b.control.position(), 2);
  EXPECT_EQ(b.control.captionFile(), "/v/a.smi");
  ASSERT_EQ(b.control.openedAhead.size(), 1U);
  EXPECT_EQ(b.control.openedAhead.front().first, "/v/b.avi");
  b.transport.empty();
  EXPECT_EQ(b.control.openedAhead.back().first, "") << "an empty player holds no file";
  b.transport.PreviewMovie(2);
  EXPECT_EQ(b.control.captionFile(), "");
  EXPECT_EQ(b.host.asked, "loaded1 loaded2 ");
}

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
    EXPECT_FALSE(b.timers.Timer7.enabled());
    EXPECT_EQ(b.shown(), "1 paused");
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

TEST(Transport, MenusSteerWhatPlays) {
  TransportBench b;
  b.add("a.avi");
  b.mode.player.IsPaused = true;
  b.transport.PreviewMovie(1);
  auto& user = b.settings.user;
  user.RewAtEnd = true;
  b.transport.orderChanged();
  EXPECT_TRUE(b.control.autoRewind);
  user.LoopPreviews = true;
  b.transport.mnu_Looping_Click();  // begins to play
  EXPECT_EQ(b.shown(), "1 playing");
  EXPECT_EQ(b.control.playCount, kForEver);
  EXPECT_FALSE(b.control.autoRewind);
  user.LoopPreviews = false;
  b.transport.mnu_Looping_Click();
  EXPECT_EQ(b.control.playCount, 1);
  EXPECT_TRUE(b.control.autoRewind);
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
  EXPECT_TRUE(b.mode.player.fullScreen);
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

TEST(Transport, AFileThatCannotBePlayedIsToldInThePicturesPlace) {
  TransportBench b;
  b.add("gone.avi", 0);
  b.add("broken.avi", 0);
  b.add("a.avi");
  b.files.all["/v/broken.avi"] = "x";
  const std::pair<int, std::string> rows[] = {
      {1, "gone.avi is not there any more"}, {2, "broken.avi cannot be played"}, {3, ""}};
  for (const auto& [number, told] : rows) {
    b.transport.PreviewMovie(number);
    EXPECT_EQ(b.state.lbl_Novid.text, told);
    EXPECT_EQ(b.player.PlayerIsEmpty(), !told.empty());
  }
}

TEST(Transport, AStreamComesInStepByStep) {
  TransportBench b;
  b.add("http://radio.example/live", 30);
  b.transport.PreviewMovie(1);
  EXPECT_EQ(b.host.windowCaption, "KVO Web Stream");
  EXPECT_FALSE(b.host.listShown);
  EXPECT_EQ(b.state.lbl_Novid.text, "Connecting...");
  const bool lit = b.state.lbl_Novid.lit;
  b.loop.advance(500);
  EXPECT_NE(b.state.lbl_Novid.lit, lit);
  b.control.opens(EngineOpening::Buffering, 40);
  b.loop.advance(600);
  EXPECT_EQ(b.state.lbl_Novid.text, "Buffering Progress = 40");
  b.control.bits = 128000;
  b.collection.MovieList[1].MovieHeight(0);
  EXPECT_EQ(b.mode.player.sourceWidth, 0);
  b.control.opens(EngineOpening::Open);
  b.loop.advance(1000);
  EXPECT_EQ(b.mode.player.sourceWidth, 640);
  EXPECT_EQ(b.collection.MovieList[1].MovieHeight(), 480);
  EXPECT_EQ(b.state.lbl_Novid.text, "");
  EXPECT_EQ(b.shown(), "1 playing");
  EXPECT_EQ(b.control.state(), EngineState::Running);
  EXPECT_TRUE(b.host.listShown && b.state.stream.Lbl_StreamInfo);
  EXPECT_EQ(b.state.stream.bandwidth, "128000 bps");
  b.control.opens(EngineOpening::Failed);  // in the middle
  b.loop.advance(1000);
  ASSERT_EQ(b.boxes.shown.size(), 1U);
  EXPECT_FALSE(b.state.stream.Lbl_StreamInfo);
  EXPECT_TRUE(b.player.PlayerIsEmpty());
}

TEST(Transport, AStreamThatDoesNotComeIsTold) {
  const std::string told =
      "The Clip could not be played.\r\nPossible causes are either not being connected to the Internet\r\n"
      "or a slow internet connection \\ host site. \r\nAdditionally, the Clip may no longer exist on the "
      "server.";
  const struct {
    const char* what;
    std::function<void(TransportBench&)> happens;
    const char* label;
    std::size_t boxes;
  } rows[] = {
      {"never answers", [](auto& b) { b.loop.advance(21000); }, "", 1},
      {"fails", [](auto& b) { b.control.opens(EngineOpening::Failed), b.loop.advance(100); }, "", 1},
      {"stuck", [](auto& b) { b.control.opens(EngineOpening::Buffering, 7), b.loop.advance(21000); }, "", 1},
      {"the user stops", [](auto& b) { b.transport.Image8_Click(), b.loop.advance(100); },
       "Connection aborted", 0},
      {"a click on the picture",
       [](auto& b) { b.transport.pictureClicked(PictureButton::Left), b.loop.advance(100); },
       "Connection aborted", 0},
      {"the user's other key", [](auto& b) { b.transport.Lbl_PauseGraphic_Click(), b.loop.advance(100); },
       "Connection aborted", 0},
  };
  for (const auto& row : rows) {
    TransportBench b;
    b.add("http://radio.example/live", 30);
    b.add("b.avi");
    b.transport.PreviewMovie(1);
    row.happens(b);
    EXPECT_EQ(b.state.lbl_Novid.text, row.label) << row.what;
    ASSERT_EQ(b.boxes.shown.size(), row.boxes) << row.what;
    for (const auto& box : b.boxes.shown) EXPECT_EQ(box.text, told);
    EXPECT_TRUE(b.host.listShown && b.player.PlayerIsEmpty()) << row.what;
    EXPECT_EQ(b.host.windowCaption, "http://radio.example/live") << row.what << ": the clip's name again";
    b.mode.player.IsPaused = false;
    b.transport.PreviewMovie(2);
    EXPECT_EQ(b.shown(), "2 playing") << row.what;
  }
}

TEST(Transport, WithoutANetworkTheUserIsAsked) {
  for (const bool yes : {true, false}) {
    TransportBench b;
    b.network.on = false;
    b.boxes.answers = {yes ? Answer::Yes : Answer::No};
    b.add("http://radio.example/live", 30);
    b.add("http://127.0.0.1:8000/live", 30);  // this machine is always there
    b.transport.PreviewMovie(2);
    EXPECT_TRUE(b.boxes.shown.empty());
    b.transport.PreviewMovie(1);
    ASSERT_EQ(b.boxes.shown.size(), 1U);
    EXPECT_EQ(b.boxes.shown.front().caption, "KVO - No Net Connection");
    EXPECT_EQ(b.player.PlayerIsEmpty(), !yes);
    EXPECT_EQ(b.host.listShown, !yes);
  }
}

}  // namespace
}  // namespace kvo
