#include "playback/kvo_player_eng_ocx.h"
#include "playback/player_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::FakeFile;
using test::PlayerBench;
using Seeks = std::vector<double>;

const FakeFile kSoundFile{.duration = 12.4, .rate = 0};

void expectSeeks(const Seeks& seeks, const Seeks& wanted, const std::string& row) {
  ASSERT_EQ(seeks.size(), wanted.size()) << row;
  for (std::size_t i = 0; i < seeks.size(); ++i) EXPECT_NEAR(seeks[i], wanted[i], 1e-9) << row << " " << i;
}

TEST(Player, AClipIsOpenedByItsEngineAndItsRecordTellsOfIt) {
  const struct {
    const char* name;
    FakeFile file;
    bool isCorona, onGraph, empty;
    bool isCoronaThen;
    double rate;
    const char* frames;
  } rows[] = {
      {"a.mp4", {}, false, false, false, false, 25, "250"},
      {"a.wmv", {}, false, true, false, true, 25, "250"},
      {"a.wmv", {.duration = 4, .rate = 0}, false, true, false, true, 1, "4"},
      {"a.wmv", {.graphOpens = false}, false, false, false, false, 25, "250"},
      {"a.wmv", {.opens = false}, false, false, true, false, 25, "250"},
      {"a.avi", {}, true, true, false, true, 25, "250"},
      {"a.avi", {.graphOpens = false}, true, false, false, true, 25, "250"},
      {"a.vob", {.rate = 29.97}, false, true, false, true, 25, "250"},
      {"a.wma", kSoundFile, false, true, false, true, 1, "12.4"},
  };
  for (const auto& row : rows) {
    PlayerBench b;
    auto& clip = b.add(row.name, row.file);
    clip.IsCorona(row.isCorona);
    clip.IsVFWCompat(true);
    clip.FrameRate(25);
    clip.DurationFrames(Value(250));
    b.open(1);
    const auto what = std::string(row.name) + (row.file.graphOpens ? "" : " refused");
    EXPECT_EQ(b.player.UsingCorona(), row.onGraph) << what;
    EXPECT_EQ(b.player.PlayerIsEmpty(), row.empty) << what;
    EXPECT_EQ(b.player.PlayerGetFileName(), row.empty ? "" : "/v/" + std::string(row.name)) << what;
    EXPECT_EQ(b.mode.player.path, b.player.PlayerGetFileName()) << what;
    EXPECT_EQ(clip.IsCorona(), row.isCoronaThen) << what;
    EXPECT_EQ(clip.IsVFWCompat(), !row.isCorona && std::string(row.name) != "a.vob") << what;
    EXPECT_EQ(clip.DurationFrames().text(), row.frames) << what;
    if (row.onGraph) {
      EXPECT_DOUBLE_EQ(b.player.PlayerCoronaGetFrameRate(1), row.rate) << what;
      EXPECT_EQ(b.control.fileName(), "") << what;
    }
    b.player.PlayerClear();
    EXPECT_TRUE(b.player.PlayerIsEmpty() && b.graphs.graph == nullptr && b.mode.player.path.empty()) << what;
  }
}

TEST(Player, AFileThatTellsNoRateHasFifteenPicturesASecondAndOneWithoutStreamsIsToldOf) {
  PlayerBench b;
  b.add("a.wmv");
  b.streams.all["/v/a.wmv"].frameRate = 0;
  b.open(1);
  EXPECT_EQ(b.collection.MovieList[1].FrameRate(), 15);
  EXPECT_TRUE(b.boxes.shown.empty());
  b.streams.all["/v/a.wmv"] = {};
  b.open(1);
  ASSERT_EQ(b.boxes.shown.size(), 1u);
  EXPECT_EQ(b.boxes.shown[0].text, "This WMV stream contains no video - Error - Malformed Stream");
  EXPECT_EQ(b.player.PlayerCoronaGetFrameRate(0), 15);
}

