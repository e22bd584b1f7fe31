// Pictures in memory: drawn on a Canvas that one owner holds, and from then on a Picture that many may hold
// and none can change.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

struct AVFrame;

namespace kvo::media {

/// A frame of FFmpeg's, freed by the last who holds it.
using SharedFrame = std::shared_ptr<AVFrame>;

/// Throws std::bad_alloc.
SharedFrame newFrame();
/// With room for a picture of this AVPixelFormat, its contents undefined. Throws std::bad_alloc.
SharedFrame newFrame(int format, int width, int height);

/// How a picture takes its place in a frame of another shape.
enum class Fit {
  Stretch,    ///< fills the frame, the shape is lost
  Letterbox,  ///< whole picture, black bars
  Fill,       ///< fills the frame, what stands over is cut off
  Crop,       ///< not scaled, centred, what stands over is cut off
};

/// The samples of a planar 4:2:0 picture, 8 bits each, limited range, to be read. Even sizes only. With an
/// alpha plane the colours are premultiplied: what does not cover at all is black.
class Planes {
 public:
  explicit operator bool() const { return frame_ != nullptr; }
  [[nodiscard]] int width() const;
  [[nodiscard]] int height() const;
  [[nodiscard]] bool hasAlpha() const;

  /// Plane 0 is luma, 1 and 2 are the two chroma planes of half the size, 3 is alpha where there is one.
  [[nodiscard]] int planes() const { return hasAlpha() ? 4 : 3; }
  [[nodiscard]] int width(int plane) const { return isChroma(plane) ? width() / 2 : width(); }
  [[nodiscard]] int height(int plane) const { return isChroma(plane) ? height() / 2 : height(); }
  /// Bytes from one row to the next.
  [[nodiscard]] int stride(int plane) const;
  [[nodiscard]] const std::uint8_t* row(int plane, int y) const;

  /// What a plane holds where nothing is seen.
  static constexpr std::uint8_t blackOf(int plane) {
    return isChroma(plane) ? std::uint8_t{128} : plane == 0 ? std::uint8_t{16} : std::uint8_t{0};
  }
  static constexpr bool isChroma(int plane) { return plane == 1 || plane == 2; }

 protected:
  Planes() = default;
  explicit Planes(SharedFrame frame) : frame_(std::move(frame)) {}
  Planes(const Planes&) = default;
  Planes(Planes&&) noexcept = default;
  Planes& operator=(const Planes&) = default;
  Planes& operator=(Planes&&) noexcept = default;
  ~Planes() = default;

  SharedFrame frame_;
};

/// A picture in the making. Those that make one throw std::bad_alloc when memory is short: a picture that
/// cannot be had ends the whole frame, and is heard where the frame was asked for (`guarded`).
class Canvas : public Planes {
 public:
  Canvas() = default;
  Canvas(Canvas&&) noexcept = default;
  Canvas& operator=(Canvas&&) noexcept = default;
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas() = default;

  /// With undefined contents.
  static Canvas make(int width, int height);
  static Canvas makeWithAlpha(int width, int height);
  /// As make, of the size and kind of `other`.
  static Canvas makeLike(const Planes& other);
  /// All black.
  static Canvas black(int width, int height);
  /// With alpha, and covering nothing.
  static Canvas clear(int width, int height);

  using Planes::row;
  [[nodiscard]] std::uint8_t* row(int plane, int y);
  /// Fills a whole plane with one value.
  void fill(int plane, std::uint8_t value);
  /// For functions of FFmpeg to draw into.
  [[nodiscard]] AVFrame& frame() { return *frame_; }

 private:
  explicit Canvas(SharedFrame frame) : Planes(std::move(frame)) {}
  static Canvas make(int width, int height, int format);
  friend class Picture;
};

/// A finished picture: shared and not copied when handed on.
class Picture : public Planes {
 public:
  Picture() = default;
  /// A decoded frame of this kind, which nobody writes to any more.
  explicit Picture(SharedFrame frame) : Planes(std::move(frame)) {}
  /// The canvas is empty behind it.
  explicit Picture(Canvas&& canvas) : Planes(std::move(canvas.frame_)) {}

  /// Its own: two pictures with one frame are the same picture. Null for an empty one.
  [[nodiscard]] const AVFrame* frame() const { return frame_.get(); }
};

/// What was drawn, finished.
inline Picture share(Canvas&& canvas) { return Picture(std::move(canvas)); }

/// A copy to draw on.
Canvas copyOf(const Planes& picture);
/// As copyOf, with alpha: that of the picture, or one that covers all.
Canvas copyWithAlpha(const Planes& picture);
/// The picture itself where it has alpha, else such a copy.
Picture withAlpha(const Picture& picture);

}  // namespace kvo::media
