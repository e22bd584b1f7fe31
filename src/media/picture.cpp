#include "media/picture.h"

#include "media/ffmpeg.h"

#include <algorithm>
#include <new>

namespace kvo::media {
namespace {

constexpr int kAlignment = 64;  // bytes of a row's start, for the widest vectors

void copyPlane(const Planes& from, Canvas& to, int plane) {
  for (int y = 0; y < from.height(plane); ++y) {
    std::copy_n(from.row(plane, y), from.width(plane), to.row(plane, y));
  }
}

Canvas allBlack(Canvas canvas) {
  for (int plane = 0; plane < canvas.planes(); ++plane) canvas.fill(plane, Planes::blackOf(plane));
  return canvas;
}

}  // namespace

SharedFrame newFrame() {
  auto* frame = av_frame_alloc();
  if (frame == nullptr) throw std::bad_alloc();
  return {frame, [](AVFrame* mine) { av_frame_free(&mine); }};
}

int Planes::width() const { return frame_->width; }
int Planes::height() const { return frame_->height; }
bool Planes::hasAlpha() const { return frame_->format == AV_PIX_FMT_YUVA420P; }
int Planes::stride(int plane) const { return frame_->linesize[plane]; }
const std::uint8_t* Planes::row(int plane, int y) const {
  return frame_->data[plane] + static_cast<std::ptrdiff_t>(y) * frame_->linesize[plane];
}

SharedFrame newFrame(int format, int width, int height) {
  auto frame = newFrame();
  frame->format = format;
  frame->width = width;
  frame->height = height;
  if (av_frame_get_buffer(frame.get(), kAlignment) < 0) throw std::bad_alloc();
  return frame;
}

Canvas Canvas::make(int width, int height, int format) { return Canvas(newFrame(format, width, height)); }

Canvas Canvas::make(int width, int height) { return make(width, height, AV_PIX_FMT_YUV420P); }
Canvas Canvas::makeWithAlpha(int width, int height) { return make(width, height, AV_PIX_FMT_YUVA420P); }
Canvas Canvas::makeLike(const Planes& other) {
  return other.hasAlpha() ? makeWithAlpha(other.width(), other.height())
                          : make(other.width(), other.height());
}
Canvas Canvas::black(int width, int height) { return allBlack(make(width, height)); }
Canvas Canvas::clear(int width, int height) { return allBlack(makeWithAlpha(width, height)); }

std::uint8_t* Canvas::row(int plane, int y) {
  return frame_->data[plane] + static_cast<std::ptrdiff_t>(y) * frame_->linesize[plane];
}

void Canvas::fill(int plane, std::uint8_t value) {
  for (int y = 0; y < height(plane); ++y) std::fill_n(row(plane, y), width(plane), value);
}

Canvas copyOf(const Planes& picture) {
  auto copy = Canvas::makeLike(picture);
  for (int plane = 0; plane < copy.planes(); ++plane) copyPlane(picture, copy, plane);
  return copy;
}

Canvas copyWithAlpha(const Planes& picture) {
  if (picture.hasAlpha()) return copyOf(picture);
  auto copy = Canvas::makeWithAlpha(picture.width(), picture.height());
  for (int plane = 0; plane < 3; ++plane) copyPlane(picture, copy, plane);
  copy.fill(3, 255);
  return copy;
}

Picture withAlpha(const Picture& picture) {
  return picture.hasAlpha() ? picture : share(copyWithAlpha(picture));
}

}  // namespace kvo::media
