// Any text as the table of effects: what is taken and written comes back the same (but for quotes inside
// of a field, which end it), what is not changes nothing.
#include "editor/compiler/effects_table.h"
#include "fuzz/fuzz.h"

void kvo::fuzz(std::string_view bytes) {
  EffectsTable table;
  const auto before = table.text(true);
  if (!table.read(bytes)) return require(table.text(true) == before);
  for (const bool quoteAll : {false, true}) {
    EffectsTable once;
    EffectsTable twice;
    require(once.read(table.text(quoteAll)) && twice.read(once.text(quoteAll)) &&
            twice.text(true) == once.text(true));
  }
  require(table.slot(EffectsTable::kPaletteSlots) != nullptr);
}
