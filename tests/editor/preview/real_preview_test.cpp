// The preview with the engine that plays it, on its own thread.
#include "adapters/media/media_file_contents.h"
#include "engine/run/engine_player.h"
#include "support/documents.h"
#include "support/preview_bench.h"
#include "support/real_world.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(RealPreview, ASampleIsSeenAndMakesPlaceForTheMovie) {
  test::ScratchFolder media;
  test::makeCountingVideo(media, "count.mkv", "25", 100);
  test::PreviewBench b;
  b.collection.MovieList.clear();
  b.addVideo("count.mkv", 1, 3, media / "");
  b.addVideo("count.mkv", 2, 4, media / "");
  NewestPicture pictures(b.loop);
  engine::EnginePlayer player(nullptr,
                              [&](auto frame, auto picture) { pictures.put(frame, std::move(picture)); });
  PreviewState state;
  PreviewEngine preview(state, b.editing, player, pictures, b.loop, b.host);
  const auto soon = [&](const std::function<bool()>& what) {
    for (int i = 0; i < 400 && !what(); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      b.loop.advance(20);
    }
    return what();
  };
  preview.sample(Sample::Effect, 1);
  ASSERT_TRUE(soon([&] { return state.picture != nullptr; }));
  EXPECT_EQ(std::pair(state.picture->width, state.picture->height), std::pair(320, 240))
      << "the movie's shape";
  EXPECT_TRUE(soon([&] { return !state.PreviewPlaying; })) << "it comes to its end";
  EXPECT_NEAR(state.position, 2, 0.21);

  preview.showAt(2.5);
  ASSERT_TRUE(soon([&] { return state.position == 2.5 && state.picture->width < 320; }));
  EXPECT_EQ(state.kind, PreviewKind::Movie);
  EXPECT_EQ(state.total, 4);
  EXPECT_GT(state.picture->bgr.at(3 * 9 * 9), 0);
  preview.PrepPreview();
  EXPECT_TRUE(soon([&] { return !state.PreviewPlaying && state.position == 0; })) << "played and rewound";

  b.collection.MovieList[2].MovieName("gone.mkv");
  b.streams.all[media / "gone.mkv"] = b.streams.all[media / "count.mkv"];
  preview.movieIsStale();
  preview.showAt(3);
  EXPECT_TRUE(soon([&] { return state.failure.find("gone.mkv") != std::string::npos; })) << state.failure;
}

}  // namespace
}  // namespace kvo
