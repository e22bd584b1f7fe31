#include "engine/kernels.h"

// Compiled once for each instruction set that Highway knows; the best is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/kernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace kvo::engine::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

void mixRowSimd(const std::uint8_t* below, const std::uint8_t* above, std::uint8_t* out, int count,
                int share) {
  const hn::ScalableTag<std::uint16_t> wide;
  const hn::RebindToSigned<decltype(wide)> wideSigned;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const auto shareAbove = hn::Set(wide, static_cast<std::uint16_t>(share));
  const auto shareBelow = hn::Set(wide, static_cast<std::uint16_t>(kFullShare - share));
  const auto half = hn::Set(wide, 128);
  const auto lanes = static_cast<int>(hn::Lanes(wide));
  int i = 0;
  for (; i + lanes <= count; i += lanes) {
    const auto b = hn::PromoteTo(wide, hn::LoadU(narrow, below + i));
    const auto a = hn::PromoteTo(wide, hn::LoadU(narrow, above + i));
    const auto sum = hn::Add(hn::Add(hn::Mul(b, shareBelow), hn::Mul(a, shareAbove)), half);
    hn::StoreU(hn::DemoteTo(narrow, hn::BitCast(wideSigned, hn::ShiftRight<8>(sum))), narrow, out + i);
  }
  for (; i < count; ++i) {
    out[i] = static_cast<std::uint8_t>((below[i] * (kFullShare - share) + above[i] * share + 128) >> 8);
  }
}

void halveRowsSimd(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out, int outCount) {
  int i = 0;
#if HWY_TARGET != HWY_SCALAR  // a lane of one byte has no pairs
  const hn::ScalableTag<std::uint16_t> wide;
  const hn::RebindToSigned<decltype(wide)> wideSigned;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const hn::Repartition<std::uint8_t, decltype(wide)> bytes;
  const auto low = hn::Set(wide, 0x00FF);
  const auto two = hn::Set(wide, 2);
  const auto lanes = static_cast<int>(hn::Lanes(wide));
  // Two neighbouring bytes are the low and the high byte of one 16-bit lane.
  const auto pairSum = [&](const std::uint8_t* row) HWY_ATTR {
    const auto pairs = hn::BitCast(wide, hn::LoadU(bytes, row));
    return hn::Add(hn::And(pairs, low), hn::ShiftRight<8>(pairs));
  };
  for (; i + lanes <= outCount; i += lanes) {
    const auto sum = hn::Add(hn::Add(pairSum(upper + 2 * i), pairSum(lower + 2 * i)), two);
    hn::StoreU(hn::DemoteTo(narrow, hn::BitCast(wideSigned, hn::ShiftRight<2>(sum))), narrow, out + i);
  }
#endif
  for (; i < outCount; ++i) {
    out[i] = static_cast<std::uint8_t>(
        (upper[2 * i] + upper[2 * i + 1] + lower[2 * i] + lower[2 * i + 1] + 2) >> 2);
  }
}

}  // namespace kvo::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kvo::engine {

HWY_EXPORT(mixRowSimd);
HWY_EXPORT(halveRowsSimd);

void mixRow(const std::uint8_t* below, const std::uint8_t* above, std::uint8_t* out, int count, int share) {
  HWY_DYNAMIC_DISPATCH(mixRowSimd)(below, above, out, count, share);
}

void halveRows(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out, int outCount) {
  HWY_DYNAMIC_DISPATCH(halveRowsSimd)(upper, lower, out, outCount);
}

}  // namespace kvo::engine
#endif
