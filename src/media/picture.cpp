#include "media/picture.h"

#include "media/ffmpeg.h"

#include <algorithm>

namespace kvo::media {

SharedFrame newFrame() {
  return {av_frame_alloc(), [](AVFrame* frame) { av_frame_free(&frame); }};
}

Picture Picture::make(int width, int height) {
  auto frame = newFrame();
  if (!frame) return {};
  frame->format = AV_PIX_FMT_YUV420P;
  frame->width = width;
  frame->height = height;
  return av_frame_get_buffer(frame.get(), 64) < 0 ? Picture() : Picture(frame);
}

Picture Picture::black(int width, int height) {
  auto picture = make(width, height);
  if (!picture) return picture;
  std::fill_n(picture.plane(0), static_cast<std::ptrdiff_t>(picture.stride(0)) * height, std::uint8_t{16});
  for (const int chroma : {1, 2}) {
    std::fill_n(picture.plane(chroma), static_cast<std::ptrdiff_t>(picture.stride(chroma)) * (height / 2),
                std::uint8_t{128});
  }
  return picture;
}

int Picture::width() const { return frame_->width; }
int Picture::height() const { return frame_->height; }
const std::uint8_t* Picture::plane(int index) const { return frame_->data[index]; }
std::uint8_t* Picture::plane(int index) { return frame_->data[index]; }
int Picture::stride(int index) const { return frame_->linesize[index]; }

}  // namespace kvo::media
