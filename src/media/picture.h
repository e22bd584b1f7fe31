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

/// A planar 4:2:0 picture, 8 bits a sample, limited range. Even sizes only. With an alpha plane its colours
/// are premultiplied: what does not cover at all is black.
class Picture {
 public:
  Picture() = default;
  explicit Picture(SharedFrame frame) : frame_(std::move(frame)) {}

  /// A new picture with undefined contents that only the caller holds; empty when memory is short.
  static Picture make(int width, int height);
  static Picture makeWithAlpha(int width, int height);
  /// As make, of the size and kind of `other`.
  static Picture makeLike(const Picture& other);

  /// A new black picture.
  static Picture black(int width, int height);
  /// A new picture with alpha that covers nothing.
  static Picture clear(int width, int height);

  explicit operator bool() const { return frame_ != nullptr; }
  [[nodiscard]] int width() const;
  [[nodiscard]] int height() const;
  [[nodiscard]] bool hasAlpha() const;

  /// Plane 0 is luma, 1 and 2 are the two chroma planes of half the size, 3 is alpha where there is one.
  [[nodiscard]] int planes() const { return hasAlpha() ? 4 : 3; }
  [[nodiscard]] int width(int plane) const { return isChroma(plane) ? width() / 2 : width(); }
  [[nodiscard]] int height(int plane) const { return isChroma(plane) ? height() / 2 : height(); }
  [[nodiscard]] const std::uint8_t* plane(int index) const;
  [[nodiscard]] std::uint8_t* plane(int index);
  [[nodiscard]] int stride(int index) const;
  [[nodiscard]] const std::uint8_t* row(int plane, int y) const;
  [[nodiscard]] std::uint8_t* row(int plane, int y);
  [[nodiscard]] const SharedFrame& frame() const { return frame_; }

  /// Fills a whole plane with one value.
  void fill(int plane, std::uint8_t value);

  /// What a plane holds where nothing is seen.
  static constexpr std::uint8_t blackOf(int plane) {
    return isChroma(plane) ? std::uint8_t{128} : plane == 0 ? std::uint8_t{16} : std::uint8_t{0};
  }
  static constexpr bool isChroma(int plane) { return plane == 1 || plane == 2; }

 private:
  SharedFrame frame_;
};

/// A copy that only the caller holds; empty when memory is short.
Picture copyOf(const Picture& picture);
/// The picture itself where it has alpha, else a copy with alpha that covers all.
Picture withAlpha(const Picture& picture);

}  // namespace kvo::media
