#include "media/deinterlace.h"

#include "media/ffmpeg.h"
#include "media/pixel_rows.h"

#include <algorithm>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace kvo::media {
namespace {

bool hasBytePlanes(const AVPixFmtDescriptor& kind) {
  return (kind.flags & (AV_PIX_FMT_FLAG_PLANAR | AV_PIX_FMT_FLAG_BITSTREAM | AV_PIX_FMT_FLAG_HWACCEL)) ==
             AV_PIX_FMT_FLAG_PLANAR &&
         kind.comp[0].depth == 8;
}

}  // namespace

SharedFrame deinterlaced(const SharedFrame& frame) {
  const auto format = static_cast<AVPixelFormat>(frame->format);
  const auto* kind = av_pix_fmt_desc_get(format);
  if (kind == nullptr || !hasBytePlanes(*kind) || frame->height < 4) return frame;
  auto out = newFrame();
  if (!out) return nullptr;
  out->format = frame->format;
  out->width = frame->width;
  out->height = frame->height;
  if (av_frame_get_buffer(out.get(), 64) < 0 || av_frame_copy_props(out.get(), frame.get()) < 0)
    return nullptr;
  out->interlaced_frame = 0;
  const int second = frame->top_field_first != 0 ? 1 : 0;  // its first row
  for (int plane = 0; plane < av_pix_fmt_count_planes(format); ++plane) {
    const auto width = static_cast<std::size_t>(av_image_get_linesize(format, frame->width, plane));
    const bool chroma = plane == 1 || plane == 2;
    const int height = chroma ? AV_CEIL_RSHIFT(frame->height, kind->log2_chroma_h) : frame->height;
    const auto row = [&](int y) {
      return frame->data[plane] +
             static_cast<std::ptrdiff_t>(std::clamp(y, 0, height - 1)) * frame->linesize[plane];
    };
    for (int y = 0; y < height; ++y) {
      auto* made = out->data[plane] + static_cast<std::ptrdiff_t>(y) * out->linesize[plane];
      if (y % 2 != second) {
        std::copy_n(row(y), width, made);
      } else {
        weaveRow(row(y == 0 ? 1 : y - 1), row(y), row(y == height - 1 ? y - 1 : y + 1), made, width);
      }
    }
  }
  return out;
}

}  // namespace kvo::media
