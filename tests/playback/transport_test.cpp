// What goes on behind the end of a clip.
#include "playback/transport_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TransportBench;

// Both engines: one tells of its end, the other is looked at every 0.6 seconds.
TEST(Transport, CollectionsGoOnAsTheirTicksSay) {
  constexpr PlayOrder kAround{false, false, true};
  const struct {
    const char* what;
    std::vector<const char*> clips;
    const char* expected;
    const char* shown;
    PlayOrder order = {};
    Integer delay = 0;
    bool withoutGaps = false;
    double seconds = 40;
  } rows[] = {
      {"one", {"a.avi"}, "1@0 ", "1 paused"},
      {"one, graph", {"a.wmv"}, "1@0 ", "1 paused"},
      {"two", {"a.avi", "b.avi"}, "1@0 2@10.5 ", "2 paused"},
      {"two, graph", {"a.wmv", "b.wmv"}, "1@0 2@10.7 ", "2 paused"},
      {"mixed", {"a.wmv", "b.avi", "c.wmv"}, "1@0 2@10.7 3@21.2 ", "3 paused"},
      {"pause of 3", {"a.avi", "b.wmv", "c.avi"}, "1@0 2@13 3@26.2 ", "3 paused", {}, 3},
      {"pause of 20", {"a.avi", "b.avi"}, "1@0 2@30 ", "2 paused", {}, 20, false, 50},
      {"no gaps", {"a.avi", "b.avi", "c.avi"}, "1@0 2@10 3@20 ", "3 paused", {}, 0, true},
      {"no gaps, graph", {"a.wmv", "b.wmv", "c.avi"}, "1@0 2@10 3@20 ", "3 paused", {}, 0, true},
      {"no gaps but a pause", {"a.avi", "b.avi"}, "1@0 2@13 ", "2 paused", {}, 3, true},
      {"around", {"a.avi", "b.avi"}, "1@0 2@10.5 1@21 2@31.5 ", "2 playing", kAround, 0, false, 35},
      {"around, graph", {"a.wmv", "b.wmv"}, "1@0 2@13.2 1@26.4 ", "1 playing", kAround, 3, false, 35},
      {"one around", {"a.avi"}, "1@0 1@10.5 1@21 ", "1 playing", kAround, 0, false, 30},
      {"loops", {"a.avi", "b.avi"}, "1@0 ", "1 playing", {true}},
      {"last loops, graph", {"a.wmv"}, "1@0 1@10.3 1@20.5 ", "1 playing", {true}, 0, false, 30},
      {"rewinds", {"a.avi", "b.avi"}, "1@0 ", "1 paused", {false, true}},
      {"rewinds, graph", {"a.wmv", "b.wmv"}, "1@0 ", "1 paused", {false, true}},
      {"a file has gone", {"a.avi", "gone.avi", "c.avi"}, "1@0 ", "2"},
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
    EXPECT_TRUE(!row.order.rewinds() || b.player.PlayerGetCurrentPosition() == 0) << row.what;
  }
}

TEST(Transport, AnEndIsLeftAloneWhileTheUserIsAtIt) {
  for (const bool atMark : {true, false}) {
    TransportBench b;
    for (const auto* name : {"a.avi", "b.avi"}) b.add(name);
    b.transport.PreviewMovie(1);
    b.loop.advance(9000);
    (atMark ? b.host.markHeld : b.host.commandRuns) = true;
    b.loop.advance(2000);
    EXPECT_EQ(b.shown(), atMark ? "1 paused" : "1 playing");
    b.host.commandRuns = false;  // the box over the end has been answered
    b.loop.advance(3000);
    EXPECT_EQ(b.shown(), atMark ? "1 paused" : "2 playing");
  }
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

}  // namespace
}  // namespace kvo
