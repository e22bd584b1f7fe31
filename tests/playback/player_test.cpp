#include "playback/captions.h"
#include "playback/kvo_player_eng_ocx.h"
#include "playback/player_bench.h"
#include "playback/routing.h"
#include "playback/stream_info.h"
#include "support/held_player.h"
#include "support/memory_files.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::FakeFile;
using test::PlayerBench;
using test::Rows;

const FakeFile kSoundFile{.duration = 12.4, .rate = 0};

// "4.5 4.5 "
std::string sought(const std::vector<double>& seeks) {
  std::string line;
  for (const double to : seeks) line += ShortText(std::round(to * 1e9) / 1e9) + " ";
  return line;
}

TEST(Player, AClipIsOpenedByItsEngineAndItsRecordTellsOfIt) {
  for (const auto& [name, file, isCorona, expected] : Rows<const char*, FakeFile, bool, const char*>{
           {"a.mp4", {}, false, "other engine, VFW, 250 frames"},
           {"a.wmv", {}, false, "graph of 25, Corona, VFW, 250 frames"},
           {"a.wmv", {.duration = 4, .rate = 0}, false, "graph of 1, Corona, VFW, 4 frames"},
           {"a.wmv", {.graphOpens = false}, false, "other engine, VFW, 250 frames"},
           {"a.wmv", {.opens = false}, false, "empty, VFW, 250 frames"},
           {"a.avi", {}, true, "graph of 25, Corona, 250 frames"},
           {"a.avi", {.graphOpens = false}, true, "other engine, Corona, 250 frames"},
           {"a.vob", {.rate = 29.97}, false, "graph of 25, Corona, 250 frames"},
           {"a.wma", kSoundFile, false, "graph of 1, Corona, VFW, 12.4 frames"},
       }) {
    PlayerBench b;
    auto& clip = b.add(name, file);
    clip.IsCorona(isCorona);
    clip.IsVFWCompat(true);
    clip.FrameRate(25);
    clip.DurationFrames(Value(250));
    b.open(1);
    const auto what = std::string(name) + (file.graphOpens ? "" : " refused");
    const bool graph = b.player.UsingCorona();
    const bool empty = b.player.PlayerIsEmpty();
    std::string becomes = empty ? "empty" : "other engine";
    if (graph) becomes = "graph of " + ShortText(b.player.PlayerCoronaGetFrameRate(1));
    if (clip.IsCorona()) becomes += ", Corona";
    if (clip.IsVFWCompat()) becomes += ", VFW";
    EXPECT_EQ(becomes + ", " + clip.DurationFrames().text() + " frames", expected) << what;
    EXPECT_EQ(b.player.PlayerGetFileName(), empty ? "" : "/v/" + std::string(name)) << what;
    EXPECT_EQ(b.mode.player.path, b.player.PlayerGetFileName()) << what;
    b.player.PlayerClear();
    EXPECT_TRUE(b.player.PlayerIsEmpty() && b.graphs.graph == nullptr) << what;
    EXPECT_EQ(b.player.PlayerGetFileName() + b.mode.player.path, "") << what;
  }
  PlayerBench b;
  b.add("a.wmv");
  b.streams.all.clear();
  b.open(1);
  EXPECT_TRUE(b.player.UsingCorona()) << "a file of which nobody knows what is in it";
}

TEST(Player, ASeekOfAGraphLandsOnThePictureOrAheadOfTheEnd) {
  using enum DisplayMode;
  constexpr double kNtsc = 30000.0 / 1001;
  // What the graph, which was running, is asked for, and whether it stands afterwards.
  for (const auto& [name, rate, mode, parked, position, expected] :
       Rows<const char*, double, DisplayMode, bool, double, const char*>{
           {"a.wmv", 25, Seconds, false, 0, "0 "},
           {"a.wmv", 25, Seconds, false, 4.5, "4.5 4.5 stands"},
           {"a.wmv", 25, Seconds, true, 4.5, "4.5 "},
           {"a.wmv", 25, Seconds, false, 9.99, "9.99 9.99 stands"},
           {"a.wmv", 25, Seconds, false, 9.995, "9.99 "},
           {"a.wmv", 25, Seconds, true, 50, "9.99 "},
           {"a.wmv", 25, Frames, false, 0, "0 "},
           {"a.wmv", 25, Frames, false, 50, "1.99 2 stands"},
           {"a.wmv", 25, Frames, true, 50, "1.99 "},
           {"a.wmv", 25, Frames, false, 250, "9.99 10 stands"},
           {"a.wmv", 25, Frames, false, 251, "9.99 "},
           {"a.wmv", kNtsc, Frames, false, 30, "0.991 1.001 stands"},
           {"a.wma", 0, Seconds, false, 3, "3 "},
           {"a.wma", 0, Frames, false, 3, "2.99 "},
           {"a.wma", 0, Frames, false, 11, "9.99 "}}) {
    PlayerBench b;
    b.load(name, {.rate = rate});
    b.player.GlobalMediaPlay();
    b.player.PlayerSetDisplayMode(mode);
    if (parked) b.player.SendPlayerFarLeft();
    b.player.PlayerSetCurrentPosition(position);
    const bool stands = b.player.PlayerGetPlayState() != EngineState::Running;
    EXPECT_EQ(sought(b.graphs.graph->seeks) + (stands ? "stands" : ""), expected)
        << name << " to " << position;
  }
}

