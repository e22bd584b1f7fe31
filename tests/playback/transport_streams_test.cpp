// What comes over the net.
#include "playback/transport_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TransportBench;

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

TEST(Transport, AFileThatTellsOfStreamsPlaysTheFirstThatComes) {
  const std::string list =
      "<asx><ref href=\"http://h/silent\"/><ref href=\"http://h/fails\"/><ref href=\"http://h/live\"/></asx>";
  for (const auto* name : {"list.asx", "http://h/list.asx"}) {
    TransportBench b;
    b.add(name, 0);
    b.files.all["/v/list.asx"] = list;
    b.http.texts.emplace("http://h/list.asx", list);
    for (const auto* address : {"http://h/silent", "http://h/fails", "http://h/live"})
      b.media[address] = {.duration = 30};
    b.transport.PreviewMovie(1);
    b.loop.advance(21000);
    EXPECT_EQ(b.player.PlayerGetFileName(), "http://h/fails") << name << ": the one ahead did not come";
    b.control.opens(EngineOpening::Failed);
    b.loop.advance(200);
    b.control.opens(EngineOpening::Open);
    b.loop.advance(200);
    EXPECT_EQ(b.player.PlayerGetFileName(), "http://h/live") << name;
    EXPECT_EQ(b.shown(), "1 playing") << name;
    EXPECT_TRUE(b.boxes.shown.empty() && b.state.stream.Lbl_StreamInfo) << name;
  }
  TransportBench b;  // a server that does not answer, and a user who does not wait
  b.add("http://h/list.asx", 0);
  b.transport.PreviewMovie(1);
  EXPECT_EQ(b.state.lbl_Novid.text, "Locating Server....");
  b.transport.Image8_Click();
  b.loop.advance(100);
  EXPECT_EQ(b.state.lbl_Novid.text, "Connection aborted");
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
