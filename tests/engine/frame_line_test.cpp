// Frames made side by side come out in order, the same from any number of threads.
#include "engine/run/frame_line.h"

#include "engine/document/document_reader.h"
#include "support/documents.h"
#include "support/real_world.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

class FrameLineTest : public testing::Test {
 protected:
  FrameLineTest() : video_(test::makeCountingVideo(media_, "count.mkv", "25", 100)) {}

  // Clips of four seconds, one behind the other; the frames of each count from 0.
  [[nodiscard]] Timeline movie(const std::vector<std::string>& files) const {
    std::vector<test::DocumentClip> clips;
    for (const auto& file : files) {
      const auto start = 4.0 * static_cast<double>(clips.size());
      clips.push_back({file, 0, 4, start, start + 4});
    }
    return *readDocument(test::documentOf(clips));
  }

  test::ScratchFolder media_;
  std::string video_;
};

TEST_F(FrameLineTest, HandsFramesOutInOrder) {
  const auto timeline = movie({video_, video_, video_, video_, video_});
  const auto segments = segmentsOf(timeline, 10, 500);
  ASSERT_GT(segments.size(), 1U);
  for (const int workers : {1, 2, 7}) {
    FrameLine line(timeline, segments, {}, {.workers = workers});
    for (int frame = 10; frame < 500; ++frame) {
      const auto made = line.next();
      ASSERT_TRUE(made) << made.error().text;
      ASSERT_EQ(std::lround((made->picture.row(0, 5)[5] - 16) / 2.0), frame % 100) << workers << " threads";
    }
    EXPECT_EQ(line.made(), 490);
    for (int again = 0; again < 2; ++again) EXPECT_FALSE(line.next()) << "there are no more";
  }
}

TEST_F(FrameLineTest, EncodesTheSameMovieOnAnyNumberOfThreads) {
  const auto timeline = movie({video_, video_, video_});
  const auto sizesWith = [&](const Crew& crew) {
    FrameLine line(
        timeline, segmentsOf(timeline, 0, 300),
        [] {
          return media::VideoEncoder::open({media::VideoCodec::Mpeg4, 64, 48, 25, 24}, false, "m");
        },
        crew);
    std::vector<std::size_t> sizes;
    for (int frame = 0; frame < 300; ++frame) {
      const auto made = line.next();
      sizes.push_back(made ? made->encoded.bytes() : 0);
    }
    return sizes;
  };
  const auto alone = sizesWith({.workers = 1, .decoderThreads = 2});
  EXPECT_EQ(std::count(alone.begin(), alone.end(), 0U), 0);
  EXPECT_EQ(sizesWith({.workers = 3}), alone);
}

TEST_F(FrameLineTest, EndsWithTheFirstFailure) {
  const auto timeline = movie({video_, video_, video_, media_ / "gone.mkv", video_, video_});
  for (const int workers : {1, 3}) {
    FrameLine line(timeline, segmentsOf(timeline, 0, 600), {}, {.workers = workers});
    std::string failure;
    for (int frame = 0; frame < 600 && failure.empty(); ++frame) {
      const auto made = line.next();
      if (!made) failure = made.error().text;
    }
    EXPECT_NE(failure.find("gone.mkv"), std::string::npos) << failure;
  }
}

TEST_F(FrameLineTest, EndsWithALineForWhatIsThrown) {
  const auto timeline = movie({video_, video_});
  for (const int workers : {1, 2}) {
    FrameLine line(timeline, segmentsOf(timeline, 0, 200),
                   []() -> Result<media::VideoEncoder> { throw std::bad_alloc(); }, {.workers = workers});
    const auto made = line.next();
    ASSERT_FALSE(made);
    EXPECT_EQ(made.error().text, "out of memory");
  }
}

TEST_F(FrameLineTest, CanBeLeftAtAnyTime) {
  const auto timeline = movie({video_, video_, video_, video_});
  for (const int frames : {0, 1, 30, 150}) {
    FrameLine line(timeline, segmentsOf(timeline, 0, 400), {}, {.workers = 3, .decoderThreads = 2});
    for (int frame = 0; frame < frames; ++frame) ASSERT_TRUE(line.next());
  }
}

}  // namespace
}  // namespace kvo::engine