TEST(Player, ASeekOfTheOtherEngineTriesAgainAheadOfAnEndThatItRefuses) {
  // The furthest place that the engine goes to.
  for (const auto& [furthest, position, seeks] : Rows<double, double, const char*>{{-1, 4, "4 4 "},
                                                                                   {-1, 10, "10 "},
                                                                                   {9.9, 10, "10 9.95 9.9 "},
                                                                                   {9.95, 10, "10 9.95 "},
                                                                                   {-1, 11, "11 11 "}}) {
    PlayerBench b;
    b.load("a.wav", {.rate = 0, .furthest = furthest});
    b.player.PlayerSetCurrentPosition(position);
    EXPECT_EQ(sought(b.control.seeks), seeks) << furthest;
  }
  PlayerBench b;
  b.load("a.mp4");
  b.player.PlayerSetDisplayMode(DisplayMode::Frames);
  b.player.PlayerSetCurrentPosition(250);
  EXPECT_EQ(sought(b.control.seeks), "10 ") << "the last picture is the end";
  EXPECT_EQ(b.player.PlayerGetCurrentPosition(), 250);
}

TEST(Player, AFrameIsTheOneThatWasSoughtOnBothEngines) {
  for (const char* name : {"a.mp4", "a.wmv"}) {
    for (const double rate : {25.0, 15.0, 12.5, 24000.0 / 1001, 30000.0 / 1001, 60000.0 / 1001, 7.4321}) {
      PlayerBench b;
      b.load(name, {.duration = 7200, .rate = rate});
      b.player.PlayerSetDisplayMode(DisplayMode::Frames);
      for (const double frame : {1.0, 2.0, 3.0, 29.0, 1000.0, 9999.0, 50000.0}) {
        b.player.PlayerSetCurrentPosition(frame);
        EXPECT_EQ(b.player.PlayerGetCurrentPosition(), frame) << name << " at " << rate;
        b.player.PlayerStep(1);
        EXPECT_EQ(b.player.PlayerGetCurrentPosition(), frame + 1) << name << " at " << rate;
      }
      EXPECT_EQ(b.player.PlayerGetDuration(), std::round(7200 * rate)) << name;
    }
  }
}

TEST(Player, PicturesOfUnevenLengthsHaveTheirNumbersByTheirTimes) {
  const std::vector<double> begins = {0, 0.04, 0.5, 0.52, 4, 9.9};
  for (const char* name : {"a.mp4", "a.wmv"}) {
    PlayerBench b;
    b.counts.all["/v/" + std::string(name)] = begins;
    b.load(name, {.rate = 1000});
    for (const auto& [seconds, begin, frame] : Rows<double, double, double>{
             {0, 0, 0}, {0.499, 0.5, 2}, {0.51, 0.5, 2}, {3.9, 0.52, 3}, {4, 4, 4}, {9.95, 9.9, 5}}) {
      b.player.PlayerSetDisplayMode(DisplayMode::Seconds);
      b.player.PlayerSetCurrentPosition(seconds);
      EXPECT_EQ(b.player.PlayerGetCurrentPosition(), begin) << name << " " << seconds;
      b.player.PlayerSetDisplayMode(DisplayMode::Frames);
      EXPECT_EQ(b.player.PlayerGetCurrentPosition(), frame) << name << " " << seconds;
      b.player.PlayerSetCurrentPosition(frame);
      EXPECT_EQ(b.player.PlayerGetCurrentPosition(), frame) << name;
    }
    EXPECT_EQ(b.player.PlayerGetDuration(), 6) << name;
    b.player.PlayerSetSelectionEnd(4);
    EXPECT_TRUE(!b.player.UsingCorona() || b.graphs.graph->stopTime() == 4) << name;
  }
}

