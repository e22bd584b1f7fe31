// What goes on behind the end of a clip.
#include "playback/transport_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Rows;
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

// The first of these clips plays for so many seconds, something happens, and this is shown later.
TEST(Transport, WhatHappensNearAnEndLeadsOn) {
  using Act = void (*)(TransportBench&);
  using Clips = std::vector<const char*>;
  const Clips films{"a.avi", "b.avi"}, graphs{"a.wmv", "b.wmv"}, discs{"a.vob", "b.vob"};
  const Act picture = [](auto& b) { b.transport.pictureClicked(PictureButton::Right); };
  const Act stop = [](auto& b) { b.transport.Image8_Click(); };
  const Act play = [](auto& b) { b.transport.Img_Play_Click(); };
  const Act ownRate = [](auto& b) { b.transport.playPressed({.right = true}); };
  const Act toItsEnd = [](auto& b) { b.graphs.graph->seek(10); };
  const Act mark = [](auto& b) { b.host.markHeld = true; };
  const Act box = [](auto& b) { b.host.commandRuns = true; };
  const Act answerIn2s = [](auto& b) {
    b.loop.advance(2000);
    b.host.commandRuns = false;
  };
  const struct {
    const char* what;
    Clips clips;
    int before;
    std::vector<Act> acts;
    int after;
    const char* shown;
    bool around = false;
    Integer delay = 0;
  } rows[] = {{"a mark is held", films, 9000, {mark}, 5000, "1 paused"},
              {"a box is open", films, 9000, {box}, 2000, "1 playing"},
              {"a box over the end is answered", films, 9000, {box, answerIn2s}, 3000, "2 playing"},
              {"a disc, stopped and on by its key", discs, 2000, {stop, play}, 9500, "2 playing"},
              {"a disc, stopped and on by the picture", discs, 2000, {stop, picture}, 9500, "2 playing"},
              {"a page behind a film", {"a.avi", "b.html"}, 12000, {}, 0, "2, empty"},
              {"a page behind a graph", {"a.wmv", "b.html"}, 12000, {}, 0, "2, empty"},
              {"a page behind a disc", {"a.vob", "b.html"}, 12000, {}, 0, "2, empty"},
              {"a graph that stands", graphs, 5000, {picture, toItsEnd}, 2000, "1 paused"},
              {"a graph that stands, around", graphs, 5000, {picture, toItsEnd}, 2000, "2 playing", true},
              // The list has gone on to the clip that waits.
              {"picture", films, 11000, {picture}, 3000, "2 playing", false, 20},
              {"stop", films, 11000, {stop}, 3000, "2 paused, waits", false, 20},
              {"stop, play", films, 11000, {stop, play}, 3000, "2 playing", false, 20},
              {"stop, picture", films, 11000, {stop, picture}, 3000, "2 playing", false, 20},
              {"own rate", films, 11000, {ownRate}, 3000, "2 playing", false, 20}};
  for (const auto& row : rows) {
    TransportBench b;
    for (const auto* name : row.clips) b.add(name).IsHTML(std::string_view(name).ends_with(".html"));
    b.settings.user.LoopCol = row.around;
    b.settings.state.InterClipDelay = row.delay;
    b.transport.PreviewMovie(1);
    b.loop.advance(row.before);
    for (const auto act : row.acts) act(b);
    b.loop.advance(row.after);
    auto shown = b.shown();
    if (b.mode.player.clipWaits) shown += ", waits";
    if (b.player.PlayerIsEmpty()) shown += ", empty";
    EXPECT_EQ(shown, row.shown) << row.what;
    const bool isInHand = b.mode.player.clip == b.collection.icurMov;
    EXPECT_TRUE(b.player.PlayerIsEmpty() || isInHand != b.mode.player.clipWaits) << row.what;
  }
}

// An end on its way home, and what happens ahead of it.
TEST(Transport, AnEndIsOnlyThatOfWhatPlaysUntilThen) {
  for (const auto* kind : {".avi", ".wmv"}) {
    for (const auto& [what, act, shown] :
         Rows<const char*, std::function<void(TransportBench&)>, const char*>{
             {"nothing", [](auto&) {}, "2 playing"},
             {"another clip", [](auto& b) { b.transport.PreviewMovie(3); }, "3 playing"},
             {"the same once more", [](auto& b) { b.transport.PreviewMovie(1); }, "1 playing"},
             {"sent back", [](auto& b) { b.player.PlayerSetCurrentPosition(1), b.player.GlobalMediaPlay(); },
              "1 playing"}}) {
      TransportBench b;
      for (const auto* name : {"a", "b", "c", "d"}) b.add(std::string(name) + kind);
      b.settings.user.PlayWithoutGaps = true;
      b.transport.PreviewMovie(1);
      b.loop.advance(5000);
      b.player.UsingCorona() ? b.graphs.graph->comeToEnd() : b.control.comeToEnd();
      act(b);
      b.loop.advance(5000);
      EXPECT_EQ(b.shown(), shown) << what << kind;
    }
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

}  // namespace
}  // namespace kvo
