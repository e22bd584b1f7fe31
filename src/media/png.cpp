#include "media/png.h"

#include "media/ffmpeg.h"
#include "media/picture.h"

#include <algorithm>

namespace kvo::media {

Result<std::string> encodePng(const std::uint8_t* bgr, std::size_t stride, int width, int height) {
  const auto* codec = avcodec_find_encoder(AV_CODEC_ID_PNG);
  CodecHandle encoder(codec == nullptr ? nullptr : avcodec_alloc_context3(codec));
  if (!encoder) return Error{"there is no encoder for PNG"};
  encoder->width = width;
  encoder->height = height;
  encoder->pix_fmt = AV_PIX_FMT_RGB24;
  encoder->time_base = {1, 1};
  if (const int opened = avcodec_open2(encoder.get(), codec, nullptr); opened < 0) {
    return ffmpegError("cannot make a PNG", opened);
  }
  auto frame = newFrame(AV_PIX_FMT_RGB24, width, height);
  const auto packet = newPacket();
  for (int y = 0; y < height; ++y) {
    const auto* from = bgr + static_cast<std::size_t>(y) * stride;
    auto* to = frame->data[0] + static_cast<std::ptrdiff_t>(y) * frame->linesize[0];
    for (int x = 0; x < width; ++x, from += 3, to += 3) {
      to[0] = from[2];
      to[1] = from[1];
      to[2] = from[0];
    }
  }
  int done = avcodec_send_frame(encoder.get(), frame.get());
  if (done >= 0) done = avcodec_send_frame(encoder.get(), nullptr);
  if (done >= 0) done = avcodec_receive_packet(encoder.get(), packet.get());
  if (done < 0) return ffmpegError("cannot make a PNG", done);
  return std::string(reinterpret_cast<const char*>(packet->data), static_cast<std::size_t>(packet->size));
}

}  // namespace kvo::media
