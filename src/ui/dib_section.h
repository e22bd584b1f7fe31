// A picture in memory, 24 bits a pixel: what shapes of windows are made from and what JPEG files are decoded
// to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class QImage;

namespace kvo {

/// How the pixels of a source meet those of a target.
enum class RasterOperation : std::uint32_t {
  SRCCOPY = 0x00CC0020,
  SRCAND = 0x008800C6,
  SRCPAINT = 0x00EE0086,  ///< or
};

/// Rows from the top down; a pixel is blue, green, red; each row is filled up to a multiple of four bytes.
class cDIBSection {
 public:
  /// No surface holds more bytes than these.
  static constexpr std::size_t kMostBytes = 256U << 20U;

  /// A black surface of that size in pixels in place of what was there. False, and an empty surface, for a
  /// side below 1 or too many bytes.
  bool Create(int width, int height);

  /// `Create` in the picture's size, and the picture in it; what is transparent there is black.
  bool CreateFromPicture(const QImage& picture);

  /// Puts width x height pixels from sourceX, sourceY on to x, y of `target`; what lies beyond either is left
  /// out.
  void PaintPicture(cDIBSection& target, int x, int y, int width, int height, int sourceX = 0,
                    int sourceY = 0, RasterOperation operation = RasterOperation::SRCCOPY) const;

  /// Back to an empty surface.
  void ClearUp();

  [[nodiscard]] int dib_width() const { return width_; }
  [[nodiscard]] int dib_height() const { return height_; }
  [[nodiscard]] std::size_t BytesPerScanLine() const { return bytesPerScanLine(width_); }
  [[nodiscard]] std::span<std::uint8_t> DIBSectionBitsPtr() { return bits_; }
  [[nodiscard]] std::span<const std::uint8_t> DIBSectionBitsPtr() const { return bits_; }

  /// The `width` x 3 bytes of a row, 0 at the top.
  [[nodiscard]] std::span<const std::uint8_t> row(int y) const;

 private:
  static std::size_t bytesPerScanLine(int width) {
    return (static_cast<std::size_t>(width) * 3 + 3) & ~std::size_t{3};
  }

  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint8_t> bits_;
};

}  // namespace kvo
