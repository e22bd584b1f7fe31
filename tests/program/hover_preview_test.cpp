// The small picture over the slider.
#include "program/hover_preview.h"

#include "support/virtual_loop.h"

#include <atomic>
#include <optional>

#include <gtest/gtest.h>

namespace kvo {
namespace {

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
  std::optional<HoverPreview> hover{std::in_place, streams, loop, window};

  HoverBench() { clip("/v/a.avi", 100); }
  void clip(const std::string& path, double length, ClipKind kind = ClipKind::Video) {
    window.list.Fillist.assign({{path, "", kind}});
    window.list.ListIndex = 0;
    window.mode.player.path = path;
    window.slider = {.handles = length > 0, .length = length};
  }
  void over(double part) { hover->over(part, 8, 4); }
  // The second that the picture shows, -1 for none.
  [[nodiscard]] int shows() const {
    return window.hover.picture == nullptr ? -1 : window.hover.picture->bgr[0];
  }
  // The same when one more has been fetched.
  int comes() {
    EXPECT_TRUE(loop.workComesHome());
    return shows();
  }
  // How many were fetched, with what was still on its way.
  int askedAtItsEnd() {
    hover.reset();
    return streams.asked;
  }
};

TEST(HoverPreview, FetchesEachPlaceOfItsGridOnce) {
  HoverBench b;
  b.over(0.1234);
  EXPECT_TRUE(b.window.hover.visible);
  EXPECT_EQ(b.window.hover.time, "0:12");
  EXPECT_EQ(b.comes(), 12);
  b.hover->left();
  EXPECT_FALSE(b.window.hover.visible);
  EXPECT_EQ(b.shows(), -1);
  b.over(0.12);
  EXPECT_EQ(b.shows(), 12) << "it has been kept";
  b.clip("/v/b.avi", 5000);
  b.over(0.0099);
  EXPECT_EQ(b.comes(), 40) << "20 seconds apart in a long clip";
  b.clip("/v/c.avi", 200);
  b.hover->settled();
  EXPECT_EQ(b.window.hover.time, "0:02") << "of the clip that has come below the pointer";
  EXPECT_EQ(b.comes(), 1);
  b.over(0.0074);
  EXPECT_EQ(b.shows(), 1) << "the same place of the grid";
  EXPECT_EQ(b.askedAtItsEnd(), 3);
}

TEST(HoverPreview, HasATimeButNoPictureWhereThereIsNone) {
  HoverBench b;
  b.clip("/v/song.mp3", 100, ClipKind::Sound);
  b.over(0.5);
  EXPECT_EQ(b.window.hover.time, "0:50");
  b.clip("/bad", 100);
  b.over(0.5);
  EXPECT_EQ(b.comes(), -1);
  b.over(0.1);
  EXPECT_EQ(b.comes(), -1);
  b.over(0.5);
  EXPECT_EQ(b.askedAtItsEnd(), 2) << "neither sound, nor again what has none";
}

TEST(HoverPreview, NeedsALength) {
  HoverBench b;
  b.clip("/v/still.jpg", 0);
  b.over(0.5);
  EXPECT_FALSE(b.window.hover.visible);
}

}  // namespace
}  // namespace kvo