TEST(Player, PlayGoesOnOrBeginsAgainFromMarkIn) {
  // From a place in or behind a section that begins at 2, and 400 ms later.
  const Rows<std::string, double, double, double> rows{
      {"a.wmv", 8, 5, 5.4}, {"a.wmv", 8, 8, 2.4}, {"a.wmv", 10, 10, 2.4}, {"a.mp4", 8, 5, 5.4},
      {"a.mp4", 8, 8, 2.4}, {"a.mp4", 8, 1, 1.4}, {"a.wav", 8, 1, 2.4},   {"a.wav", 8, 9, 2.4}};
  for (const auto& [name, end, from, after] : rows) {
    PlayerBench b;
    b.load(name, {.rate = name == "a.wav" ? 0.0 : 25.0}).LoopStart(Value(2));
    b.player.PlayerSetSelectionStart(2);
    b.player.PlayerSetSelectionEnd(end);
    const bool graph = b.player.UsingCorona();
    graph ? b.graphs.graph->seek(from) : b.control.seek(from);
    b.mode.player.IsPaused = true;
    b.player.GlobalMediaPlay();
    EXPECT_TRUE(b.mode.player.IsPlaying && !b.mode.player.IsPaused) << name;
    EXPECT_EQ(b.keys.group == PlayGroup::Playing, graph) << name;
    b.loop.advance(400);
    EXPECT_DOUBLE_EQ(b.player.PlayerGetCurrentPosition(), after) << name << " from " << from;
    b.player.PlayerPause();
    EXPECT_FALSE(b.mode.player.IsPlaying) << name;
  }
  PlayerBench b;
  b.player.GlobalMediaPlay();
  EXPECT_FALSE(b.mode.player.IsPlaying) << "there is nothing to play";
}

TEST(Player, ADiscHasOneRateAndSizeAndIsNeverEmpty) {
  PlayerBench b;
  auto& clip = b.load("VTS_01_1.VOB", {.duration = 60, .rate = 29.97, .width = 352, .height = 240});
  clip.Playspeed(15);
  EXPECT_EQ(std::pair(b.player.PlayerGetSourceWidth(), b.player.PlayerGetSourceHeight()),
            std::pair(720, 576));
  b.player.PlayerSetDisplayMode(DisplayMode::Frames);
  EXPECT_EQ(b.player.PlayerGetDuration(), 1500);
  EXPECT_DOUBLE_EQ(b.player.PlayerGetRate(), 1.5);
  b.player.PlayerSetDisplaySize(0);
  EXPECT_EQ(b.mode.player.place.width, 6800);
  b.player.CoronaClear();
}

TEST(Player, WhatIsSetForTheSoundHoldsForLaterGraphs) {
  PlayerBench b;
  b.player.PlayerSetVolume(-600);
  b.player.PlayerSetBalance(300);
  b.player.PlayerMuteON();
  b.load("a.wmv");
  const auto& graph = *b.graphs.graph;
  EXPECT_EQ(std::tuple(graph.mute, graph.volume, graph.balance), std::tuple(true, -600, 300));
  EXPECT_EQ(b.control.volume, -600);
}

TEST(Player, TheLastLoadCountsWhenOpeningLetsAnotherIn) {
  PlayerBench b;
  b.add("slow.wmv");
  b.add("b.mp4");
  b.graphs.whileOpening = [&] { b.open(2); };
  b.open(1);
  EXPECT_EQ(b.player.PlayerGetFileName(), "/v/b.mp4");
  EXPECT_EQ(b.graphs.graph, nullptr);
  b.graphs.whileOpening = [&] { b.collection.MovieList.arrange({2, 1}); };
  b.open(1);
  EXPECT_EQ(b.mode.player.clip, 2) << "the clip keeps its record in another order of the list";
  EXPECT_TRUE(b.collection.MovieList[2].IsCorona() && !b.collection.MovieList[1].IsCorona());
  b.collection.MovieList.arrange({2, 1});
  b.graphs.whileOpening = [&] { b.player.Med_previewClear(); };
  b.open(1);
  EXPECT_TRUE(b.player.PlayerIsEmpty() && b.graphs.graph == nullptr && b.mode.player.place.parked());
}

