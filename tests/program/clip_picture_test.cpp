// The picture of the clip in hand.
#include "program/clip_picture.h"

#include "support/program_bench.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using namespace std::chrono_literals;

/// Gives each picture only when it is let.
class HeldStreams : public MediaContents {
 public:
  Result<StreamFacts> facts(const std::string& path) override { return Error{path}; }
  Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) override {
    std::unique_lock lock(mutex_);
    asked_.push_back(path + "@" + std::to_string(static_cast<int>(seconds)));
    told_.notify_all();
    told_.wait(lock, [this] { return let_ > 0; });
    --let_;
    if (path == "/bad") return Error{"cannot open /bad"};
    return FramePicture{width, height, {static_cast<std::uint8_t>(seconds)}};
  }

  /// Waits until so many pictures have been asked for.
  std::vector<std::string> asked(std::size_t count) {
    std::unique_lock lock(mutex_);
    EXPECT_TRUE(told_.wait_for(lock, 10s, [&] { return asked_.size() >= count; })) << count;
    return asked_;
  }
  void let(int count) {
    const std::lock_guard lock(mutex_);
    let_ += count;
    told_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable told_;
  std::vector<std::string> asked_;
  int let_ = 0;
};

struct PictureBench {
  HeldStreams streams;
  test::VirtualLoop loop;
  ClipPictureState state;
  std::optional<ClipPicture> picture{std::in_place, streams, loop, state};

  // What the thread has read comes home, until it is this.
  bool comes(const std::string& path, double seconds) {
    while (loop.workComesHome()) {
      if (state.wish.path == path && state.wish.seconds == seconds) return true;
    }
    return false;
  }
};

TEST(ClipPicture, OfManyWishesTheFirstAndTheLastAreRead) {
  PictureBench b;
  b.picture->want({"/a", 0, 4, 4});
  b.streams.asked(1);
  for (int i = 1; i <= 20; ++i) b.picture->want({"/b" + std::to_string(i), 0, 4, 4});
  b.picture->want({"/c", 7, 4, 4});
  b.streams.let(2);
  EXPECT_TRUE(b.comes("/c", 7));
  EXPECT_EQ(b.streams.asked(2), (std::vector<std::string>{"/a@0", "/c@7"}));
  EXPECT_EQ(b.state.picture->bgr[0], 7);
  const auto revision = b.state.revision;
  b.picture->want({"/c", 7, 4, 4});
  b.loop.advance(1);
  EXPECT_EQ(b.streams.asked(2).size(), 2U) << "nothing is read twice in a row";
  EXPECT_EQ(b.state.revision, revision);
  b.picture->want({"/d", 0, 4, 4});
  EXPECT_NE(b.state.picture, nullptr) << "nothing black between two of them";
  b.picture->want({});
  EXPECT_EQ(b.state.picture, nullptr);
  b.streams.let(1);
}

TEST(ClipPicture, TellsWhyThereIsNoneAndForgetsWhatIsNoLongerWanted) {
  PictureBench b;
  b.picture->want({"/bad", 0, 4, 4});
  b.streams.let(1);
  EXPECT_TRUE(b.comes("/bad", 0));
  EXPECT_EQ(b.state.fault, "cannot open /bad");
  b.picture->want({"/a", 0, 4, 4});
  EXPECT_EQ(b.state.fault, "");
  b.streams.asked(2);
  b.picture->want({});
  b.streams.let(1);
  EXPECT_TRUE(b.loop.workComesHome());
  EXPECT_EQ(b.state.picture, nullptr);
  EXPECT_EQ(b.state.wish, PictureWish{});
  // What is still on its way when the window goes does not come home.
  b.picture->want({"/a", 5, 4, 4});
  b.streams.asked(3);
  b.streams.let(1);
  b.picture.reset();
  b.loop.advance(1);
  EXPECT_EQ(b.state.picture, nullptr);
}

}  // namespace
}  // namespace kvo
