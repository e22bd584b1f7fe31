#include "engine/picture/compositor.h"

namespace kvo::engine {
namespace {

constexpr int even(int side) { return (side + 1) & ~1; }

}  // namespace

Compositor::Compositor(const Timeline& timeline, const Habits& habits)
    : width_(even(timeline.width)),
      height_(even(timeline.height)),
      stack_(timeline.video,
             {width_, height_, timeline.frameRate, habits.decoderThreads, habits.keptOpen, habits.damage}) {}

Result<media::Picture> Compositor::frame(std::int64_t number) {
  auto seen = stack_.frame(number);
  if (!seen || (*seen && !seen->hasAlpha())) return seen;
  auto shown = media::Picture::black(width_, height_);
  if (shown && *seen) shown = layOver(shown, *seen);
  if (!shown) return Error{"out of memory for a picture"};
  return shown;
}

}  // namespace kvo::engine
