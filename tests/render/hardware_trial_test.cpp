// Which encoder of a device works, by processes that answer, fail, crash and hang.
#include "render/hardware_trial.h"

#include "support/fake_processes.h"
#include "support/virtual_loop.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct TrialBench {
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  int told = 0;
  HardwareTrial trial{{processes, loop, "/bin/KVORender", {"one", "two", "three"}}, [this] { ++told; }};
};

TEST(HardwareTrial, TakesTheFirstThatWorks) {
  TrialBench b;
  b.trial.begin();
  b.trial.begin();
  ASSERT_EQ(b.processes.all.size(), 1U) << "once";
  EXPECT_EQ(b.processes.last().order.program, "/bin/KVORender");
  EXPECT_EQ(b.processes.last().order.arguments, (std::vector<std::string>{"--try-encoder", "one"}));
  b.processes.sayError("no such device");
  b.processes.end(1);
  ASSERT_EQ(b.processes.all.size(), 2U);
  b.loop.advance(HardwareTrial::kPatience - 1);
  EXPECT_EQ(b.processes.all.size(), 2U);
  b.loop.advance(1);
  EXPECT_TRUE(b.processes.all[1]->destroyed) << "it hangs";
  ASSERT_EQ(b.processes.all.size(), 3U);
  EXPECT_FALSE(b.trial.found());
  b.processes.end(0);
  ASSERT_TRUE(b.trial.found());
  EXPECT_EQ(b.trial.found()->encoder, "three");
  b.loop.advance(10 * HardwareTrial::kPatience);
  b.trial.begin();
  EXPECT_EQ(b.told, 1);
  EXPECT_EQ(b.processes.all.size(), 3U);
}

TEST(HardwareTrial, TellsWhyNoneDoes) {
  TrialBench b;
  b.trial.begin();
  b.processes.sayError("no such device");
  b.processes.end(1);
  b.processes.end(139, 11);
  b.loop.advance(HardwareTrial::kPatience);
  ASSERT_TRUE(b.trial.found());
  EXPECT_EQ(b.trial.found()->encoder, "");
  EXPECT_EQ(b.trial.found()->why, "one: no such device; two: it crashes; three: it does not answer");
  TrialBench none;
  none.processes.refusal = "cannot start";
  none.trial.begin();
  EXPECT_EQ(none.told, 1);
  EXPECT_EQ(none.trial.found()->why, "one: cannot start; two: cannot start; three: cannot start");
}

}  // namespace
}  // namespace kvo
