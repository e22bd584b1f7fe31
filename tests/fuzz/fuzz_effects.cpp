// Any text as the table of effects: what is taken and written comes back the same (but for quotes inside
// of a field, which end it), what is not changes nothing.
#include "editor/compiler/effects_table.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvo::EffectsTable table;
  const auto before = table.text(true);
  if (!table.read({reinterpret_cast<const char*>(data), size})) {
    if (table.text(true) != before) std::abort();
    return 0;
  }
  for (const bool quoteAll : {false, true}) {
    kvo::EffectsTable once;
    kvo::EffectsTable twice;
    if (!once.read(table.text(quoteAll)) || !twice.read(once.text(quoteAll)) ||
        twice.text(true) != once.text(true))
      std::abort();
  }
  if (table.slot(kvo::EffectsTable::kPaletteSlots) == nullptr) std::abort();
  return 0;
}
