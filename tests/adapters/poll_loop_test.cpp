#include "adapters/posix/poll_loop.h"

#include "support/loop_rules.h"

#include <functional>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(PollLoop, HoldsToTheRules) {
  PollLoop loop;
  test::expectWorkOfOtherThreadsComesHomeInOrder(loop);
  test::expectTimersTickUntilTheyAreStopped(loop);
}

TEST(PollLoop, RunsUntilItIsToQuit) {
  PollLoop loop;
  int ticks = 0;
  const auto timer = loop.timer([&] { ++ticks; });
  timer->start(1);
  // Work that posts itself anew does not keep the timers waiting.
  std::function<void()> again = [&] {
    if (ticks < 3) loop.post(again);
  };
  loop.post(again);
  const auto end = loop.timer([&] {
    if (ticks >= 3) loop.quit();
  });
  end->start(1);
  loop.run();
  EXPECT_GE(ticks, 3);
}

}  // namespace
}  // namespace kvo
