// The palette of 48 named effects in the manner of painting and print.
#pragma once

#include <span>
#include <string_view>

namespace kvo::engine {

/// The names, the first that of "EffectID" 1.
std::span<const std::string_view> paletteNames();

}  // namespace kvo::engine
