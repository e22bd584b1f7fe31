#include "playback/display/interface_size.h"

#include "playback/display/layout.h"

namespace kvo {
namespace {}  // namespace

double interfaceSize(const Screen& screen, std::optional<double> choice) {
  const double wanted = choice.value_or(screen.factor);
  const auto& room = screen.available;
  const auto fits = [&](double size) {
    return room.width == 0 || (kFaceWidth / kTwipsPerPixel * size <= room.width &&
                               kFaceHeight / kTwipsPerPixel * size <= room.height);
  };
  double best = kInterfaceSizes.front();
  for (const double size : kInterfaceSizes) {
    if (size <= wanted && fits(size)) best = size;
  }
  return best;
}

}  // namespace kvo
