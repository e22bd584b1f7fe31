// What every event loop of the program holds to.
#pragma once

#include "ports/event_loop.h"

#include <functional>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

/// Turns the loop until `holds`. The limit is only for a fault.
template <class Condition>
bool turnUntil(EventLoop& loop, const Condition& holds) {
  const auto end = loop.now() + std::chrono::seconds(30);
  while (!holds() && loop.now() < end) loop.yield();
  return holds();
}

inline void expectWorkOfOtherThreadsComesHomeInOrder(EventLoop& loop) {
  const auto home = std::this_thread::get_id();
  std::vector<int> done;
  bool elsewhere = false;
  std::thread other([&] {
    for (int i = 0; i < 100; ++i) {
      loop.post([&, i] {
        elsewhere |= std::this_thread::get_id() != home;
        done.push_back(i);
        if (i == 10) loop.yield();
      });
    }
  });
  other.join();
  EXPECT_TRUE(done.empty()) << "nothing is done where it was posted";
  EXPECT_TRUE(turnUntil(loop, [&] { return done.size() == 100; }));
  std::vector<int> wanted(100);
  std::iota(wanted.begin(), wanted.end(), 0);
  EXPECT_EQ(done, wanted);
  EXPECT_FALSE(elsewhere);
}

inline void expectTimersTickUntilTheyAreStopped(EventLoop& loop) {
  int ticks = 0;
  int others = 0;
  const auto stopped = loop.timer([&] { ++others; });
  std::unique_ptr<Timer> ending;
  const auto steady = loop.timer([&] { ++ticks; });
  ending = loop.timer([&] { ending.reset(); });
  stopped->start(1);
  stopped->stop();
  EXPECT_FALSE(stopped->running());
  steady->start(2);
  ending->start(1);
  EXPECT_TRUE(steady->running());
  EXPECT_TRUE(turnUntil(loop, [&] { return ticks >= 3 && !ending; })) << ticks;
  EXPECT_EQ(others, 0);
}

inline void expectWorkThatPostsItselfLeavesTimersTheirTurn(EventLoop& loop) {
  int ticks = 0;
  int pieces = 0;
  const auto timer = loop.timer([&] { ++ticks; });
  timer->start(1);
  std::function<void()> again = [&] {
    if (ticks < 3 && ++pieces < 1'000'000) loop.post(again);
  };
  loop.post(again);
  EXPECT_TRUE(turnUntil(loop, [&] { return ticks >= 3; }));
  EXPECT_LT(pieces, 1'000'000) << "the loop turned no more while there was such work";
}

}  // namespace kvo::test