TEST(Player, TheProbeIsAskedOnceForAClip) {
  PlayerBench b;
  b.probe.told = "Audio Stream proper WMA V9 rate: 64kbps Video Stream proper WMV V9 rate: 300kbps";
  const auto& clip = b.load("a.wmv");
  b.open(1);
  EXPECT_EQ(b.probe.asked, 1);
  EXPECT_EQ(clip.VideoCodec() + clip.VideoBitRate() + clip.AudioCodec() + clip.AudioBitRate(),
            "WMV9300kWMA V964k");
  EXPECT_TRUE(b.player.UsingCorona());
}

TEST(Player, AnotherClipThatComesWhileOneIsProbedStays) {
  PlayerBench b;
  b.add("a.wmv");
  b.add("b.mp4");
  b.probe.meanwhile = [&] { b.open(2); };
  b.open(1);
  EXPECT_EQ(b.player.PlayerGetFileName(), "/v/b.mp4");
  EXPECT_FALSE(b.player.UsingCorona());
  b.collection.MovieList[1].VideoCodec("");
  b.probe.meanwhile = [&] {
    b.player.Med_previewClear();
    b.collection.MovieList.remove(1);
  };
  b.open(1);
  EXPECT_TRUE(b.player.PlayerIsEmpty());
}

TEST(Player, ASeekOfAGraphLandsOnThePictureOrAheadOfTheEnd) {
  using enum DisplayMode;
  const struct {
    const char* name;
    double duration, rate;
    DisplayMode mode;
    bool parked;
    double position;
    Seeks seeks;
    bool stands;  // afterwards, though it was running
  } rows[] = {
      {"a.wmv", 10, 25, Seconds, false, 0, {0}, false},
      {"a.wmv", 10, 25, Seconds, false, 4.5, {4.5, 4.5}, true},
      {"a.wmv", 10, 25, Seconds, true, 4.5, {4.5}, false},
      {"a.wmv", 10, 25, Seconds, false, 9.99, {9.99, 9.99}, true},
      {"a.wmv", 10, 25, Seconds, false, 9.995, {9.99}, false},
      {"a.wmv", 10, 25, Seconds, true, 50, {9.99}, false},
      {"a.wmv", 10, 25, Frames, false, 0, {0}, false},
      {"a.wmv", 10, 25, Frames, false, 50, {1.99, 2}, true},
      {"a.wmv", 10, 25, Frames, true, 50, {1.99}, false},
      {"a.wmv", 10, 25, Frames, false, 250, {9.99, 10}, true},
      {"a.wmv", 10, 25, Frames, false, 251, {9.99}, false},
      {"a.wmv",
       10,
       30000.0 / 1001,
       Frames,
       false,
       30,
       {30 * 1001 / 30000.0 - 0.01, 30 * 1001 / 30000.0},
       true},
      {"a.wma", 10, 0, Seconds, false, 3, {3}, false},
      {"a.wma", 10, 0, Frames, false, 3, {2.99}, false},
      {"a.wma", 10, 0, Frames, false, 11, {9.99}, false},
  };
  for (const auto& row : rows) {
    PlayerBench b;
    b.load(row.name, {.duration = row.duration, .rate = row.rate});
    b.player.GlobalMediaPlay();
    b.player.PlayerSetDisplayMode(row.mode);
    if (row.parked) b.player.SendPlayerFarLeft();
    b.player.PlayerSetCurrentPosition(row.position);
    const auto what = std::string(row.name) + " to " + std::to_string(row.position);
    expectSeeks(b.graphs.graph->seeks, row.seeks, what);
    EXPECT_EQ(b.player.PlayerGetPlayState() != EngineState::Running, row.stands) << what;
  }
}

