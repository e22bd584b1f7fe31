#include "core/collection.h"

namespace kvo {

void ClearDirtyFlags(Collection& collection, KVO2& settings) {
  for (int i = 1; i <= collection.MovieList.count(); ++i) collection.MovieList[i].IsDirty(false);
  settings.IsDirty(false);
}

bool isDirty(const Collection& collection, const KVO2& settings) {
  for (int i = 1; i <= collection.MovieList.count(); ++i) {
    if (collection.MovieList[i].IsDirty()) return true;
  }
  return settings.IsDirty();
}

}  // namespace kvo
