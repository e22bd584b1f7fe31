#include "engine/picture/compositor.h"

namespace kvo::engine {

Compositor::Compositor(const Timeline& timeline, const Habits& habits)
    : size_(frameSizeOf(timeline)),
      planner_(timeline),
      scout_(timeline),
      stack_(timeline.video, {size_, habits.decoderThreads, habits.keptOpen, habits.damage, habits.files}) {}

Result<media::Picture> Compositor::frame(std::int64_t number) {
  return onBlack(stack_.draw(planner_.at(number)));
}

Result<double> Compositor::approach(std::int64_t number, double most) {
  return stack_.approach(planner_.at(number), most);
}

Result<media::Picture> Compositor::roughFrame(std::int64_t number) {
  return onBlack(stack_.drawAsItStands(planner_.at(number)));
}

Result<media::Picture> Compositor::onBlack(Result<media::Picture> seen) const {
  if (!seen || (*seen && !seen->hasAlpha())) return seen;
  auto shown = share(media::Canvas::black(size_.width, size_.height));
  if (*seen) shown = layOver(shown, *seen);
  return shown;
}

void Compositor::expect(std::int64_t number) { stack_.expect(scout_.at(number)); }

}  // namespace kvo::engine
