// Any bytes as a JPEG file, at each scale.
#include "adapters/jpeg/turbo_jpeg.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view file(reinterpret_cast<const char*>(data), size);
  const kvo::TurboJpeg jpeg;
  const auto whole = jpeg.size(file);
  if (!whole || static_cast<long>(whole->width) * whole->height > 1L << 20) return 0;
  for (const int scale : {1, 2, 4, 8}) {
    const auto stride = static_cast<std::size_t>(kvo::jpegSide(whole->width, scale)) * 3;
    std::vector<std::uint8_t> rows(stride * static_cast<std::size_t>(kvo::jpegSide(whole->height, scale)));
    static_cast<void>(jpeg.decode(file, scale, rows, stride));
  }
  return 0;
}
