#include "media/damage.h"

#include <algorithm>
#include <tuple>

namespace kvo::media {
namespace {

constexpr double kTouching = 0.1;  // seconds; holes that lie closer are told as one

}  // namespace

void DamageList::add(const Damage& hole) {
  const std::lock_guard lock(mutex_);
  holes_.push_back(hole);
}

std::vector<Damage> DamageList::all() const {
  auto holes = [this] {
    const std::lock_guard lock(mutex_);
    return holes_;
  }();
  std::sort(holes.begin(), holes.end(), [](const auto& a, const auto& b) {
    return std::tie(a.path, a.lost, a.from) < std::tie(b.path, b.lost, b.from);
  });
  std::vector<Damage> merged;
  for (auto& hole : holes) {
    if (!merged.empty() && merged.back().path == hole.path && merged.back().lost == hole.lost &&
        hole.from <= merged.back().to + kTouching) {
      merged.back().to = std::max(merged.back().to, hole.to);
    } else {
      merged.push_back(std::move(hole));
    }
  }
  return merged;
}

}  // namespace kvo::media
