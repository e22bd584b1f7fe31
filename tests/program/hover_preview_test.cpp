// The small picture over the slider, and captions beside a clip.
#include "program/hover_preview.h"

#include "playback/captions.h"
#include "support/held_player.h"
#include "support/program_bench.h"

#include <atomic>
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using namespace std::chrono_literals;

struct CountingStreams : FrameSource {
  std::atomic<int> asked = 0;
  Result<StreamFacts> facts(const std::string& path) override { return Error{path}; }
  Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) override {
    ++asked;
    if (path == "/bad") return Error{path};
    return FramePicture{width, height, {static_cast<std::uint8_t>(seconds)}};
  }
};

struct HoverBench {
  CountingStreams streams;
  test::VirtualLoop loop;
  MainWindowState window;
  HoverPreview hover{streams, loop, window};

  HoverBench() { clip("/v/a.avi", 100); }
  void clip(const std::string& path, double length, ClipKind kind = ClipKind::Video) {
    window.list.Fillist.assign({{path, "", kind}});
    window.list.ListIndex = 0;
    window.mode.player.path = path;
    window.slider = {.handles = length > 0, .length = length};
  }
  // The second that the picture shows, -1 for none, once it has come or no more is on its way.
  int shows(int asked) {
    for (int i = 0; i < 5000 && (streams.asked < asked || window.hover.picture == nullptr); ++i) {
      loop.advance(1);
      if (streams.asked >= asked && i > 50) break;
      std::this_thread::sleep_for(1ms);
    }
    EXPECT_EQ(streams.asked, asked);
    return window.hover.picture == nullptr ? -1 : window.hover.picture->bgr[0];
  }
};

TEST(HoverPreview, FetchesEachPlaceOfItsGridOnce) {
  HoverBench b;
  b.hover.over(0.1234, 8, 4);
  EXPECT_TRUE(b.window.hover.visible);
  EXPECT_EQ(b.window.hover.time, "0:12");
  EXPECT_EQ(b.shows(1), 12);
  b.hover.over(0.1281, 8, 4);
  EXPECT_EQ(b.window.hover.time, "0:13");
  EXPECT_EQ(b.shows(1), 12) << "the same place of the grid";
  b.hover.left();
  EXPECT_FALSE(b.window.hover.visible);
  EXPECT_EQ(b.window.hover.picture, nullptr);
  b.hover.over(0.12, 8, 4);
  EXPECT_EQ(b.shows(1), 12) << "it has been kept";
  b.clip("/v/b.avi", 5000);
  b.hover.over(0.0099, 8, 4);
  EXPECT_EQ(b.shows(2), 40) << "20 seconds apart in a long clip";
  b.clip("/v/c.avi", 200);
  b.hover.settled();
  EXPECT_EQ(b.window.hover.time, "0:02") << "of the clip that has come below the pointer";
  EXPECT_EQ(b.shows(3), 1);
}

TEST(HoverPreview, HasATimeButNoPictureWhereThereIsNone) {
  HoverBench b;
  b.clip("/v/song.mp3", 100, ClipKind::Sound);
  b.hover.over(0.5, 8, 4);
  EXPECT_EQ(b.window.hover.time, "0:50");
  EXPECT_EQ(b.shows(0), -1);
  b.clip("/bad", 100);
  b.hover.over(0.5, 8, 4);
  EXPECT_EQ(b.shows(1), -1);
  b.hover.over(0.1, 8, 4);
  b.shows(2);
  b.hover.over(0.5, 8, 4);
  EXPECT_EQ(b.shows(2), -1) << "what has none is not asked again";
  b.clip("/v/still.jpg", 0);
  b.hover.over(0.5, 8, 4);
  EXPECT_FALSE(b.window.hover.visible) << "no length, no place";
}

TEST(Captions, SamiGoesFirstAndWithoutTextsTheyStayOff) {
  test::ProgramBench b;
  test::HeldPlayer player(b);
  b.addVideo("film.one.avi", 0, 0);
  player.PlayerSetFilename("/v/film.one.avi", 1);
  applyCaptions(player, b.files, true);
  EXPECT_FALSE(player.captions) << "there is nothing to show";
  player.tracks = {{MediaTrack::Kind::Subtitles, 1, "", "", false}};
  applyCaptions(player, b.files, true);
  EXPECT_TRUE(player.captions) << "what the file brings";
  for (const auto& [file, found] :
       {std::pair{"film.srt", ""}, std::pair{"film.one.sub", "film.one.sub"},
        std::pair{"film.one.srt", "film.one.srt"}, std::pair{"film.one.smi", "film.one.smi"}}) {
    b.files.all[std::string("/v/") + file] = "x";
    const auto beside = captionFileBeside(b.files, "/v/film.one.avi");
    EXPECT_EQ(beside, *found == '\0' ? "" : std::string("/v/") + found);
  }
  applyCaptions(player, b.files, true);
  EXPECT_EQ(player.captionFile, "/v/film.one.smi");
  applyCaptions(player, b.files, false);
  EXPECT_FALSE(player.captions);
  EXPECT_EQ(captionFileBeside(b.files, "http://film.one"), "");
}

}  // namespace
}  // namespace kvo
