#include "media/pixel_rows.h"

#include <algorithm>

// Compiled once for each instruction set that Highway knows; the best is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "media/pixel_rows.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#ifndef KVO_PIXEL_ROWS_ONCE
#define KVO_PIXEL_ROWS_ONCE
namespace kvo::media {

// The weights in units of 1/8192, so that a sample in units of 1/128 gives a colour in units of 1/32.
struct YuvWeights {
  std::int16_t luma, redV, greenU, greenV, blueU;
};

constexpr YuvWeights weightsOf(Matrix matrix) {
  return matrix == Matrix::Bt709 ? YuvWeights{9539, 14686, -1747, -4366, 17305}
                                 : YuvWeights{9539, 13075, -3209, -6660, 16525};
}

// What a sample of chroma adds to luma and to the two chromas when the weights change, in units of 1/32768.
struct MatrixChange {
  std::int16_t lumaU, lumaV, uU, uV, vU, vV;
};

constexpr MatrixChange changeFrom(Matrix from) {
  struct Shares {  // of luma
    double red, blue;
  };
  constexpr Shares k709{0.2126, 0.0722};
  constexpr Shares k601{0.299, 0.114};
  const auto a = from == Matrix::Bt709 ? k709 : k601;
  const auto b = from == Matrix::Bt709 ? k601 : k709;
  const double redV = 2 * (1 - a.red);
  const double blueU = 2 * (1 - a.blue);
  const double greens = (1 - b.red - b.blue) / (1 - a.red - a.blue);
  const double lumaU = blueU * (b.blue - greens * a.blue);
  const double lumaV = redV * (b.red - greens * a.red);
  const double toU = 2 * (1 - b.blue);
  const double toV = 2 * (1 - b.red);
  const auto fixed = [](double factor) {
    return static_cast<std::int16_t>(factor * 32768 + (factor < 0 ? -0.5 : 0.5));
  };
  constexpr double kLumaRange = 219.0 / 224;
  return {fixed(lumaU * kLumaRange), fixed(lumaV * kLumaRange), fixed((blueU - lumaU) / toU - 1),
          fixed(-lumaV / toU),       fixed(-lumaU / toV),       fixed((redV - lumaV) / toV - 1)};
}

}  // namespace kvo::media
#endif

HWY_BEFORE_NAMESPACE();
namespace kvo::media::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

