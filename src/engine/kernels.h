// The inner loops of compositing and conversion: dumb and fast, one row at a time.
#pragma once

#include <cstdint>

namespace kvo::engine {

inline constexpr int kFullShare = 256;  ///< all of the upper picture

/// out = below + (above - below) * share / 256, rounded; `out` may be `below`.
void mixRow(const std::uint8_t* below, const std::uint8_t* above, std::uint8_t* out, int count, int share);

/// Halves two rows into one: each sample is the mean of a square of four.
void halveRows(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out, int outCount);

}  // namespace kvo::engine
