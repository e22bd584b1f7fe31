// The transitions the engine can draw, by class id. One file a transition, one line in the table.
#pragma once

#include "media/picture.h"

#include <string_view>

namespace kvo::engine {

/// Draws the mix of `below` and `above` at `progress` (0 to 1) into `out`. All three have one size; `out` may
/// be `below`.
using DrawTransition = void (*)(const media::Picture& below, const media::Picture& above, double progress,
                                media::Picture& out);

/// Null for a class id that is not known.
DrawTransition findTransition(std::string_view clsid);

/// The null element that stands for a plain cut.
bool isCutElement(std::string_view clsid);

}  // namespace kvo::engine
