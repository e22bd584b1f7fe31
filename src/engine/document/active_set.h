// Which of many ranges hold a moving position. Moving forward costs what comes and goes, not how many there
// are; moving back starts over.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kvo::engine {

class ActiveSet {
 public:
  struct Range {
    std::int64_t first = 0;
    std::int64_t stop = 0;  ///< the first position behind it
  };

  explicit ActiveSet(std::vector<Range> ranges);

  /// The numbers of the ranges that hold `position`, in ascending order.
  const std::vector<std::size_t>& at(std::int64_t position);

  [[nodiscard]] const Range& operator[](std::size_t number) const { return ranges_[number]; }

 private:
  std::vector<Range> ranges_;
  std::vector<std::size_t> byFirst_;
  std::vector<std::size_t> active_;
  std::size_t next_ = 0;  // in byFirst_
  std::int64_t position_ = INT64_MIN;
};

}  // namespace kvo::engine
