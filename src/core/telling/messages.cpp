#include "core/telling/messages.h"

#include "core/telling/message_table.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <iterator>

namespace kvo {

std::string_view LoadResString(int number) {
  const auto* end = std::end(kNumberedTexts);
  const auto* found = std::lower_bound(std::begin(kNumberedTexts), end, number,
                                       [](const NumberedText& t, int n) { return t.number < n; });
  const bool isThere = found != end && found->number == number;
  assert(isThere);
  if (isThere) return found->text;
  std::fprintf(stderr, "kvo5: there is no text number %d\n", number);
  return {};
}

}  // namespace kvo
