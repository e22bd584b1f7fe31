#include "media/orientation.h"

#include "base/exif.h"
#include "media/ffmpeg.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace kvo::media {

// The matrix is a b u c d v x y w: a point (p, q) is shown at (a p + c q, b p + d q).
Orientation orientationOfMatrix(const std::uint8_t* matrix) {
  const auto* m = reinterpret_cast<const std::int32_t*>(matrix);
  const std::int64_t a = m[0];
  const std::int64_t b = m[1];
  const std::int64_t c = m[3];
  const std::int64_t d = m[4];
  if (std::llabs(b) + std::llabs(c) > std::llabs(a) + std::llabs(d)) return {true, c < 0, b < 0};
  return {false, a < 0, d < 0};
}

Orientation orientationOf(const AVFrame& frame) {
  const auto* side = av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX);
  return side == nullptr || side->size < kMatrixBytes ? Orientation() : orientationOfMatrix(side->data);
}

Orientation orientationOfExif(int exif) {
  switch (exif) {
    case 2:
      return {false, true, false};
    case 3:
      return {false, true, true};
    case 4:
      return {false, false, true};
    case 5:
      return {true, false, false};
    case 6:
      return {true, true, false};
    case 7:
      return {true, true, true};
    case 8:
      return {true, false, true};
    default:
      return {};
  }
}

int exifOfFile(const std::string& path) {
  constexpr std::size_t kMost = 256U << 20U;
  std::ifstream file(path, std::ios::binary);
  std::string bytes(kExifHead, '\0');
  const auto readOn = [&](std::size_t from) {
    file.read(bytes.data() + from, static_cast<std::streamsize>(bytes.size() - from));
    bytes.resize(from + static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
  };
  readOn(0);
  std::error_code failed;
  const auto size = std::filesystem::file_size(path, failed);
  if (exifMayLieFar(bytes) && !failed && size <= kMost) {
    bytes.resize(std::max<std::size_t>(size, kExifHead));
    readOn(kExifHead);
  }
  return exifOrientation(bytes);
}

void addOrientation(AVFrame& frame, const Orientation& turn) {
  if (turn == Orientation{} || av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX) != nullptr) return;
  constexpr std::size_t kNumbers = 9;
  auto* side = av_frame_new_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX, kNumbers * sizeof(std::int32_t));
  if (side == nullptr) return;
  constexpr std::int32_t kOne = 1 << 16;
  auto* m = reinterpret_cast<std::int32_t*>(side->data);
  std::fill_n(m, kNumbers, 0);
  m[turn.swapsSides ? 3 : 0] = turn.mirrorsAcross ? -kOne : kOne;
  m[turn.swapsSides ? 1 : 4] = turn.mirrorsDown ? -kOne : kOne;
  m[kNumbers - 1] = 1 << 30;
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
