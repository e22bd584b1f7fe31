// A collection on the real engines: the transport, the player and libmpv with real files.
#include "adapters/mpv_media.h"
#include "adapters/posix/posix_files.h"
#include "playback/transport_bench.h"

namespace kvo {
namespace {

using test::makeNumbered;

struct RealStage : test::Stage {
  PosixFiles files;
};

struct RealBench : RealStage, test::TransportRoom {
  std::map<int, std::set<int>> seen;  // by clip, the numbers of the pictures that were shown since it ran

  RealBench() : TransportRoom({loop, engine, graphs, facts, counts, files}) {
    stage.output().whenPictureDue([this] {
      const int number = drawn();
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

  Movie& add(const std::string& path, double start = 0, double end = 0) {
    auto& clip = collection.MovieList.add({});
    const auto name = path.rfind('/') + 1;
    clip.MovieName(path.substr(name));
    clip.Path(path.substr(0, name));
    clip.LoopStart(Value(start));
    clip.LoopEnd(Value(end));
    return clip;
  }
};

TEST(Playing, ACollectionGoesFromItsFirstClipToItsLastEachFromMarkToMark) {
  RealBench b;
  b.add(makeNumbered(b.folder, "a.mp4", "25", test::kH264), 0.4, 0.8);
  b.add(test::makeMedia(b.folder, "b.mp3", {"-f", "lavfi", "-i", "sine=duration=0.6"}), 0.1, 0.5);
  b.add(test::makeMedia(b.folder, "c.png", {"-f", "lavfi", "-i", "color=size=64x48", "-frames:v", "1"}))
      .IsStill(true);
  b.add(makeNumbered(b.folder, "d.wmv", "25", test::kWmv), 1, 1.4);
  b.add(makeNumbered(b.folder, "e.mkv", test::kUneven, test::kH264), test::beginAt(test::kUneven, 12),
        test::beginAt(test::kUneven, 18));
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
  EXPECT_TRUE(b.shows(17)) << "the last picture stands, which a busy machine draws a moment behind the end";
  const struct { int clip, first, end; } rows[] = {{1, 10, 20}, {4, 25, 35}, {5, 12, 18}};
  for (const auto& row : rows) {
    const auto& pictures = b.seen[row.clip];
    ASSERT_FALSE(pictures.empty()) << row.clip;
    EXPECT_GE(*pictures.begin(), row.first) << row.clip << " from Mark-In";
    EXPECT_EQ(*pictures.rbegin(), row.end - 1) << row.clip << " to Mark-Out";
  }
  EXPECT_TRUE(b.boxes.shown.empty());
}

}  // namespace
}  // namespace kvo