TEST(Player, ASeekOfTheOtherEngineTriesAgainAheadOfAnEndThatItRefuses) {
  const struct {
    double furthest;  // that the engine goes to
    double position;
    Seeks seeks;
  } rows[] = {
      {-1, 4, {4, 4}}, {-1, 10, {10}}, {9.9, 10, {10, 9.95, 9.9}}, {9.95, 10, {10, 9.95}}, {-1, 11, {11, 11}},
  };
  for (const auto& row : rows) {
    PlayerBench b;
    b.load("a.wav", {.rate = 0, .furthest = row.furthest});
    b.player.PlayerSetCurrentPosition(row.position);
    expectSeeks(b.control.seeks, row.seeks, std::to_string(row.furthest));
  }
  PlayerBench b;
  b.load("a.mp4");
  b.player.PlayerSetDisplayMode(DisplayMode::Frames);
  b.player.PlayerSetCurrentPosition(250);
  expectSeeks(b.control.seeks, {10}, "the last picture is the end");
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
    const struct {
      double seconds, begin, frame;
    } rows[] = {{0, 0, 0}, {0.499, 0.5, 2}, {0.51, 0.5, 2}, {3.9, 0.52, 3}, {4, 4, 4}, {9.95, 9.9, 5}};
    for (const auto& row : rows) {
      b.player.PlayerSetDisplayMode(DisplayMode::Seconds);
      b.player.PlayerSetCurrentPosition(row.seconds);
      EXPECT_EQ(b.player.PlayerGetCurrentPosition(), row.begin) << name << " " << row.seconds;
      b.player.PlayerSetDisplayMode(DisplayMode::Frames);
      EXPECT_EQ(b.player.PlayerGetCurrentPosition(), row.frame) << name << " " << row.seconds;
      b.player.PlayerSetCurrentPosition(row.frame);
      EXPECT_EQ(b.player.PlayerGetCurrentPosition(), row.frame) << name;
    }
    EXPECT_EQ(b.player.PlayerGetDuration(), 6) << name;
    b.player.PlayerSetSelectionEnd(4);
    EXPECT_TRUE(!b.player.UsingCorona() || b.graphs.graph->stopTime() == 4) << name;
  }
}

TEST(Player, LengthsAndSectionsAreInTheUnitInForce) {
  for (const char* name : {"a.mp4", "a.wmv"}) {
    PlayerBench b;
    auto& clip = b.load(name);
    clip.DurationFrames(Value(250));
    b.player.PlayerSetSelectionStart(2);
    b.player.PlayerSetSelectionEnd(6);
    EXPECT_EQ(clip.LoopEnd().number(), b.player.UsingCorona() ? 10 : 6) << name;
    b.player.PlayerSetDisplayMode(DisplayMode::Frames);
    EXPECT_EQ(b.player.PlayerGetSelectionStart(), 50) << name;
    EXPECT_EQ(b.player.PlayerGetSelectionEnd(), 150) << name;
    EXPECT_EQ(b.player.PlayerGetDuration(), 250) << name;
    for (const auto& [moved, held] : {std::pair{4.0, 4.0}, {8.0, 6.0}}) {
      if (b.player.UsingCorona()) break;
      b.control.setSelectionEnd(moved);
      b.player.holdSelectionEnd();
      EXPECT_EQ(b.control.selectionEnd(), held) << "no further than Mark-Out";
    }
    b.player.GlobalMediaPlay();
    b.loop.advance(20000);
    EXPECT_EQ(b.player.PlayerGetCurrentPosition(), 150) << name << " stops at the end of its section";
  }
  for (const auto& [recorded, length] : {std::pair{9.8, 9.8}, {12.0, 10.0}, {0.0, 10.0}}) {
    PlayerBench c;
    c.load("a.mpg").DurationTime(Value(recorded));
    EXPECT_DOUBLE_EQ(c.player.PlayerGetDuration(), length) << "sound behind the pictures does not count";
  }
  PlayerBench b;
  auto& clip = b.load("a.mp4");
  b.player.PlayerSetSelectionStart(5);
  b.player.PlayerSetSelectionEnd(5);
  EXPECT_EQ(clip.LoopEnd().number(), 10) << "an end ahead of the start is none";
  b.load("a.wma", kSoundFile);
  b.player.PlayerSetDisplayMode(DisplayMode::Frames);
  EXPECT_DOUBLE_EQ(b.player.PlayerGetDuration(), 12.4) << "sound is counted in seconds";
}

