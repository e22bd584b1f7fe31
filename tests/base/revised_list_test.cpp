// Lists that a drawer knows by their revision.
#include "base/revised_list.h"

#include <string>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(RevisedList, HasAnotherRevisionWhereverItsRowsAreOthersAndOnlyThere) {
  using Rows = std::vector<std::string>;
  RevisedList<std::string> list;
  auto seen = list.revision();
  const auto isOther = [&] { return std::exchange(seen, list.revision()) != list.revision(); };
  list.assign({"a", "b"});
  EXPECT_TRUE(isOther());
  list.assign({"a", "b"});
  list.set(0, "a");
  EXPECT_FALSE(isOther());
  list.set(0, "c");
  EXPECT_TRUE(isOther());

  RevisedList<std::string> another;  // of the same age
  another.assign({"x"});
  another.append("y");
  list = another;
  EXPECT_TRUE(isOther()) << "another list's rows";
  EXPECT_EQ(list.rows(), (Rows{"x", "y"}));
  list = another;
  EXPECT_FALSE(isOther());

  EXPECT_EQ(std::exchange(list, {}).rows(), (Rows{"x", "y"}));
  EXPECT_TRUE(isOther()) << "emptied";
  list = std::move(another);  // NOLINT(performance-move-const-arg): what a state struct does with its lists
  EXPECT_TRUE(isOther());
}

}  // namespace
}  // namespace kvo