void mixRowSimd(const std::uint8_t* below, const std::uint8_t* above, std::uint8_t* out, std::size_t count,
                int share) {
  const hn::ScalableTag<std::uint16_t> wide;
  const hn::RebindToSigned<decltype(wide)> wideSigned;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const auto shareAbove = hn::Set(wide, static_cast<std::uint16_t>(share));
  const auto shareBelow = hn::Set(wide, static_cast<std::uint16_t>(kFullShare - share));
  const auto half = hn::Set(wide, 128);
  const std::size_t lanes = hn::Lanes(wide);
  std::size_t i = 0;
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

void mixRowBySharesSimd(const std::uint8_t* below, const std::uint8_t* above, const std::uint8_t* shares,
                        std::uint8_t* out, std::size_t count) {
  const hn::ScalableTag<std::uint16_t> wide;
  const hn::RebindToSigned<decltype(wide)> wideSigned;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const auto full = hn::Set(wide, 255);
  const auto half = hn::Set(wide, 128);
  const std::size_t lanes = hn::Lanes(wide);
  std::size_t i = 0;
  for (; i + lanes <= count; i += lanes) {
    const auto b = hn::PromoteTo(wide, hn::LoadU(narrow, below + i));
    const auto a = hn::PromoteTo(wide, hn::LoadU(narrow, above + i));
    const auto s = hn::PromoteTo(wide, hn::LoadU(narrow, shares + i));
    // Division by 255, rounded: (v + 128 + (v + 128) / 256) / 256.
    const auto v = hn::Add(hn::Add(hn::Mul(b, hn::Sub(full, s)), hn::Mul(a, s)), half);
    const auto mixed = hn::ShiftRight<8>(hn::Add(v, hn::ShiftRight<8>(v)));
    hn::StoreU(hn::DemoteTo(narrow, hn::BitCast(wideSigned, mixed)), narrow, out + i);
  }
  for (; i < count; ++i) {
    const int v = below[i] * (255 - shares[i]) + above[i] * shares[i] + 128;
    out[i] = static_cast<std::uint8_t>((v + (v >> 8)) >> 8);
  }
}

// Division by 255, rounded, of what fits into 16 bits.
int by255(int v) { return (v + 128 + ((v + 128) >> 8)) >> 8; }

void overRowSimd(const std::uint8_t* below, const std::uint8_t* above, const std::uint8_t* alpha,
                 std::uint8_t* out, std::size_t count, std::uint8_t black) {
  const hn::ScalableTag<std::uint16_t> wide;
  const hn::RebindToSigned<decltype(wide)> wideSigned;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const auto full = hn::Set(wide, 255);
  const auto half = hn::Set(wide, 128);
  const auto dark = hn::Set(wide, black);
  const std::size_t lanes = hn::Lanes(wide);
  std::size_t i = 0;
  // below * (255 - alpha) + black * alpha is at most 255 * 255; what is black twice is taken off at the end.
  for (; i + lanes <= count; i += lanes) {
    const auto b = hn::PromoteTo(wide, hn::LoadU(narrow, below + i));
    const auto a = hn::PromoteTo(wide, hn::LoadU(narrow, above + i));
    const auto s = hn::PromoteTo(wide, hn::LoadU(narrow, alpha + i));
    const auto v = hn::Add(hn::Add(hn::Mul(b, hn::Sub(full, s)), hn::Mul(dark, s)), half);
    const auto left = hn::ShiftRight<8>(hn::Add(v, hn::ShiftRight<8>(v)));
    const auto sum = hn::Sub(hn::BitCast(wideSigned, hn::Add(left, a)), hn::BitCast(wideSigned, dark));
    hn::StoreU(hn::DemoteTo(narrow, sum), narrow, out + i);
  }
  for (; i < count; ++i) {
    const int left = by255(below[i] * (255 - alpha[i]) + black * alpha[i]);
    out[i] = static_cast<std::uint8_t>(std::clamp(left + above[i] - black, 0, 255));
  }
}

void fadeRowSimd(const std::uint8_t* row, const std::uint8_t* factors, std::uint8_t* out, std::size_t count,
                 std::uint8_t black) {
  const hn::ScalableTag<std::uint16_t> wide;
  const hn::RebindToSigned<decltype(wide)> wideSigned;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const auto full = hn::Set(wide, 255);
  const auto half = hn::Set(wide, 128);
  const auto dark = hn::Set(wide, black);
  const std::size_t lanes = hn::Lanes(wide);
  std::size_t i = 0;
  for (; i + lanes <= count; i += lanes) {
    const auto r = hn::PromoteTo(wide, hn::LoadU(narrow, row + i));
    const auto f = hn::PromoteTo(wide, hn::LoadU(narrow, factors + i));
    const auto v = hn::Add(hn::Add(hn::Mul(r, f), hn::Mul(dark, hn::Sub(full, f))), half);
    const auto faded = hn::ShiftRight<8>(hn::Add(v, hn::ShiftRight<8>(v)));
    hn::StoreU(hn::DemoteTo(narrow, hn::BitCast(wideSigned, faded)), narrow, out + i);
  }
  for (; i < count; ++i)
    out[i] = static_cast<std::uint8_t>(by255(row[i] * factors[i] + black * (255 - factors[i])));
}

void sharesRowSimd(const std::uint16_t* thresholds, int position, int softness, std::uint8_t* shares,
                   std::size_t count) {
  const hn::ScalableTag<std::int32_t> wide;
  const hn::Rebind<std::uint16_t, decltype(wide)> thresholdLane;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const int scale = (255 * 65536 + softness / 2) / softness;
  const auto at = hn::Set(wide, position);
  const auto most = hn::Set(wide, softness);
  const auto factor = hn::Set(wide, scale);
  const auto half = hn::Set(wide, 32768);
  const std::size_t lanes = hn::Lanes(wide);
  std::size_t i = 0;
  for (; i + lanes <= count; i += lanes) {
    const auto t = hn::PromoteTo(wide, hn::LoadU(thresholdLane, thresholds + i));
    const auto past = hn::Min(hn::Max(hn::Sub(at, t), hn::Zero(wide)), most);
    hn::StoreU(hn::DemoteTo(narrow, hn::ShiftRight<16>(hn::Add(hn::Mul(past, factor), half))), narrow,
               shares + i);
  }
  for (; i < count; ++i) {
    const int past = std::clamp(position - thresholds[i], 0, softness);
    shares[i] = static_cast<std::uint8_t>((past * scale + 32768) >> 16);
  }
}

void halveRowsSimd(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
                   std::size_t outCount) {
  std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR  // a lane of one byte has no pairs
  const hn::ScalableTag<std::uint16_t> wide;
  const hn::RebindToSigned<decltype(wide)> wideSigned;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const hn::Repartition<std::uint8_t, decltype(wide)> bytes;
  const auto low = hn::Set(wide, 0x00FF);
  const auto two = hn::Set(wide, 2);
  const std::size_t lanes = hn::Lanes(wide);
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

std::uint8_t colour(int lumaPart, int a, int b) {
  return static_cast<std::uint8_t>(std::clamp((lumaPart + a + b + 16) >> 5, 0, 255));
}

// A 16-bit product of a sample in 1/128 with a weight, rounded as the vector form rounds it.
int weigh(int sample, int weight) { return (sample * 128 * weight + (1 << 14)) >> 15; }

void yuvToBgrSimd(const std::uint8_t* y, const std::uint8_t* u, const std::uint8_t* v, std::uint8_t* bgr,
                  std::size_t count, const YuvWeights& w) {
  std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
  // A chroma sample serves the two pixels of one pair: even pixels in one vector, odd ones in another.
  const hn::ScalableTag<std::int16_t> wide;
  const hn::Repartition<std::uint8_t, decltype(wide)> bytes;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const hn::RebindToUnsigned<decltype(wide)> wideUnsigned;
  const std::size_t lanes = hn::Lanes(wide);
  const auto sixteen = hn::Set(wide, 16);
  const auto middle = hn::Set(wide, 128);
  const auto lowByte = hn::Set(wideUnsigned, 0x00FF);
  const auto scaled = [&](auto sample, std::int16_t weight) HWY_ATTR {
    return hn::MulFixedPoint15(hn::ShiftLeft<7>(sample), hn::Set(wide, weight));
  };
  for (; i + 2 * lanes <= count; i += 2 * lanes) {
    const auto pairs = hn::BitCast(wideUnsigned, hn::LoadU(bytes, y + i));
    const auto even = hn::BitCast(wide, hn::And(pairs, lowByte));
    const auto odd = hn::BitCast(wide, hn::ShiftRight<8>(pairs));
    const auto cu = hn::Sub(hn::PromoteTo(wide, hn::LoadU(narrow, u + i / 2)), middle);
    const auto cv = hn::Sub(hn::PromoteTo(wide, hn::LoadU(narrow, v + i / 2)), middle);
    const auto red = hn::Add(scaled(cv, w.redV), sixteen);
    const auto green = hn::Add(hn::Add(scaled(cu, w.greenU), scaled(cv, w.greenV)), sixteen);
    const auto blue = hn::Add(scaled(cu, w.blueU), sixteen);
    const auto lumaEven = scaled(hn::Sub(even, sixteen), w.luma);
    const auto lumaOdd = scaled(hn::Sub(odd, sixteen), w.luma);
    // Clamped to a byte, even pixels below, odd ones above, so that the lanes read in pixel order.
    const auto join = [&](auto part) HWY_ATTR {
      const auto zero = hn::Zero(wide);
      const auto most = hn::Set(wide, 255);
      const auto e = hn::Min(hn::Max(hn::ShiftRight<5>(hn::Add(lumaEven, part)), zero), most);
      const auto o = hn::Min(hn::Max(hn::ShiftRight<5>(hn::Add(lumaOdd, part)), zero), most);
      return hn::BitCast(bytes, hn::Or(e, hn::ShiftLeft<8>(o)));
    };
    hn::StoreInterleaved3(join(blue), join(green), join(red), bytes, bgr + 3 * i);
  }
#endif
  for (; i < count; ++i) {
    const int luma = weigh(y[i] - 16, w.luma);
    const int cu = u[i / 2] - 128;
    const int cv = v[i / 2] - 128;
    bgr[3 * i] = colour(luma, weigh(cu, w.blueU), 0);
    bgr[3 * i + 1] = colour(luma, weigh(cu, w.greenU), weigh(cv, w.greenV));
    bgr[3 * i + 2] = colour(luma, weigh(cv, w.redV), 0);
  }
}

// A sum of parts in 1/128, to the nearest whole.
int whole(int parts) { return (parts + 64) >> 7; }

void changeMatrixSimd(std::uint8_t* upper, std::uint8_t* lower, std::uint8_t* u, std::uint8_t* v,
                      std::size_t chromaCount, const MatrixChange& m) {
  std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
  const hn::ScalableTag<std::int16_t> wide;
  const hn::Repartition<std::uint8_t, decltype(wide)> bytes;
  const hn::Rebind<std::uint8_t, decltype(wide)> narrow;
  const hn::RebindToUnsigned<decltype(wide)> wideUnsigned;
  const std::size_t lanes = hn::Lanes(wide);
  const auto middle = hn::Set(wide, 128);
  const auto half = hn::Set(wide, 64);
  const auto lowByte = hn::Set(wideUnsigned, 0x00FF);
  const auto weighed = [&](auto cu, std::int16_t byU, auto cv, std::int16_t byV) HWY_ATTR {
    return hn::Add(hn::MulFixedPoint15(cu, hn::Set(wide, byU)), hn::MulFixedPoint15(cv, hn::Set(wide, byV)));
  };
  const auto rounded = [&](auto parts) HWY_ATTR { return hn::ShiftRight<7>(hn::Add(parts, half)); };
  for (; i + lanes <= chromaCount; i += lanes) {
    const auto cu = hn::ShiftLeft<7>(hn::Sub(hn::PromoteTo(wide, hn::LoadU(narrow, u + i)), middle));
    const auto cv = hn::ShiftLeft<7>(hn::Sub(hn::PromoteTo(wide, hn::LoadU(narrow, v + i)), middle));
    const auto luma = rounded(weighed(cu, m.lumaU, cv, m.lumaV));
    for (auto* row : {upper, lower}) {
      const auto pairs = hn::BitCast(wideUnsigned, hn::LoadU(bytes, row + 2 * i));
      const auto zero = hn::Zero(wide);
      const auto most = hn::Set(wide, 255);
      const auto even =
          hn::Min(hn::Max(hn::Add(hn::BitCast(wide, hn::And(pairs, lowByte)), luma), zero), most);
      const auto odd =
          hn::Min(hn::Max(hn::Add(hn::BitCast(wide, hn::ShiftRight<8>(pairs)), luma), zero), most);
      hn::StoreU(hn::BitCast(bytes, hn::Or(even, hn::ShiftLeft<8>(odd))), bytes, row + 2 * i);
    }
    const auto newU = hn::Add(rounded(hn::Add(cu, weighed(cu, m.uU, cv, m.uV))), middle);
    const auto newV = hn::Add(rounded(hn::Add(cv, weighed(cu, m.vU, cv, m.vV))), middle);
    hn::StoreU(hn::DemoteTo(narrow, newU), narrow, u + i);
    hn::StoreU(hn::DemoteTo(narrow, newV), narrow, v + i);
  }
#endif
  for (; i < chromaCount; ++i) {
    const int cu = u[i] - 128;
    const int cv = v[i] - 128;
    const int luma = whole(weigh(cu, m.lumaU) + weigh(cv, m.lumaV));
    for (auto* row : {upper, lower}) {
      for (const auto x : {2 * i, 2 * i + 1})
        row[x] = static_cast<std::uint8_t>(std::clamp(row[x] + luma, 0, 255));
    }
    const auto changed = [&](int own, int parts) {
      return static_cast<std::uint8_t>(std::clamp(whole(own * 128 + parts) + 128, 0, 255));
    };
    u[i] = changed(cu, weigh(cu, m.uU) + weigh(cv, m.uV));
    v[i] = changed(cv, weigh(cu, m.vU) + weigh(cv, m.vV));
  }
}

}  // namespace kvo::media::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kvo::media {

HWY_EXPORT(mixRowSimd);
HWY_EXPORT(mixRowBySharesSimd);
HWY_EXPORT(overRowSimd);
HWY_EXPORT(fadeRowSimd);
HWY_EXPORT(sharesRowSimd);
HWY_EXPORT(halveRowsSimd);
HWY_EXPORT(yuvToBgrSimd);
HWY_EXPORT(changeMatrixSimd);

void mixRow(const std::uint8_t* below, const std::uint8_t* above, std::uint8_t* out, std::size_t count,
            int share) {
  HWY_DYNAMIC_DISPATCH(mixRowSimd)(below, above, out, count, share);
}

void mixRowByShares(const std::uint8_t* below, const std::uint8_t* above, const std::uint8_t* shares,
                    std::uint8_t* out, std::size_t count) {
  HWY_DYNAMIC_DISPATCH(mixRowBySharesSimd)(below, above, shares, out, count);
}

void overRow(const std::uint8_t* below, const std::uint8_t* above, const std::uint8_t* alpha,
             std::uint8_t* out, std::size_t count, std::uint8_t black) {
  HWY_DYNAMIC_DISPATCH(overRowSimd)(below, above, alpha, out, count, black);
}

void fadeRow(const std::uint8_t* row, const std::uint8_t* factors, std::uint8_t* out, std::size_t count,
             std::uint8_t black) {
  HWY_DYNAMIC_DISPATCH(fadeRowSimd)(row, factors, out, count, black);
}

void sharesRow(const std::uint16_t* thresholds, int position, int softness, std::uint8_t* shares,
               std::size_t count) {
  HWY_DYNAMIC_DISPATCH(sharesRowSimd)(thresholds, position, softness, shares, count);
}

void halveRows(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
               std::size_t outCount) {
  HWY_DYNAMIC_DISPATCH(halveRowsSimd)(upper, lower, out, outCount);
}

void yuvToBgr(const std::uint8_t* y, const std::uint8_t* u, const std::uint8_t* v, std::uint8_t* bgr,
              std::size_t count, Matrix matrix) {
  HWY_DYNAMIC_DISPATCH(yuvToBgrSimd)(y, u, v, bgr, count, weightsOf(matrix));
}

void changeMatrix(std::uint8_t* upper, std::uint8_t* lower, std::uint8_t* u, std::uint8_t* v,
                  std::size_t chromaCount, Matrix from) {
  constexpr auto kFrom601 = changeFrom(Matrix::Bt601);
  constexpr auto kFrom709 = changeFrom(Matrix::Bt709);
  HWY_DYNAMIC_DISPATCH(changeMatrixSimd)
  (upper, lower, u, v, chromaCount, from == Matrix::Bt709 ? kFrom709 : kFrom601);
}

}  // namespace kvo::media
#endif