TEST(Player, PlayGoesOnOrBeginsAgainFromMarkIn) {
  const struct {
    const char* name;
    double start, end;  // of the section
    double from;
    double after;  // 400 ms of playing
  } rows[] = {
      {"a.wmv", 2, 8, 5, 5.4}, {"a.wmv", 2, 8, 8, 2.4}, {"a.wmv", 2, 10, 10, 2.4}, {"a.mp4", 2, 8, 5, 5.4},
      {"a.mp4", 2, 8, 8, 2.4}, {"a.mp4", 2, 8, 1, 1.4}, {"a.wav", 2, 8, 1, 2.4},   {"a.wav", 2, 8, 9, 2.4},
  };
  for (const auto& row : rows) {
    PlayerBench b;
    auto& clip = b.load(row.name, {.rate = std::string(row.name) == "a.wav" ? 0.0 : 25.0});
    clip.LoopStart(Value(row.start));
    b.player.PlayerSetSelectionStart(row.start);
    b.player.PlayerSetSelectionEnd(row.end);
    const bool graph = b.player.UsingCorona();
    graph ? b.graphs.graph->seek(row.from) : b.control.seek(row.from);
    b.mode.player.IsPaused = true;
    b.player.GlobalMediaPlay();
    EXPECT_TRUE(b.mode.player.IsPlaying) << row.name;
    EXPECT_EQ(b.playerHost.words, graph ? "PLAYON " : "") << row.name;
    EXPECT_FALSE(b.mode.player.IsPaused) << row.name;
    b.loop.advance(400);
    EXPECT_DOUBLE_EQ(b.player.PlayerGetCurrentPosition(), row.after) << row.name << " from " << row.from;
    b.player.PlayerPause();
    EXPECT_FALSE(b.mode.player.IsPlaying) << row.name;
  }
  PlayerBench b;
  b.player.GlobalMediaPlay();
  EXPECT_FALSE(b.mode.player.IsPlaying) << "there is nothing to play";
}

TEST(Player, SoundOnAGraphHasNoWindow) {
  PlayerBench b;
  b.load("a.mp4");
  b.player.PlayerShow();
  const auto before = b.mode.player.place;
  b.load("a.wma", kSoundFile);
  b.player.PlayerShow();
  b.player.SendPlayerFarLeft();
  b.player.PlayerSetLeft(1);
  b.player.PlayerSetTop(1);
  b.player.PlayerSetWidth(1);
  b.player.PlayerSetHeight(1);
  b.player.PlayerSetFullScreenMode(true);
  EXPECT_EQ(b.mode.player.place, before);
  EXPECT_FALSE(b.mode.player.visible || b.player.PlayerGetFullScreenMode());
  EXPECT_EQ(b.player.PlayerGetSourceWidth(), 0);
  EXPECT_EQ(b.player.PlayerCoronaGetFrameRate(0), 1);
}

TEST(Player, ADiscHasOneRateAndSizeAndIsNeverEmpty) {
  PlayerBench b;
  auto& clip = b.load("VTS_01_1.VOB", {.duration = 60, .rate = 29.97, .width = 352, .height = 240});
  clip.Playspeed(15);
  EXPECT_EQ(b.player.PlayerGetSourceWidth(), 720);
  EXPECT_EQ(b.player.PlayerGetSourceHeight(), 576);
  EXPECT_EQ(b.player.PlayerGetSelectionEnd(), 60);
  b.player.PlayerSetDisplayMode(DisplayMode::Frames);
  EXPECT_EQ(b.player.PlayerGetDuration(), 1500);
  EXPECT_DOUBLE_EQ(b.player.PlayerGetRate(), 1.5);
  b.player.PlayerSetDisplaySize(0);
  EXPECT_EQ(b.mode.player.place.width, 6800);
  b.player.CoronaClear();
  EXPECT_FALSE(b.player.PlayerIsEmpty());
}

