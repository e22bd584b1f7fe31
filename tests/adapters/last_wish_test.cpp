#include "ports/last_wish.h"

#include "support/virtual_loop.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(LastWish, AnswersWithAnErrorWhereFindingThrows) {
  test::VirtualLoop loop;
  std::string told;
  LastWish<int, Result<int>> wishes(
      loop,
      [](const int& wish) -> Result<int> { return wish > 0 ? wish : throw std::runtime_error("no room"); },
      [&](const int& /*wish*/, Result<int> answer) {
        told = answer ? std::to_string(*answer) : answer.error().text;
      });
  wishes.want(-1);
  ASSERT_TRUE(loop.workComesHome());
  EXPECT_EQ(told, "no room");
  wishes.want(7);
  ASSERT_TRUE(loop.workComesHome());
  EXPECT_EQ(told, "7") << "the thread lives on";

  int plain = -1;
  LastWish<int, int> numbers(
      loop, [](const int& /*wish*/) -> int { throw std::bad_alloc(); },
      [&](const int& /*wish*/, int answer) { plain = answer; });
  numbers.want(1);
  ASSERT_TRUE(loop.workComesHome());
  EXPECT_EQ(plain, 0) << "an empty answer";
}

}  // namespace
}  // namespace kvo
