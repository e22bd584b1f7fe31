// The cases of a rule as a table:
//   for (const auto& [name, plays] : Rows<const char*, bool>{{"a.avi", true}, {"a.jpg", false}}) ...
#pragma once

#include <tuple>
#include <vector>

namespace kvo::test {

template <class... Columns>
using Rows = std::vector<std::tuple<Columns...>>;

}  // namespace kvo::test
