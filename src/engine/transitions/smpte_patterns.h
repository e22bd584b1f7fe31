// The shapes of the wipes of SMPTE 258M, by their code.
#pragma once

#include <functional>

namespace kvo::engine {

/// When a point changes over, in units of the pattern's own: the smallest value first, the largest last. The
/// point runs from 0 to 1 across the cell that the pattern fills, downwards in y.
using PatternAt = std::function<double(double x, double y)>;

/// For a cell of `shape` (width over height, in pixels). A code that is not known is a plain wipe to the
/// right.
PatternAt smptePattern(int code, double shape);

}  // namespace kvo::engine
