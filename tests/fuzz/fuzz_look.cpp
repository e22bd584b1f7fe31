// Any lines as the answer of who looks into files: what was understood of them is understood again.
#include "base/text.h"
#include "fuzz/fuzz.h"
#include "intake/look_words.h"

namespace {

kvo::MediaLook heard(std::string_view text) {
  kvo::MediaLook look;
  while (!text.empty()) kvo::readLookLine(kvo::nextLine(text), look);
  return look;
}

}  // namespace

void kvo::fuzz(std::string_view text) {
  const auto look = heard(text);
  const auto again = heard(lookLines(look));
  require(again.tags == look.tags && again.errorText == look.errorText &&
          again.facts.width == look.facts.width && again.facts.hasVideo == look.facts.hasVideo &&
          again.facts.codec == look.facts.codec);
}
