// The effects table and its file "\EffectParams.dat" beside the program: reading, writing, and rebuilding it
// where it cannot be used.
#pragma once

#include "editor/tabs/editing.h"

#include <string_view>

namespace kvo {

/// Reads the table from its file. A missing file is written with the defaults; one that cannot be used is
/// told of and replaced by them. A write that fails is tried three times, 100 ms apart.
void LoadEffects(const Editing& e);

/// Writes the table as it stands.
Outcome WriteEffectsArrayToDisk(const Editing& e);

/// The row of a name, for the parameters in it; null for a row that has none, of number 1 to 7. An `effectNo`
/// of 0 becomes that of the effect being worked on. A name that is not in the table is logged, and the table
/// rebuilt.
const EffectRow* GetEffectParams(const Editing& e, std::string_view name, int& effectNo);

}  // namespace kvo
