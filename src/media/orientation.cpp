#include "media/orientation.h"

#include "media/ffmpeg.h"

#include <cstdlib>

namespace kvo::media {

// The matrix is a b u c d v x y w: a point (p, q) is shown at (a p + c q, b p + d q).
Orientation orientationOf(const AVFrame& frame) {
  const auto* side = av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX);
  if (side == nullptr || side->size < 9 * sizeof(std::int32_t)) return {};
  const auto* m = reinterpret_cast<const std::int32_t*>(side->data);
  const std::int64_t a = m[0];
  const std::int64_t b = m[1];
  const std::int64_t c = m[3];
  const std::int64_t d = m[4];
  if (std::llabs(b) + std::llabs(c) > std::llabs(a) + std::llabs(d)) return {true, c < 0, b < 0};
  return {false, a < 0, d < 0};
}

Picture oriented(const Picture& picture, const Orientation& turn) {
  const int width = turn.swapsSides ? picture.height() : picture.width();
  const int height = turn.swapsSides ? picture.width() : picture.height();
  auto out = picture.hasAlpha() ? Canvas::makeWithAlpha(width, height) : Canvas::make(width, height);
  for (int plane = 0; plane < out.planes(); ++plane) {
    const int columns = out.width(plane);
    const int rows = out.height(plane);
    for (int y = 0; y < rows; ++y) {
      auto* row = out.row(plane, y);
      const int across = turn.mirrorsDown ? rows - 1 - y : y;
      for (int x = 0; x < columns; ++x) {
        const int down = turn.mirrorsAcross ? columns - 1 - x : x;
        row[x] = turn.swapsSides ? picture.row(plane, down)[across] : picture.row(plane, across)[down];
      }
    }
  }
  return share(std::move(out));
}

}  // namespace kvo::media
