#include "media/picture.h"

#include "media/ffmpeg.h"

#include <algorithm>

namespace kvo::media {

SharedFrame newFrame() {
  return {av_frame_alloc(), [](AVFrame* frame) { av_frame_free(&frame); }};
}

namespace {

Picture newPicture(int width, int height, AVPixelFormat format) {
  auto frame = newFrame();
  if (!frame) return {};
  frame->format = format;
  frame->width = width;
  frame->height = height;
  return av_frame_get_buffer(frame.get(), 64) < 0 ? Picture() : Picture(frame);
}

void copyPlane(const Picture& from, Picture& to, int plane) {
  for (int y = 0; y < from.height(plane); ++y) {
    std::copy_n(from.row(plane, y), from.width(plane), to.row(plane, y));
  }
}

Picture allBlack(Picture picture) {
  for (int plane = 0; picture && plane < picture.planes(); ++plane)
    picture.fill(plane, Picture::blackOf(plane));
  return picture;
}

}  // namespace

Picture Picture::make(int width, int height) { return newPicture(width, height, AV_PIX_FMT_YUV420P); }
Picture Picture::makeWithAlpha(int width, int height) {
  return newPicture(width, height, AV_PIX_FMT_YUVA420P);
}
Picture Picture::makeLike(const Picture& other) {
  return other.hasAlpha() ? makeWithAlpha(other.width(), other.height())
                          : make(other.width(), other.height());
}

Picture Picture::black(int width, int height) { return allBlack(make(width, height)); }
Picture Picture::clear(int width, int height) { return allBlack(makeWithAlpha(width, height)); }

int Picture::width() const { return frame_->width; }
int Picture::height() const { return frame_->height; }
bool Picture::hasAlpha() const { return frame_->format == AV_PIX_FMT_YUVA420P; }
const std::uint8_t* Picture::plane(int index) const { return frame_->data[index]; }
std::uint8_t* Picture::plane(int index) { return frame_->data[index]; }
int Picture::stride(int index) const { return frame_->linesize[index]; }
const std::uint8_t* Picture::row(int plane, int y) const {
  return frame_->data[plane] + static_cast<std::ptrdiff_t>(y) * frame_->linesize[plane];
}
std::uint8_t* Picture::row(int plane, int y) {
  return frame_->data[plane] + static_cast<std::ptrdiff_t>(y) * frame_->linesize[plane];
}

void Picture::fill(int plane, std::uint8_t value) {
  for (int y = 0; y < height(plane); ++y) std::fill_n(row(plane, y), width(plane), value);
}

Picture copyOf(const Picture& picture) {
  auto copy = Picture::makeLike(picture);
  for (int plane = 0; copy && plane < copy.planes(); ++plane) copyPlane(picture, copy, plane);
  return copy;
}

Picture withAlpha(const Picture& picture) {
  if (picture.hasAlpha()) return picture;
  auto copy = Picture::makeWithAlpha(picture.width(), picture.height());
  for (int plane = 0; copy && plane < 3; ++plane) copyPlane(picture, copy, plane);
  if (copy) copy.fill(3, 255);
  return copy;
}

}  // namespace kvo::media