TEST(Player, AGraphKeepsItsRateAndSaysSoOfMpegWithTheWindowOpen) {
  const struct {
    const char* name;
    double rate;
    bool vmr, window, editing, refused, told;
  } rows[] = {
      {"a.mpg", 2, true, true, false, true, true},   {"a.mpg", 1, true, true, false, false, false},
      {"a.mpg", 2, true, false, false, true, false}, {"a.mpg", 2, true, true, true, true, false},
      {"a.wmv", 2, true, true, false, true, false},
  };
  for (const auto& row : rows) {
    PlayerBench b;
    b.settings.user.MPEGRoutingVMR = row.vmr;
    b.settings.state.KVOIsInEditMode = row.editing;
    b.playerHost.rateWindow = row.window;
    b.load(row.name);
    EXPECT_EQ(b.player.PlayerSetRate(row.rate), !row.refused) << row.name;
    EXPECT_EQ(b.boxes.shown.size(), row.told ? 1u : 0u) << row.name;
    EXPECT_EQ(b.player.PlayerGetRate(), 1) << row.name;
    if (row.told) {
      EXPECT_EQ(b.boxes.shown[0].text,
                "KVO Cannot make rate changes to MPEG via the VMR\r\n"
                "Re-start the clip and then make the rate change.");
    }
  }
  PlayerBench b;
  b.load("a.mp4");
  EXPECT_TRUE(b.player.PlayerSetRate(2));
  EXPECT_EQ(b.player.PlayerGetRate(), 2);
}

TEST(Player, WhatIsSetForTheSoundHoldsForLaterGraphs) {
  PlayerBench b;
  b.player.PlayerSetVolume(-600);
  b.player.PlayerSetBalance(300);
  b.player.PlayerMuteON();
  b.load("a.wmv");
  EXPECT_TRUE(b.graphs.graph->mute);
  EXPECT_EQ(b.graphs.graph->volume, -600);
  EXPECT_EQ(b.graphs.graph->balance, 300);
  EXPECT_EQ(b.control.volume, -600);
}

TEST(Player, FullScreenHoldsBackTheMenusUntilItIsLeftOrTheClipGoes) {
  PlayerBench b;
  b.load("a.wmv");
  b.player.PlayerSetFullScreenMode(true);
  EXPECT_TRUE(b.player.PlayerGetFullScreenMode() && !b.mode.ticks.lockAndZoomEnabled);
  const auto place = b.mode.player.place;
  b.player.PlayerSetWidth(100);
  b.player.SendPlayerFarLeft();
  EXPECT_EQ(b.mode.player.place, place);
  b.player.PlayerSetFullScreenMode(false);
  EXPECT_TRUE(!b.player.PlayerGetFullScreenMode() && b.mode.ticks.lockAndZoomEnabled);
  b.player.PlayerSetFullScreenMode(true);
  b.player.CoronaClear();
  EXPECT_FALSE(b.player.PlayerGetFullScreenMode());
}

TEST(Player, TheLastLoadCountsWhenOpeningLetsAnotherIn) {
  PlayerBench b;
  b.add("slow.wmv");
  b.add("b.mp4");
  b.graphs.whileOpening = [&] { b.open(2); };
  b.open(1);
  EXPECT_EQ(b.player.PlayerGetFileName(), "/v/b.mp4");
  EXPECT_EQ(b.mode.player.path, "/v/b.mp4");
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
  EXPECT_EQ(b.probe.asked, 0);
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

TEST(KVOPlayerEngOcX, AFileThatBreaksOffIsOpenedAgainWhereItStoodButNotForEver) {
  PreviewBench b;
  b.player.PlayVideo(1.0);
  b.loop.advance(1000);
  b.graphs.graph->Stop();
  b.loop.advance(200);
  EXPECT_EQ(b.graphs.made, 2);
  EXPECT_GT(b.position, 1.9);
  b.files["/m.avi"].opens = false;
  b.graphs.graph->Stop();
  b.loop.advance(200);
  EXPECT_EQ(b.finished, 1);
}

TEST(KVOPlayerEngOcX, TimesHaveTwoDigitsEach) {
  const std::pair<double, const char*> rows[] = {
      {0, "00:00:00"}, {59.99, "00:00:59"}, {3661.5, "01:01:01"}, {360000, "100:00:00"}};
  for (const auto& [seconds, text] : rows) EXPECT_EQ(KVOPlayerEngOcX::ConvertTime(seconds), text);
}

}  // namespace
}  // namespace kvo
