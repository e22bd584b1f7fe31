// A collection on the real engines: the transport, the player and libmpv with real files.
#include "adapters/media/media_file_contents.h"
#include "adapters/media/media_picture_counts.h"
#include "adapters/mpv/mpv_control_engine.h"
#include "adapters/mpv/mpv_filter_graphs.h"
#include "adapters/mpv_media.h"
#include "adapters/posix/poll_loop.h"
#include "adapters/posix/posix_files.h"
#include "playback/transport_bench.h"
#include "support/loop_rules.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::makeNumbered;
using test::Server;
using test::turnUntil;

struct RealStage {
  test::ScratchFolder folder;
  PollLoop loop;
  MediaFileContents streams;
  MpvStage stage{loop, streams, {.address = std::chrono::milliseconds(2500)}};
  MpvControlEngine control{stage};
  MpvFilterGraphs graphs{stage};
  MediaPictureCounts counts{loop, streams};
  PosixFiles files;
};

struct RealBench : RealStage, test::TransportRoom {
  std::map<int, std::set<int>> seen;     // by clip, the numbers of the pictures that were shown since it ran
  std::chrono::milliseconds longest{0};  // that the loop was kept from turning

  RealBench() : TransportRoom({loop, control, graphs, streams, counts, files}) {
    stage.output().whenPictureDue([this] {
      const int number = test::drawnNumber(stage.output());
      auto& pictures = seen[mode.player.clip];
      const bool begun = player.PlayerGetPlayState() == EngineState::Running || !pictures.empty();
      if (begun && number >= 0) pictures.insert(number);
      return true;
    });
    settings.user.PlayWithoutGaps = true;
  }
  RealBench(const RealBench&) = delete;
  RealBench& operator=(const RealBench&) = delete;
  ~RealBench() { stage.output().whenPictureDue({}); }

  Movie& add(const std::string& pathOrAddress, double start = 0, double end = 0) {
    auto& clip = collection.MovieList.add({});
    const auto name = pathOrAddress.rfind('/') + 1;
    const bool address = pathOrAddress.find("://") != std::string::npos;
    clip.MovieName(address ? pathOrAddress : pathOrAddress.substr(name));
    clip.Path(address ? "" : pathOrAddress.substr(0, name));
    clip.IsStream(address);
    clip.LoopStart(Value(start));
    clip.LoopEnd(Value(end));
    return clip;
  }
  template <class Condition>
  bool until(const Condition& holds) {
    auto before = loop.now();
    return turnUntil(loop, [&] {
      longest = std::max(longest, loop.now() - std::exchange(before, loop.now()));
      return holds();
    });
  }
};

TEST(Playing, ACollectionGoesFromItsFirstClipToItsLastEachFromMarkToMark) {
  RealBench b;
  const std::vector<std::string> h264 = {"-c:v", "libx264", "-crf", "4", "-g", "20", "-bf", "2"};
  b.add(makeNumbered(b.folder, "a.mp4", "25", "", h264), 0.4, 0.8);
  b.add(test::makeMedia(b.folder, "b.mp3", {"-f", "lavfi", "-i", "sine=duration=0.6"}), 0.1, 0.5);
  b.add(test::makeMedia(b.folder, "c.png", {"-f", "lavfi", "-i", "color=size=64x48", "-frames:v", "1"}))
      .IsStill(true);
  b.add(makeNumbered(b.folder, "d.wmv", "25", "", {"-c:v", "wmv2", "-q:v", "2", "-g", "20"}), 1, 1.4);
  b.add(makeNumbered(b.folder, "e.mkv", "25", test::kUneven, h264), test::unevenBegin(12),
        test::unevenBegin(18));
  b.settings.user.StillDelayTimer = 1;
  b.mode.IsFullScreenWindow = true;  // where stills go on by themselves
  std::string walk;
  b.transport.PreviewMovie(1);
  EXPECT_TRUE(b.until([&] {
    const auto now = std::to_string(b.collection.icurMov);
    if (!walk.ends_with(now)) walk += now;
    return b.collection.icurMov == 5 && b.mode.player.clip == 5 && b.mode.player.IsPaused;
  })) << b.shown();
  EXPECT_EQ(walk, "12345");
  const struct { int clip, first, end; } rows[] = {{1, 10, 20}, {4, 25, 35}, {5, 12, 18}};
  for (const auto& row : rows) {
    const auto& pictures = b.seen[row.clip];
    ASSERT_FALSE(pictures.empty()) << row.clip;
    EXPECT_GE(*pictures.begin(), row.first) << row.clip << " from Mark-In";
    EXPECT_EQ(*pictures.rbegin(), row.end - 1) << row.clip << " to Mark-Out";
  }
  EXPECT_EQ(test::drawnNumber(b.stage.output()), 17) << "the last picture stands";
  EXPECT_TRUE(b.boxes.shown.empty());
}

