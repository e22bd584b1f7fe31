// Where a movie can be parted, so that its parts are made side by side.
#pragma once

#include "engine/document/timeline.h"

#include <cstdint>
#include <vector>

namespace kvo::engine {

/// Frames `first` up to `stop`.
struct Segment {
  std::int64_t first = 0;
  std::int64_t stop = 0;
  bool operator==(const Segment&) const = default;
};

/// Parts the frames `first` up to `stop`. A segment begins where little has to be decoded that is not shown:
/// best at a cut, next behind a transition; none is shorter than four seconds but the only one. The same
/// timeline is always parted in the same way.
std::vector<Segment> segmentsOf(const Timeline& timeline, std::int64_t first, std::int64_t stop);

}  // namespace kvo::engine
