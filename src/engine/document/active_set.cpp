#include "engine/document/active_set.h"

#include <algorithm>
#include <numeric>

namespace kvo::engine {

ActiveSet::ActiveSet(std::vector<Range> ranges) : ranges_(std::move(ranges)), byFirst_(ranges_.size()) {
  std::iota(byFirst_.begin(), byFirst_.end(), std::size_t{0});
  std::stable_sort(byFirst_.begin(), byFirst_.end(),
                   [&](auto a, auto b) { return ranges_[a].first < ranges_[b].first; });
}

const std::vector<std::size_t>& ActiveSet::at(std::int64_t position) {
  if (position < position_) {
    active_.clear();
    next_ = 0;
  }
  position_ = position;
  std::erase_if(active_, [&](auto number) { return ranges_[number].stop <= position; });
  for (; next_ < byFirst_.size() && ranges_[byFirst_[next_]].first <= position; ++next_) {
    const auto number = byFirst_[next_];
    if (ranges_[number].stop > position) {
      active_.insert(std::lower_bound(active_.begin(), active_.end(), number), number);
    }
  }
  return active_;
}

}  // namespace kvo::engine
