// The inner loops of compositing and conversion: dumb and fast, one row at a time.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kvo::media {

inline constexpr int kFullShare = 256;  ///< all of the upper picture

/// out = below + (above - below) * share / 256, rounded; `out` may be `below`.
void mixRow(const std::uint8_t* below, const std::uint8_t* above, std::uint8_t* out, std::size_t count,
            int share);

/// As mixRow with a share for each sample, 0 to 255; 255 is all of the upper picture.
void mixRowByShares(const std::uint8_t* below, const std::uint8_t* above, const std::uint8_t* shares,
                    std::uint8_t* out, std::size_t count);

/// out = above over below, premultiplied: above + (below - black) * (255 - alpha) / 255. `black` is what the
/// plane holds where nothing is seen; `out` may be `below`.
void overRow(const std::uint8_t* below, const std::uint8_t* above, const std::uint8_t* alpha,
             std::uint8_t* out, std::size_t count, std::uint8_t black);

/// out = black + (row - black) * factors / 255.
void fadeRow(const std::uint8_t* row, const std::uint8_t* factors, std::uint8_t* out, std::size_t count,
             std::uint8_t black);

/// The share, 0 to 255, of each sample that changes over between its threshold and `softness` beyond it, when
/// the way has come to `position`. `softness` is 1 to 65535.
void sharesRow(const std::uint16_t* thresholds, int position, int softness, std::uint8_t* shares,
               std::size_t count);

/// Halves two rows into one: each sample is the mean of a square of four.
void halveRows(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out, std::size_t outCount);

/// Which luma weights a YUV picture was made with.
enum class Matrix { Bt601, Bt709 };

/// Two rows of luma and the chroma rows that go with them, made with the weights of one matrix, in those of
/// the other; in place. The luma rows are 2 x `chromaCount` long.
void changeMatrix(std::uint8_t* upper, std::uint8_t* lower, std::uint8_t* u, std::uint8_t* v,
                  std::size_t chromaCount, Matrix from);

/// One row of limited-range YUV 4:2:0 as packed blue, green, red bytes. The chroma rows are `count` / 2 long,
/// rounded up.
void yuvToBgr(const std::uint8_t* y, const std::uint8_t* u, const std::uint8_t* v, std::uint8_t* bgr,
              std::size_t count, Matrix matrix);

}  // namespace kvo::media
