#include "core/messages.h"

#include "core/message_table.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <iterator>

namespace kvo {

std::string_view LoadResString(int number) {
  const auto* end = std::end(kNumberedTexts);
  const auto* found = std::lower_bound(std::begin(kNumberedTexts), end, number,
                                       [](const NumberedText& t, int n) { return t.number < n; });
  if (found != end && found->number == number) return found->text;
  assert(!"a text of this number");
  std::fprintf(stderr, "kvo5: there is no text number %d\n", number);
  return {};
}

}  // namespace kvo
