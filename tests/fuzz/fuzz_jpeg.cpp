// Any bytes as a JPEG file, at each scale.
#include "adapters/jpeg/turbo_jpeg.h"
#include "fuzz/fuzz.h"

#include <vector>

void kvo::fuzz(std::string_view file) {
  const TurboJpeg jpeg;
  const auto whole = jpeg.size(file);
  if (!whole || static_cast<long>(whole->width) * whole->height > 1L << 20) return;
  for (const int scale : {1, 2, 4, 8}) {
    const auto stride = static_cast<std::size_t>(jpegSide(whole->width, scale)) * 3;
    std::vector<std::uint8_t> rows(stride * static_cast<std::size_t>(jpegSide(whole->height, scale)));
    static_cast<void>(jpeg.decode(file, scale, rows, stride));
  }
}
