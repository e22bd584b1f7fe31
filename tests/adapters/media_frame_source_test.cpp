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

}  // namespace
}  // namespace kvo
