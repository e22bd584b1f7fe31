#include "playback/display/interface_size.h"

#include "playback/display/layout.h"

namespace kvo {
namespace {

constexpr double kLargerTable = 1.25;

}  // namespace

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

double sizeInForce(std::span<const Screen> screens, double choice, bool largeText) {
  const double size = interfaceSize(screens.empty() ? Screen{} : screens.front(),
                                    choice > 0 ? std::optional(choice) : std::nullopt);
  return choice == 0 && size == 1 && largeText ? kLargerTable : size;
}

bool sizeFits(std::span<const Screen> screens, double size) {
  return screens.empty() || interfaceSize(screens.front(), size) == size;
}

}  // namespace kvo
