// How clips come into the player, each on its surface.
#include "playback/transport_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TransportBench;

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
    EXPECT_EQ(b.mode.player.IsPlaying, row.plays) << row.name;
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

}  // namespace
}  // namespace kvo
