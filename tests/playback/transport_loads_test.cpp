// How clips come into the player, from files and over the net.
#include "playback/transport_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Rows;
using test::TransportBench;

TEST(Transport, WhatTheUserDoesWhileAClipIsOpenedStands) {
  for (const auto& [act, number] : Rows<std::function<void(Transport&)>, int>{
           {[](auto& t) { t.PreviewMovie(3); }, 3},  // sound waits for its key
           {[](auto& t) { t.Image8_Click(); }, 2}}) {
    TransportBench b;
    for (const auto* name : {"a.avi", "b.wmv", "c.wav"}) b.add(name);
    b.transport.PreviewMovie(1);
    b.loop.advance(9000);
    b.graphs.whileOpening = [&b, &act = act] { act(b.transport); };
    b.loop.advance(3000);
    EXPECT_EQ(b.collection.icurMov, number);
    EXPECT_NE(b.player.PlayerGetPlayState(), EngineState::Running) << number;
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
  using Kind = void (*)(Movie&);
  const Kind film = [](Movie&) {};
  const std::string frames = "Right-Click to position to start or Click or Hold Down to rewind 5 frames";
  for (const auto& [name, kind, surface, rewindTip] : Rows<std::string, Kind, const char*, std::string>{
           {"a.avi", film, "plays ", frames},
           {"a.mov", film, "plays ", frames},
           {"a.vob", film, "plays ",
            "Right-Click for Previous Chapter or Click or Hold Down to rewind 5 secs"},
           {"a.wav", film, "", frames},
           {"a.jpg", [](Movie& c) { c.IsStill(true); }, "still ", "Click for Previous Clip"},
           {"a.cda", film, "", "Right-Click for Previous Track or Click or Hold Down to rewind 5 secs"},
           {"a.mov", [](Movie& c) { c.IsTrueQT4(true); }, "/v/a.mov is shown by another program ", ""},
           {"a.rm", [](Movie& c) { c.IsTrueRM(true); }, "", ""},
           {"a.html", [](Movie& c) { c.IsHTML(true); }, "page ", ""},
           {"gone.avi", film, "", frames}}) {
    TransportBench b;
    b.add("before.avi");
    kind(b.add(name, name == "gone.avi" ? 0 : 10));
    b.transport.PreviewMovie(1);
    b.transport.PreviewMovie(2);
    std::string seen;
    if (b.mode.still.Img_Still.visible) seen += "still ";
    for (const auto& file : b.desktop.files) seen += file + " is shown by another program ";
    if (!b.pages.shown.empty()) seen += "page ";
    if (b.player.PlayerGetPlayState() == EngineState::Running) seen += "plays ";
    EXPECT_EQ(seen, surface) << name;
    EXPECT_EQ(b.mode.player.IsPlaying, seen == "plays ") << name;
    EXPECT_EQ(b.state.lbl_Novid.text == "a.mov is shown by another program", !b.desktop.files.empty());
    EXPECT_EQ(b.state.tips.rewind, rewindTip) << name;
    EXPECT_TRUE(b.timers.Timer6.enabled()) << name;
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
  EXPECT_EQ(b.host.asked, "loaded1 details1 loaded2 details2 ");
}

TEST(Transport, AFileThatCannotBePlayedIsToldInThePicturesPlace) {
  TransportBench b;
  b.add("gone.avi", 0);
  b.add("broken.avi", 0);
  b.add("a.avi");
  b.files.all["/v/broken.avi"] = "x";
  const std::pair<int, std::string> rows[] = {
      {1, "gone.avi is not there any more"}, {2, "broken.avi cannot be played\r\nit is damaged"}, {3, ""}};
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
  EXPECT_EQ(b.state.lbl_Novid.text, "Connecting...");
  const bool lit = b.state.lbl_Novid.lit;
  b.loop.advance(500);
  EXPECT_NE(b.state.lbl_Novid.lit, lit);
  b.control.opens(EngineOpening::Buffering, 40);
  b.loop.advance(600);
  EXPECT_EQ(b.state.lbl_Novid.text, "Buffering Progress = 40");
  b.control.bits = 128000;
  b.collection.MovieList[1].MovieHeight(0);
  b.control.opens(EngineOpening::Open);
  b.loop.advance(1000);
  EXPECT_EQ(std::pair(b.mode.player.sourceWidth, b.collection.MovieList[1].MovieHeight()),
            (std::pair<int, Integer>(640, 480)));
  EXPECT_EQ(b.state.lbl_Novid.text, "");
  EXPECT_TRUE(b.host.listShown && b.state.stream.Lbl_StreamInfo);
  EXPECT_EQ(b.state.stream.bandwidth, "128000 bps");
  b.control.opens(EngineOpening::Failed);  // in the middle
  b.loop.advance(1000);
  ASSERT_EQ(b.boxes.shown.size(), 1U);
  EXPECT_TRUE(b.player.PlayerIsEmpty() && !b.state.stream.Lbl_StreamInfo);
}

TEST(Transport, AStreamThatDoesNotComeIsTold) {
  const std::string told =
      "The Clip could not be played.\r\nPossible causes are either not being connected to the Internet\r\n"
      "or a slow internet connection \\ host site. \r\nAdditionally, the Clip may no longer exist on the "
      "server.";
  using Act = void (*)(TransportBench&);
  for (const auto& [what, happens, milliseconds, label] : Rows<const char*, Act, int, std::string>{
           {"never answers", [](auto&) {}, 21000, ""},
           {"fails", [](auto& b) { b.control.opens(EngineOpening::Failed); }, 100, ""},
           {"stuck", [](auto& b) { b.control.opens(EngineOpening::Buffering, 7); }, 21000, ""},
           {"stopped", [](auto& b) { b.transport.Image8_Click(); }, 100, "Connection aborted"},
           {"a click on the picture", [](auto& b) { b.transport.pictureClicked(PictureButton::Left); }, 100,
            "Connection aborted"},
           {"paused", [](auto& b) { b.transport.Lbl_PauseGraphic_Click(); }, 100, "Connection aborted"}}) {
    TransportBench b;
    b.add("http://radio.example/live", 30);
    b.add("b.avi");
    b.transport.PreviewMovie(1);
    happens(b);
    b.loop.advance(milliseconds);
    EXPECT_EQ(b.state.lbl_Novid.text, label) << what;
    EXPECT_EQ(b.boxes.shown.size(), label.empty() ? 1U : 0U) << what;
    for (const auto& box : b.boxes.shown) EXPECT_EQ(box.text, told);
    EXPECT_TRUE(b.host.listShown && b.player.PlayerIsEmpty()) << what;
    EXPECT_EQ(b.host.windowCaption, "http://radio.example/live") << what << ": the clip's name again";
    b.mode.player.IsPaused = false;
    b.transport.PreviewMovie(2);
    EXPECT_EQ(b.shown(), "2 playing") << what;
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
    b.transport.PreviewMovie(1);
    ASSERT_EQ(b.boxes.shown.size(), 1U);
    EXPECT_EQ(b.boxes.shown.front().caption, "KVO - No Net Connection");
    EXPECT_EQ(b.player.PlayerIsEmpty(), !yes);
    EXPECT_EQ(b.host.listShown, !yes);
  }
}

}  // namespace
}  // namespace kvo
