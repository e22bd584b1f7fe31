// What the user sets in the editor and no file of a collection has.
#pragma once

#include "editor/tabs/editing.h"
#include "editor/tabs/overlay_tab.h"
#include "program/record_step.h"

#include <vector>

namespace kvo {

/// The sound of an overlay and its backdrop, the usual length of stills, and the effects table. `e` and
/// `overlay` outlive them.
std::vector<ValueBeside> valuesBeside(const Editing& e, OverlayTab& overlay);

}  // namespace kvo
