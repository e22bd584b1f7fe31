// Dissolve: single pixels change over, in an order that has no pattern.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"

#include <cstdint>

namespace kvo::engine {
namespace {

// A number from 0 to 1 that has nothing to do with its neighbours (a finaliser of the MurmurHash3 kind).
double scattered(std::uint32_t x, std::uint32_t y) {
  std::uint32_t h = x * 0x9E3779B1U ^ y * 0x85EBCA77U;
  h = (h ^ (h >> 16U)) * 0x85EBCA6BU;
  h = (h ^ (h >> 13U)) * 0xC2B2AE35U;
  return (h ^ (h >> 16U)) / 4294967295.0;
}

Result<PaintTransition> makeDissolve(const Params& /*params*/, int width, int height) {
  return byThresholds(width, height, 0, [=](double x, double y) {
    return scattered(static_cast<std::uint32_t>(x * width), static_cast<std::uint32_t>(y * height));
  });
}

}  // namespace

const DrawnTransition transitions::Dissolve{makeDissolve};

}  // namespace kvo::engine
