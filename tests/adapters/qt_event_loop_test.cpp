#include "adapters/qt/qt_event_loop.h"

#include "support/loop_rules.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(QtEventLoop, HoldsToTheRulesAndDrawsWhatHasChanged) {
  int words = 1;
  std::string name = "test";
  char* arguments[] = {name.data(), nullptr};
  const QCoreApplication application(words, arguments);
  int drawn = 0;
  QtEventLoop loop([&] { ++drawn; });
  test::expectWorkOfOtherThreadsComesHomeInOrder(loop);
  EXPECT_GE(drawn, 100);
  test::expectTimersTickUntilTheyAreStopped(loop);
  test::expectWorkThatPostsItselfLeavesTimersTheirTurn(loop);
}

}  // namespace
}  // namespace kvo