TEST(Playing, WhatCannotBePlayedIsToldWhileTheWindowAnswersAndTheNextClipPlays) {
  RealBench b;
  const auto write = [&](const std::string& name, const std::string& bytes) {
    std::ofstream(b.folder / name, std::ios::binary) << bytes;
    return b.folder / name;
  };
  const std::vector<std::string> small = {"-c:v", "mpeg2video", "-q:v", "2", "-g", "5", "-muxrate", "1500k"};
  const auto good = makeNumbered(b.folder, "good.ts", "25", "", small);
  std::ifstream file(good, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  const Server silent(Server::Manner::Silent, bytes);
  const Server stops(Server::Manner::StopsInTheMiddle, bytes);
  const Server redirects(Server::Manner::RedirectsForEver, bytes);
  const auto words =
      test::makeMedia(b.folder, "words.mkv",
                      {"-f", "srt", "-i", write("words.srt", "1\n00:00:00,000 --> 00:00:01,000\nword\n")});
  const std::string stream = "The Clip could not be played.";
  const struct {
    std::string path;
    std::string label, box;  // the begin of it
  } rows[] = {{write("torn.mp4", std::string(200000, 'x')),
               "torn.mp4 cannot be played\r\nit is no media file, or damaged", ""},
              {words, "words.mkv cannot be played\r\nthere is neither picture nor sound in it", ""},
              {b.folder / "none.avi", "none.avi is not there any more", ""},
              {silent.address(), "", stream},
              {redirects.address(), "", stream},
              {stops.address(), "", stream}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.path);
    b.add(row.path);
    const int number = b.collection.MovieList.count();
    b.boxes.shown.clear();
    b.mode.player.IsPaused = false;
    b.transport.PreviewMovie(number);
    EXPECT_TRUE(b.until([&] { return row.box.empty() || !b.boxes.shown.empty(); }));
    EXPECT_EQ(b.state.lbl_Novid.text, row.label);
    EXPECT_EQ(b.boxes.shown.empty() ? "" : b.boxes.shown[0].text.substr(0, row.box.size()), row.box);
    EXPECT_TRUE(b.player.PlayerIsEmpty());
    EXPECT_EQ(test::drawnNumber(b.stage.output()), -1);
  }
  b.add(good);
  b.mode.player.IsPaused = false;
  b.transport.PreviewMovie(b.collection.MovieList.count());
  EXPECT_TRUE(b.until([&] { return test::drawnNumber(b.stage.output()) >= 2; }));
  std::filesystem::remove(good);  // while it plays
  EXPECT_TRUE(b.until([&] { return b.mode.player.IsPaused; })) << "what is open stays so";
  EXPECT_EQ(test::drawnNumber(b.stage.output()), 49);
  EXPECT_LT(b.longest.count(), 600) << "a tenth of a second on a machine that has nothing else to do";
}

}  // namespace
}  // namespace kvo
