// Any lines as the answer of who looks into files: what was understood of them is understood again.
#include "base/text.h"
#include "intake/look_words.h"

#include <cstdlib>

namespace {

kvo::MediaLook heard(std::string_view text) {
  kvo::MediaLook look;
  while (!text.empty()) kvo::readLookLine(kvo::nextLine(text), look);
  return look;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto look = heard({reinterpret_cast<const char*>(data), size});
  const auto again = heard(kvo::lookLines(look));
  if (again.tags != look.tags || again.errorText != look.errorText || again.facts.width != look.facts.width ||
      again.facts.hasVideo != look.facts.hasVideo || again.facts.codec != look.facts.codec)
    std::abort();
  return 0;
}