TEST(Player, TheNextClipIsGotReadyByItsEngineAtMarkIn) {
  PlayerBench b;
  b.add("a.mp4").LoopStart(Value(2.5));
  b.add("b.wmv");
  b.add("photo.jpg").IsStill(true);
  b.add("track01.cda");
  for (int number = 0; number <= 5; ++number) b.player.openAhead(number);
  using Ahead = std::vector<std::pair<std::string, double>>;
  const std::pair<std::string, double> none;  // what is no file that plays lets go of the one before
  EXPECT_EQ(b.control.openedAhead, (Ahead{none, {"/v/a.mp4", 2.5}, none, none, none}));
  EXPECT_EQ(b.graphs.openedAhead, (Ahead{none, {"/v/b.wmv", 0}, none, none, none}));
  EXPECT_EQ(b.probe.asked, 0) << "nobody waits for it";
}

struct PreviewBench {
  test::VirtualLoop loop;
  test::FakeFiles files{{"/m.avi", {.duration = 10.004, .width = 320, .height = 180}}};
  test::FakeFilterGraphs graphs{loop, files};
  PreviewBoxState box;
  KVOPlayerEngOcX player{box, graphs, loop};
  double position = -1;
  double duration = 0;
  int finished = 0;

  PreviewBench() {
    player.VideoTime = [this](double at, double length) {
      position = at;
      duration = length;
    };
    player.VideoFinished = [this] { ++finished; };
    player.SetFileToPlay("/m.avi");
  }
};

TEST(KVOPlayerEngOcX, PlaysAFileToItsEndAndTellsTheTime) {
  PreviewBench b;
  b.player.SetRate(200);
  b.player.SetVolume(-300);
  b.player.PlayVideo();
  EXPECT_EQ(b.box.picture, (PreviewPlace{0, 30, 320, 180}));
  EXPECT_EQ(b.graphs.graph->volume, -300);
  b.loop.advance(1000);
  EXPECT_DOUBLE_EQ(b.position, 2);
  EXPECT_DOUBLE_EQ(b.duration, 10);
  b.player.StopVideo();
  b.loop.advance(5000);
  b.player.PlayVideo();
  b.loop.advance(100);
  EXPECT_DOUBLE_EQ(b.position, 2.2);
  b.loop.advance(10000);
  EXPECT_EQ(b.finished, 1);
  EXPECT_EQ(b.graphs.made, 1);
  b.player.PlayVideo();
  b.loop.advance(100);
  EXPECT_DOUBLE_EQ(b.position, 0.2) << "from the start again";
}

TEST(Routing, NameRecordAndSettingsChooseTheEngine) {
  using enum EngineRoute;
  const char* none = "NOTCORONA";
  for (const auto& [system, path, IsCorona, MPEGRoutingVMR, probed, routing, asked] :
       Rows<const char*, const char*, bool, bool, const char*, Routing, int>{
           {"Linux", "/v/a.mp4", false, true, "WMV9", {NotForced, none, false}, 0},
           {"Linux", "/v/a.avi", false, true, "WMV9", {NotForced, none, false}, 0},
           {"Linux", "/v/a.avi", true, false, "WMV9", {AviByCorona, "WMV9", true}, 1},
           {"Linux", "/v/a.avi", true, false, "", {AviByCorona, "Unknown", true}, 1},
           {"Linux", "/v/a.avi", true, false, "Indeo", {AviByCorona, "Indeo", false}, 1},
           {"Linux", "/v/a.mp4", true, false, "WMV9", {NotForced, none, false}, 0},
           {"Linux", "/v/a.mpg", false, false, "", {NotForced, none, false}, 0},
           {"Linux", "/v/a.mpeg", false, true, "", {MpegOrDvd, "MPEG", true}, 0},
           {"Linux", "/v/a.M2P", false, true, "", {MpegOrDvd, "MPEG", true}, 0},
           {"Linux", "/v/VTS_01_1.VOB", false, false, "", {MpegOrDvd, "DVD", true}, 0},
           {"Linux", "/v/video_ts.ifo", false, false, "", {MpegOrDvd, "DVD", true}, 0},
           {"Linux", "/v/a.wmv", false, false, "", {NotForced, "Unknown", true}, 1},
           {"Linux", "/v/a.wmv", false, false, "WMV7(Buffrd)", {NotForced, "WMV7 - BuffReRoute", true}, 1},
           {"Linux", "/v/a.wmv", false, false, "MPEG-4", {NotForced, "MPEG-4", false}, 1},
           {"Linux", "/v/a.wm", false, false, "WMV8", {NotForced, "WMV8", true}, 1},
           {"Linux", "/v/a.au", false, false, "", {NotForced, "Unknown", true}, 1},
           {"Linux", "/v/a.aiff", false, false, "", {NotForced, none, false}, 0},
           {"Linux", "/v/wmv", false, false, "", {NotForced, "Unknown", true}, 1},
           {"98", "/v/a.wmv", false, false, "WMV9", {NotForced, "", false}, 0},
           {"NT4", "/v/a.vob", false, true, "", {NotForced, "", false}, 0},
           {"Linux", "http://a.b/c.wmv", false, false, "WMV9", {NotForced, "", false}, 0},
       }) {
    int times = 0;
    const auto found = routeOf({system, path, IsCorona, MPEGRoutingVMR}, [&times, &word = probed] {
      ++times;
      return std::string(word);
    });
    EXPECT_EQ(found, routing) << system << " " << path << ": " << found.codecWord;
    EXPECT_EQ(times, asked) << path;
  }
}

