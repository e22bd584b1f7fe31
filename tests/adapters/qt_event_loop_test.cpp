#include "adapters/qt/qt_event_loop.h"

#include <QCoreApplication>
#include <chrono>
#include <numeric>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(QtEventLoop, WorkOfOtherThreadsComesHomeInOrder) {
  int words = 1;
  std::string name = "test";
  char* arguments[] = {name.data(), nullptr};
  const QCoreApplication application(words, arguments);
  int drawn = 0;
  QtEventLoop loop([&] { ++drawn; });
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
  const auto before = loop.now();
  while (done.size() < 100 && loop.now() - before < std::chrono::seconds(30)) loop.yield();
  std::vector<int> wanted(100);
  std::iota(wanted.begin(), wanted.end(), 0);
  EXPECT_EQ(done, wanted);
  EXPECT_FALSE(elsewhere);
  EXPECT_GE(drawn, 100) << "what it changed is drawn";
}

}  // namespace
}  // namespace kvo
