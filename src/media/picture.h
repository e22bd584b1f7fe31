// One picture in memory: planar YUV 4:2:0 or one packed plane, shared and not copied when handed on.
#pragma once

#include <cstdint>
#include <memory>

struct AVFrame;

namespace kvo::media {

/// A frame of FFmpeg's, freed by the last who holds it.
using SharedFrame = std::shared_ptr<AVFrame>;

SharedFrame newFrame();

/// How a picture takes its place in a frame of another shape.
enum class Fit {
  Stretch,    ///< fills the frame, the shape is lost
  Letterbox,  ///< whole picture, black bars
  Fill,       ///< fills the frame, what stands over is cut off
  Crop,       ///< not scaled, centred, what stands over is cut off
};

/// A planar 4:2:0 picture, 8 bits a sample. Even sizes only.
class Picture {
 public:
  Picture() = default;
  explicit Picture(SharedFrame frame) : frame_(std::move(frame)) {}

  /// A new picture with undefined contents that only the caller holds; empty when memory is short.
  static Picture make(int width, int height);

  /// A new black picture, limited range.
  static Picture black(int width, int height);

  explicit operator bool() const { return frame_ != nullptr; }
  [[nodiscard]] int width() const;
  [[nodiscard]] int height() const;
  /// Plane 0 is luma, 1 and 2 are the two chroma planes of half the size.
  [[nodiscard]] const std::uint8_t* plane(int index) const;
  [[nodiscard]] std::uint8_t* plane(int index);
  [[nodiscard]] int stride(int index) const;
  [[nodiscard]] const SharedFrame& frame() const { return frame_; }

 private:
  SharedFrame frame_;
};

}  // namespace kvo::media
