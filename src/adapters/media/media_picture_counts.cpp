#include "adapters/media/media_picture_counts.h"

#include "base/guarded.h"
#include "media/picture_times.h"

namespace kvo {

MediaPictureCounts::MediaPictureCounts(EventLoop& loop, MediaContents& facts)
    : facts_(facts),
      count_(
          loop, [this](const Wish& wish) { return unevenBegins(wish); },
          [this](const Wish& wish, std::vector<double> begins) {
            if (heard_ && !begins.empty()) heard_(wish.path, std::move(begins));
          }) {}

// On the other thread. None where a rate says it, or nothing does.
std::vector<double> MediaPictureCounts::unevenBegins(const Wish& wish) {
  const auto facts = facts_.facts(wish.path);
  if (!facts || !facts->hasVideo || facts->isStill) return {};
  auto begins = guarded([&] {
    return media::readUnevenTimes(wish.path, facts->steadyRate, [&] { return wish.number == wishes_; });
  });
  return begins ? std::move(*begins) : std::vector<double>();
}

}  // namespace kvo
