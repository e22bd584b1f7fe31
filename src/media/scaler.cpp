#include "media/scaler.h"

#include "media/ffmpeg.h"

#include <algorithm>
#include <cmath>
#include <cstring>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace kvo::media {
namespace {

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

// What a conversion depends on; a new one is set up when it changes.
struct Conversion {
  AVPixelFormat format = AV_PIX_FMT_NONE;
  Size from;
  Size to;
  Matrix matrix = Matrix::Bt601;
  bool fullRange = false;
  bool operator==(const Conversion&) const = default;
};

// The part of the source that is shown, and how large it becomes.
struct Placing {
  Size crop;
  Size to;
};

// The old "J" formats are full range under another name.
AVPixelFormat withoutRange(AVPixelFormat format) {
  switch (format) {
    case AV_PIX_FMT_YUVJ420P:
      return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
      return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ444P:
      return AV_PIX_FMT_YUV444P;
    case AV_PIX_FMT_YUVJ440P:
      return AV_PIX_FMT_YUV440P;
    case AV_PIX_FMT_YUVJ411P:
      return AV_PIX_FMT_YUV411P;
    default:
      return format;
  }
}

Matrix matrixOf(const AVFrame& frame, Matrix otherwise) {
  switch (frame.colorspace) {
    case AVCOL_SPC_BT709:
      return Matrix::Bt709;
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
    case AVCOL_SPC_FCC:
      return Matrix::Bt601;
    default:
      return otherwise;
  }
}

int evenAtMost(double side, int most) {
  return std::clamp(static_cast<int>(std::lround(side / 2)) * 2, 2, most);
}

Placing placingOf(const AVFrame& frame, Size canvas, Fit fit) {
  const Size whole{frame.width, frame.height};
  if (fit == Fit::Stretch) return {whole, canvas};
  if (fit == Fit::Crop) {
    const Size shown{std::min(whole.width, canvas.width), std::min(whole.height, canvas.height)};
    return {shown, {(shown.width + 1) & ~1, (shown.height + 1) & ~1}};
  }
  const auto pixel = frame.sample_aspect_ratio;
  const double pixelShape = pixel.num > 0 && pixel.den > 0 ? av_q2d(pixel) : 1;
  const double shape = whole.width * pixelShape / whole.height;
  const double canvasShape = static_cast<double>(canvas.width) / canvas.height;
  if (fit == Fit::Letterbox) {
    return shape > canvasShape
               ? Placing{whole, {canvas.width, evenAtMost(canvas.width / shape, canvas.height)}}
               : Placing{whole, {evenAtMost(canvas.height * shape, canvas.width), canvas.height}};
  }
  return shape > canvasShape
             ? Placing{{evenAtMost(whole.width * canvasShape / shape, whole.width), whole.height}, canvas}
             : Placing{{whole.width, evenAtMost(whole.height * shape / canvasShape, whole.height)}, canvas};
}

// The middle of a frame, cut to `crop`; the frame itself when nothing is cut.
SharedFrame middleOf(const SharedFrame& frame, Size crop) {
  const int overWidth = frame->width - crop.width;
  const int overHeight = frame->height - crop.height;
  if (overWidth <= 0 && overHeight <= 0) return frame;
  auto part = newFrame();
  if (!part || av_frame_ref(part.get(), frame.get()) < 0) return nullptr;
  part->crop_left = static_cast<std::size_t>(overWidth / 2) & ~std::size_t{1};
  part->crop_right = static_cast<std::size_t>(overWidth) - part->crop_left;
  part->crop_top = static_cast<std::size_t>(overHeight / 2) & ~std::size_t{1};
  part->crop_bottom = static_cast<std::size_t>(overHeight) - part->crop_top;
  return av_frame_apply_cropping(part.get(), AV_FRAME_CROP_UNALIGNED) < 0 ? nullptr : part;
}

Picture halved(const AVFrame& frame) {
  auto out = Picture::make(frame.width / 2, frame.height / 2);
  for (int plane = 0; out && plane < 3; ++plane) {
    const int shift = plane == 0 ? 0 : 1;
    for (int y = 0; y < out.height() >> shift; ++y) {
      const auto* upper = frame.data[plane] + static_cast<std::ptrdiff_t>(2 * y) * frame.linesize[plane];
      halveRows(upper, upper + frame.linesize[plane],
                out.plane(plane) + static_cast<std::ptrdiff_t>(y) * out.stride(plane),
                static_cast<std::size_t>(out.width() >> shift));
    }
  }
  return out;
}

void copyInto(Picture& canvas, const Picture& part) {
  const int left = ((canvas.width() - part.width()) / 2) & ~1;
  const int top = ((canvas.height() - part.height()) / 2) & ~1;
  for (int plane = 0; plane < 3; ++plane) {
    const int shift = plane == 0 ? 0 : 1;
    for (int y = 0; y < part.height() >> shift; ++y) {
      std::memcpy(canvas.plane(plane) +
                      static_cast<std::ptrdiff_t>((top >> shift) + y) * canvas.stride(plane) +
                      (left >> shift),
                  part.plane(plane) + static_cast<std::ptrdiff_t>(y) * part.stride(plane),
                  static_cast<std::size_t>(part.width() >> shift));
    }
  }
}

}  // namespace

