// The small parts of the engine, without media.
#include "engine/active_set.h"
#include "engine/bounded_queue.h"
#include "engine/limiter.h"
#include "engine/timeline.h"

#include <cmath>
#include <numbers>
#include <thread>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

TEST(Keyed, RunsStraightJumpsAndHolds) {
  const Keyed keyed{0, {{1, 1, true}, {2, 1, true}, {3, 0.5, false}, {4, 0, true}}};
  const std::pair<double, double> rows[] = {{0, 0},   {0.25, 0.25}, {1, 1}, {1.5, 1}, {2.9, 1},
                                            {3, 0.5}, {3.5, 0.25},  {4, 0}, {9, 0}};
  for (const auto& [time, value] : rows) {
    EXPECT_NEAR(keyed.at(time), value, 1e-12) << time;
  }
  EXPECT_EQ((Keyed{0.7, {}}).at(5), 0.7);
  EXPECT_EQ((Keyed{0, {{-0.115, 1, true}}}).at(0), 1) << "a key ahead of the start has been passed";
}

TEST(Timeline, FramesBeginAtOrBehindTheirTime) {
  Timeline timeline;
  timeline.frameRate = 25;
  EXPECT_EQ(timeline.frameFrom(0), 0);
  EXPECT_EQ(timeline.frameFrom(0.04), 1);
  EXPECT_EQ(timeline.frameFrom(0.05), 2);
  timeline.frameRate = 30000.0 / 1001;
  EXPECT_EQ(timeline.frameFrom(1.0010), 30) << "four decimals are near enough";
  EXPECT_EQ(timeline.frameFrom(0.0334), 1);
}

TEST(ActiveSet, HoldsTheRangesAtAPosition) {
  ActiveSet set({{0, 10}, {5, 15}, {5, 5}, {12, 20}, {0, 100}});
  using Numbers = std::vector<std::size_t>;
  EXPECT_EQ(set.at(0), (Numbers{0, 4}));
  EXPECT_EQ(set.at(7), (Numbers{0, 1, 4}));
  EXPECT_EQ(set.at(10), (Numbers{1, 4}));
  EXPECT_EQ(set.at(50), (Numbers{4}));
  EXPECT_EQ(set.at(6), (Numbers{0, 1, 4})) << "back again";
  EXPECT_EQ(set.at(200), Numbers{});
}

TEST(Limiter, PassesWhatFitsAndHoldsWhatDoesNot) {
  constexpr std::size_t kCount = 20000;
  const auto run = [](float loud) {
    Limiter limiter;
    std::vector<float> in(2 * kCount);
    std::vector<float> out;
    for (std::size_t i = 0; i < kCount; ++i) {
      const float amplitude = i >= 4410 && i < 5292 ? loud : 0.5F;
      in[2 * i] = in[2 * i + 1] =
          amplitude * std::sin(static_cast<float>(i) * 2 * std::numbers::pi_v<float> * 1000 / 44100);
    }
    limiter.process(in, out);
    EXPECT_EQ(out.size(), in.size() - 2 * (Limiter::kLookAhead - 1));
    return std::pair{in, out};
  };
  const auto [quietIn, quietOut] = run(0.99F);
  for (std::size_t i = 0; i < quietOut.size(); ++i) ASSERT_EQ(quietOut[i], quietIn[i]) << i;

  const auto [loudIn, loudOut] = run(3.0F);
  float step = 0;
  for (std::size_t i = 2; i < loudOut.size(); ++i) {
    ASSERT_LE(std::fabs(loudOut[i]), 1.0001F) << i;
    step = std::max(step, std::fabs(loudOut[i] - loudOut[i - 2]));
  }
  EXPECT_LT(step, 0.2F) << "no click where it turns down";
  EXPECT_EQ(loudOut[100], loudIn[100]);
}

TEST(BoundedQueue, WaitsForRoomAndEndsWhenClosed) {
  BoundedQueue<int> queue(2);
  std::thread producer([&] {
    for (int i = 0; i < 1000; ++i) {
      if (!queue.push(i)) return;
    }
    queue.close();
  });
  int expected = 0;
  while (const auto item = queue.pop()) EXPECT_EQ(*item, expected++);
  producer.join();
  EXPECT_EQ(expected, 1000);
  EXPECT_FALSE(queue.push(1));
}

}  // namespace
}  // namespace kvo::engine
