#include "adapters/posix/poll_loop.h"

#include "support/loop_rules.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(PollLoop, HoldsToTheRules) {
  PollLoop loop;
  test::expectWorkOfOtherThreadsComesHomeInOrder(loop);
  test::expectTimersTickUntilTheyAreStopped(loop);
  test::expectWorkThatPostsItselfLeavesTimersTheirTurn(loop);
}

TEST(PollLoop, RunsUntilItIsToQuit) {
  PollLoop loop;
  int ticks = 0;
  const auto timer = loop.timer([&] {
    if (++ticks == 3) loop.quit();
  });
  timer->start(1);
  loop.run();
  EXPECT_EQ(ticks, 3);
  loop.quit();
  loop.run();
  EXPECT_EQ(ticks, 3) << "what has ended ahead of it is not waited for";
}

}  // namespace
}  // namespace kvo
