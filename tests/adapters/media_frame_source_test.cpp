#include "adapters/media/media_frame_source.h"

#include "support/real_world.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(MediaFrameSource, KnowsAFileThatHasChanged) {
  const test::ScratchFolder folder;
  MediaFrameSource source;
  const auto path = folder / "clip.avi";
  const auto make = [&](const std::string& size) {
    test::makeMedia(folder, "clip.avi",
                    {"-f", "lavfi", "-i", "color=red:size=" + size + ":rate=25:duration=1", "-c:v", "mpeg4"});
  };
  EXPECT_FALSE(source.facts(path)) << "it is not there yet";
  make("64x48");
  const auto first = source.facts(path);
  ASSERT_TRUE(first) << "a failure is not remembered";
  EXPECT_EQ(first->width, 64);
  make("96x48");
  EXPECT_EQ(source.facts(path)->width, 96);
  // Of another size, at the same time.
  const auto time = std::filesystem::last_write_time(path);
  make("48x96");
  std::filesystem::resize_file(path, std::filesystem::file_size(path) + 1);
  std::filesystem::last_write_time(path, time);
  EXPECT_EQ(source.facts(path)->width, 48);
  std::filesystem::remove(path);
  EXPECT_FALSE(source.facts(path)) << "it is gone";
}

TEST(MediaFrameSource, GivesAFrameByItsTimeWithItsShapeKept) {
  const test::ScratchFolder folder;
  MediaFrameSource source;
  const auto path = test::makeCountingVideo(folder, "count.avi", "25", 25);  // 64 x 48
  const auto at = [](const FramePicture& picture, int x, int y) {
    return picture.bgr.at(static_cast<std::size_t>(3 * (y * picture.width + x)));
  };
  int before = -1;
  for (const double seconds : {0.0, 0.4, 0.9}) {
    const auto picture = source.frame(path, seconds, 201, 96);
    ASSERT_TRUE(picture) << picture.error().text;
    EXPECT_EQ(picture->width, 202);
    EXPECT_EQ(picture->height, 96);
    EXPECT_EQ(picture->bgr.size(), std::size_t{202} * 96 * 3);
    EXPECT_LT(at(*picture, 20, 48), 3) << "black beside it";
    EXPECT_LT(at(*picture, 180, 48), 3);
    EXPECT_GT(at(*picture, 101, 48), before) << "each is brighter than the one ahead of it";
    before = at(*picture, 101, 48);
  }
  EXPECT_TRUE(source.frame(path, 0, 1, 1)) << "no box is too small";
  for (const auto& [name, seconds] : {std::pair{path, 30.0}, {folder / "none.avi", 0.0}}) {
    const auto none = source.frame(name, seconds, 64, 48);
    ASSERT_FALSE(none);
    EXPECT_NE(none.error().text.find(name), std::string::npos) << none.error().text;
  }
}

}  // namespace
}  // namespace kvo