struct CaptionsBench : test::PlayerBench {
  struct {
    DisplayModeState& mode;
  } window{mode};
  test::MemoryFiles texts;
  test::HeldPlayer held{*this};
};

TEST(Captions, SamiGoesFirstAndWithoutTextsTheyStayOff) {
  CaptionsBench b;
  b.held.PlayerSetFilename("/v/film.one.avi", 1);
  applyCaptions(b.held, b.texts, true);
  EXPECT_FALSE(b.held.captions) << "there is nothing to show";
  b.held.tracks = {{MediaTrack::Kind::Subtitles, 1, "", "", false}};
  applyCaptions(b.held, b.texts, true);
  EXPECT_TRUE(b.held.captions) << "what the file brings";
  for (const auto& [file, found] :
       {std::pair{"film.srt", ""}, std::pair{"film.one.sub", "film.one.sub"},
        std::pair{"film.one.srt", "film.one.srt"}, std::pair{"film.one.smi", "film.one.smi"}}) {
    b.texts.all[std::string("/v/") + file] = "x";
    const auto beside = captionFileBeside(b.texts, "/v/film.one.avi");
    EXPECT_EQ(beside, *found == '\0' ? "" : std::string("/v/") + found);
  }
  applyCaptions(b.held, b.texts, true);
  EXPECT_EQ(b.held.captionFile, "/v/film.one.smi");
  applyCaptions(b.held, b.texts, false);
  EXPECT_FALSE(b.held.captions);
  EXPECT_EQ(captionFileBeside(b.texts, "http://film.one"), "");
}

TEST(StreamInfo, TellsWhatTheStreamTellsAndFollowsIt) {
  test::PlayerBench b;
  StreamInfoState state;
  StreamInfo info(state, b.player, b.loop);
  info.Lbl_StreamInfo_Click();
  EXPECT_FALSE(state.visible) << "nothing plays";
  b.load("a.mp4", {.tracks = {{MediaTrack::Kind::Sound, 1, "", "en", true},
                              {MediaTrack::Kind::Subtitles, 1, "Signs", "", false}}});
  b.control.details = {.description = "News",
                       .others = {{"icy-br", "128"}},
                       .codecs = {{"Video", "h264"}},
                       .receivedRate = 96000.4,
                       .lostPictures = 2};
  info.Lbl_StreamInfo_Click();
  ASSERT_TRUE(state.visible && state.properties.size() == 9);
  EXPECT_EQ(state.properties.front(), (StreamFactLine{"Description", "News"}));
  EXPECT_EQ(state.properties.back(), (StreamFactLine{"Creation Date", "-"}));
  EXPECT_EQ(state.codecs, (std::vector<StreamFactLine>{{"Video", "h264"}}));
  EXPECT_EQ(state.connection[2], (StreamFactLine{"Received", "96000 bps"}));
  EXPECT_EQ(state.choices,
            (std::vector<StreamChoice>{{"Sound 1 (en)", true}, {"Subtitles 1 - Signs", false}}));
  info.more();
  EXPECT_EQ(state.properties.back(), (StreamFactLine{"icy-br", "128"}));
  for (const bool chosen : {true, false}) {
    info.choose(1);
    EXPECT_EQ(state.choices[1].chosen, chosen);
  }
  b.control.details.lostPictures = 7;
  b.loop.advance(1000);
  EXPECT_EQ(state.connection.back().value, "7");
  b.player.Med_previewClear();
  b.loop.advance(1000);
  EXPECT_EQ(state, StreamInfoState()) << "with the stream its window goes";
}

}  // namespace
}  // namespace kvo