struct Scaler::State {
  Size canvas;
  Conversion conversion;
  ScalerHandle scaler;

  Outcome prepare(const Conversion& wanted) {
    if (scaler && wanted == conversion) return {};
    scaler.reset(sws_getContext(wanted.from.width, wanted.from.height, wanted.format, wanted.to.width,
                                wanted.to.height, AV_PIX_FMT_YUV420P, SWS_BICUBIC, nullptr, nullptr,
                                nullptr));
    if (!scaler) return Error{"a picture of this format cannot be converted"};
    const auto weights = [](Matrix m) {
      return sws_getCoefficients(m == Matrix::Bt709 ? SWS_CS_ITU709 : SWS_CS_ITU601);
    };
    sws_setColorspaceDetails(scaler.get(), weights(wanted.matrix), wanted.fullRange ? 1 : 0,
                             weights(usualMatrix(canvas.height)), 0, 0, 1 << 16, 1 << 16);
    conversion = wanted;
    return {};
  }
};

Scaler::Scaler(int width, int height) : state_(std::make_unique<State>()) {
  state_->canvas = {width, height};
}
Scaler::Scaler(Scaler&&) noexcept = default;
Scaler& Scaler::operator=(Scaler&&) noexcept = default;
Scaler::~Scaler() = default;

Result<Picture> Scaler::place(const SharedFrame& frame, Fit fit) {
  auto& s = *state_;
  const Error noMemory{"out of memory for a picture"};
  const auto native = static_cast<AVPixelFormat>(frame->format);
  const auto working = usualMatrix(s.canvas.height);
  Conversion wanted{withoutRange(native), {}, {}, matrixOf(*frame, working), false};
  wanted.fullRange = native != wanted.format || frame->color_range == AVCOL_RANGE_JPEG;
  const auto placing = placingOf(*frame, s.canvas, fit);
  wanted.to = placing.to;

  const bool sameColours =
      wanted.format == AV_PIX_FMT_YUV420P && !wanted.fullRange && wanted.matrix == working;
  const bool uncut = placing.crop == Size{frame->width, frame->height} && placing.to == s.canvas;
  if (sameColours && uncut) {
    if (placing.crop == s.canvas) return Picture(frame);
    if (frame->width == 2 * s.canvas.width && frame->height == 2 * s.canvas.height) {
      auto half = halved(*frame);
      return half ? Result<Picture>(std::move(half)) : Result<Picture>(noMemory);
    }
  }

  const auto part = middleOf(frame, placing.crop);
  if (!part) return noMemory;
  wanted.from = {part->width, part->height};
  if (auto ready = s.prepare(wanted); !ready) return ready.error();
  auto scaled = Picture::make(wanted.to.width, wanted.to.height);
  if (!scaled) return noMemory;
  if (sws_scale(s.scaler.get(), part->data, part->linesize, 0, part->height, scaled.frame()->data,
                scaled.frame()->linesize) < 0) {
    return Error{"a picture cannot be converted"};
  }
  if (wanted.to == s.canvas) return scaled;
  auto canvas = Picture::black(s.canvas.width, s.canvas.height);
  if (!canvas) return noMemory;
  copyInto(canvas, scaled);
  return canvas;
}

}  // namespace kvo::media
