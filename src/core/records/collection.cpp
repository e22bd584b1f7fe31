#include "core/records/collection.h"

#include <algorithm>

namespace kvo {

std::vector<Long> freshKeyIDs(const Collection& collection, Long clock, std::size_t count) {
  std::vector<Long> inUse;
  for (int i = 1; i <= collection.MovieList.count(); ++i) inUse.push_back(collection.MovieList[i].KeyID());
  for (int i = 1; i <= collection.KeyframeList.count(); ++i)
    inUse.push_back(collection.KeyframeList[i].ClipName);
  std::sort(inUse.begin(), inUse.end());
  std::vector<Long> keys;
  for (Long key = std::max<Long>(clock, 1); keys.size() < count; ++key) {
    if (!std::binary_search(inUse.begin(), inUse.end(), key)) keys.push_back(key);
  }
  return keys;
}

void ClearDirtyFlags(Collection& collection, KVO2& settings) {
  for (int i = 1; i <= collection.MovieList.count(); ++i) collection.MovieList[i].IsDirty(false);
  settings.state.IsDirty = settings.state.ListIsDirty = false;
}

bool isDirty(const Collection& collection, const KVO2& settings) {
  for (int i = 1; i <= collection.MovieList.count(); ++i) {
    if (collection.MovieList[i].IsDirty()) return true;
  }
  return settings.state.IsDirty || settings.state.ListIsDirty;
}

}  // namespace kvo
