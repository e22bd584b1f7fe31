// JPEG through libjpeg-turbo.
#pragma once

#include "ports/jpeg.h"

namespace kvo {

class TurboJpeg : public Jpeg {
 public:
  [[nodiscard]] Result<JpegSize> size(std::string_view file) const override;
  Outcome decode(std::string_view file, int scale, std::span<std::uint8_t> rows,
                 std::size_t stride) const override;
  [[nodiscard]] Result<std::string> encode(JpegSize size, std::span<const std::uint8_t> rows,
                                           int quality) const override;
};

}  // namespace kvo
