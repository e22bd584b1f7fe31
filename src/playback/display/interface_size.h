// How large the skinned windows are: 1, 1.25, 1.5 or 2 times their design.
#pragma once

#include "ports/desktop.h"

#include <array>
#include <optional>
#include <span>

namespace kvo {

inline constexpr std::array kInterfaceSizes{1.0, 1.25, 1.5, 2.0};

/// The user's choice, or else the screen's factor; rounded down to one of the sizes, and to one that the
/// screen has room for.
double interfaceSize(const Screen& screen, std::optional<double> choice);

/// The size for the first of the screens; a `choice` of 0 goes by it, and then by text that is large on the
/// desktop, for which the larger table of places is made.
double sizeInForce(std::span<const Screen> screens, double choice, bool largeText);

/// True when the first of the screens has room for this size.
bool sizeFits(std::span<const Screen> screens, double size);

}  // namespace kvo
