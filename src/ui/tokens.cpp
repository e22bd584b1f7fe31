#include "ui/tokens.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kTextContrast = 4.5;
constexpr unsigned kByte = 255;

unsigned channel(Rgb colour, int shift) { return (colour >> shift) & kByte; }

double luminance(Rgb colour) {
  const auto linear = [&](int shift) {
    const double c = channel(colour, shift) / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

Rgb mixedWithWhite(Rgb colour, unsigned share) {
  Rgb mixed = 0;
  for (int shift : {16, 8, 0}) {
    const auto c = channel(colour, shift);
    mixed |= (c + (kByte - c) * share / kByte) << shift;
  }
  return mixed;
}

}  // namespace

double contrast(Rgb a, Rgb b) {
  const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

Rgb readableOn(Rgb plate, Rgb colour) {
  for (unsigned share = 0; share < kByte; ++share) {
    const auto mixed = mixedWithWhite(colour, share);
    if (contrast(mixed, plate) >= kTextContrast) return mixed;
  }
  return 0xFFFFFF;
}

}  // namespace kvo
