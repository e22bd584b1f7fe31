#include "media/scaler.h"

#include "media/ffmpeg.h"
#include "media/orientation.h"
#include "media/tone_map.h"

#include <algorithm>
#include <cmath>
#include <cstring>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace kvo::media {
namespace {

// Sizes are whole pixels, and even: a shape that differs by less is the same, and gets no hairline of a bar.
constexpr double kSameShape = 0.005;

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
  AVPixelFormat made = AV_PIX_FMT_YUV420P;
  int weights = SWS_CS_ITU601;
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

constexpr Matrix otherThan(Matrix matrix) { return matrix == Matrix::Bt709 ? Matrix::Bt601 : Matrix::Bt709; }

int coefficientsOf(Matrix matrix) { return matrix == Matrix::Bt709 ? SWS_CS_ITU709 : SWS_CS_ITU601; }

bool isYuv(const AVFrame& frame) {
  const auto* kind = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
  return kind != nullptr && kind->nb_components >= 3 && (kind->flags & AV_PIX_FMT_FLAG_RGB) == 0;
}

// The luma weights that a frame says it was made with, or that are usual for its height. Colours have none.
int coefficientsOf(const AVFrame& frame, Matrix working) {
  switch (frame.colorspace) {
    case AVCOL_SPC_BT709:
      return SWS_CS_ITU709;
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
    case AVCOL_SPC_FCC:
      return SWS_CS_ITU601;
    case AVCOL_SPC_SMPTE240M:
      return SWS_CS_SMPTE240M;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
      return SWS_CS_BT2020;
    case AVCOL_SPC_RGB:
      return coefficientsOf(working);
    default:
      return coefficientsOf(isYuv(frame) ? usualMatrix(frame.height) : working);
  }
}

// A palette may hold alpha.
bool mayHaveAlpha(AVPixelFormat format) {
  const auto* kind = av_pix_fmt_desc_get(format);
  return format == AV_PIX_FMT_PAL8 || (kind != nullptr && (kind->flags & AV_PIX_FMT_FLAG_ALPHA) != 0);
}

// Colours and greys use all of their range unless they say otherwise; YUV does not.
bool isFullRange(const AVFrame& frame, AVPixelFormat plain) {
  if (frame.format != plain || frame.color_range == AVCOL_RANGE_JPEG) return true;
  return !isYuv(frame) && frame.color_range != AVCOL_RANGE_MPEG;
}

int evenAtMost(double side, int most) {
  return std::clamp(static_cast<int>(std::lround(side / 2)) * 2, 2, most);
}

double pixelShape(const AVFrame& frame) {
  const auto pixel = frame.sample_aspect_ratio;
  const double shape = pixel.num > 0 && pixel.den > 0 ? av_q2d(pixel) : 1;
  return std::clamp(shape, 0.05, 20.0);
}

Placing placingOf(const AVFrame& frame, Size canvas, Fit fit) {
  const Size whole{frame.width, frame.height};
  if (fit == Fit::Stretch) return {whole, canvas};
  const double pixel = pixelShape(frame);
  if (fit == Fit::Crop) {  // square pixels are kept as they are, others are made square by their width
    const int room = static_cast<int>(std::ceil(canvas.width / pixel));
    const Size shown{std::min(whole.width, room), std::min(whole.height, canvas.height)};
    return {shown,
            {pixel == 1 ? (shown.width + 1) & ~1 : evenAtMost(shown.width * pixel, canvas.width),
             (shown.height + 1) & ~1}};
  }
  const double shape = whole.width * pixel / whole.height;
  const double canvasShape = static_cast<double>(canvas.width) / canvas.height;
  if (fit == Fit::Letterbox && std::fabs(shape / canvasShape - 1) < kSameShape) return {whole, canvas};
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
  if (av_frame_ref(part.get(), frame.get()) < 0) throw std::bad_alloc();
  part->crop_left = static_cast<std::size_t>(overWidth / 2) & ~std::size_t{1};
  part->crop_right = static_cast<std::size_t>(overWidth) - part->crop_left;
  part->crop_top = static_cast<std::size_t>(overHeight / 2) & ~std::size_t{1};
  part->crop_bottom = static_cast<std::size_t>(overHeight) - part->crop_top;
  av_frame_apply_cropping(part.get(), AV_FRAME_CROP_UNALIGNED);  // refuses only a cut beyond the frame
  return part;
}

Canvas halved(const AVFrame& frame) {
  auto out = Canvas::make(frame.width / 2, frame.height / 2);
  for (int plane = 0; plane < 3; ++plane) {
    for (int y = 0; y < out.height(plane); ++y) {
      const auto* upper = frame.data[plane] + static_cast<std::ptrdiff_t>(2 * y) * frame.linesize[plane];
      halveRows(upper, upper + frame.linesize[plane], out.row(plane, y),
                static_cast<std::size_t>(out.width(plane)));
    }
  }
  return out;
}

// From the weights of one matrix to those of the other.
void reweigh(Canvas& picture, Matrix from) {
  for (int y = 0; y < picture.height(1); ++y) {
    changeMatrix(picture.row(0, 2 * y), picture.row(0, 2 * y + 1), picture.row(1, y), picture.row(2, y),
                 static_cast<std::size_t>(picture.width(1)), from);
  }
}

void copyInto(Canvas& canvas, const Planes& part) {
  const int left = ((canvas.width() - part.width()) / 2) & ~1;
  const int top = ((canvas.height() - part.height()) / 2) & ~1;
  for (int plane = 0; plane < std::min(canvas.planes(), part.planes()); ++plane) {
    const int shift = Picture::isChroma(plane) ? 1 : 0;
    for (int y = 0; y < part.height(plane); ++y) {
      std::memcpy(canvas.row(plane, (top >> shift) + y) + (left >> shift), part.row(plane, y),
                  static_cast<std::size_t>(part.width(plane)));
    }
  }
}

// Each colour times its alpha, in place. `pixels` are packed blue, green, red, alpha.
void premultiply(AVFrame& pixels) {
  for (int y = 0; y < pixels.height; ++y) {
    auto* pixel = pixels.data[0] + static_cast<std::ptrdiff_t>(y) * pixels.linesize[0];
    for (int x = 0; x < pixels.width; ++x, pixel += 4) {
      for (int colour = 0; colour < 3; ++colour) {
        pixel[colour] = static_cast<std::uint8_t>((pixel[colour] * pixel[3] + 127) / 255);
      }
    }
  }
}

bool coversAll(const Planes& picture) {
  for (int y = 0; y < picture.height(); ++y) {
    const auto* row = picture.row(3, y);
    if (!std::all_of(row, row + picture.width(), [](auto alpha) { return alpha == 255; })) return false;
  }
  return true;
}

Canvas withoutAlpha(const Planes& picture) {
  auto plain = Canvas::make(picture.width(), picture.height());
  copyInto(plain, picture);
  return plain;
}

}  // namespace

struct Scaler::State {
  Size canvas;
  Conversion conversion;
  ScalerHandle scaler;
  Conversion plainConversion;
  ScalerHandle plainScaler;  // to blue, green, red, alpha

  Result<Canvas> scaled(const AVFrame& part, Conversion wanted);
  Result<SharedFrame> premultiplied(const AVFrame& frame, Conversion wanted);
  Result<Picture> placeUpright(const SharedFrame& frame, Fit fit);
  Result<Picture> placeHighRange(const SharedFrame& frame, const Placing& placing);

  ToneMap toneMap;
};

namespace {

Outcome prepare(ScalerHandle& scaler, Conversion& conversion, const Conversion& wanted, Matrix working) {
  if (scaler && wanted == conversion) return {};
  scaler.reset(sws_getContext(
      wanted.from.width, wanted.from.height, wanted.format, wanted.to.width, wanted.to.height, wanted.made,
      SWS_BICUBIC | (wanted.fullRange ? SWS_ACCURATE_RND : 0), nullptr, nullptr, nullptr));
  if (!scaler) return Error{"a picture of this format cannot be converted"};
  const bool madeFull = wanted.made == AV_PIX_FMT_BGRA;
  sws_setColorspaceDetails(scaler.get(), sws_getCoefficients(wanted.weights), wanted.fullRange ? 1 : 0,
                           sws_getCoefficients(coefficientsOf(working)), madeFull ? 1 : 0, 0, 1 << 16,
                           1 << 16);
  conversion = wanted;
  return {};
}

Outcome convert(SwsContext& scaler, const AVFrame& from, AVFrame& to) {
  if (sws_scale(&scaler, from.data, from.linesize, 0, from.height, to.data, to.linesize) < 0) {
    return Error{"a picture cannot be converted"};
  }
  return {};
}

}  // namespace

Result<Canvas> Scaler::State::scaled(const AVFrame& part, Conversion wanted) {
  wanted.from = {part.width, part.height};
  if (auto ready = prepare(scaler, conversion, wanted, usualMatrix(canvas.height)); !ready)
    return ready.error();
  auto made = wanted.made == AV_PIX_FMT_YUVA420P ? Canvas::makeWithAlpha(wanted.to.width, wanted.to.height)
                                                 : Canvas::make(wanted.to.width, wanted.to.height);
  if (auto done = convert(*scaler, part, made.frame()); !done) return done.error();
  return made;
}

// Colours are weighed by their alpha ahead of scaling, so that none bleeds out of what cannot be seen.
Result<SharedFrame> Scaler::State::premultiplied(const AVFrame& frame, Conversion wanted) {
  wanted.from = wanted.to = {frame.width, frame.height};
  wanted.made = AV_PIX_FMT_BGRA;
  if (auto ready = prepare(plainScaler, plainConversion, wanted, Matrix::Bt601); !ready) return ready.error();
  auto plain = newFrame(AV_PIX_FMT_BGRA, frame.width, frame.height);
  if (auto done = convert(*plainScaler, frame, *plain); !done) return done.error();
  premultiply(*plain);
  return plain;
}

// Brought down at the size that it is shown at, and then placed like any other.
Result<Picture> Scaler::State::placeHighRange(const SharedFrame& frame, const Placing& placing) {
  const auto part = middleOf(frame, placing.crop);
  auto mapped = toneMap.map(part, placing.to.width, placing.to.height);
  if (!mapped) return mapped.error();
  (*mapped)->sample_aspect_ratio = {1, 1};
  return placeUpright(*mapped, Fit::Crop);
}

Result<Picture> Scaler::State::placeUpright(const SharedFrame& frame, Fit fit) {
  const auto native = static_cast<AVPixelFormat>(frame->format);
  const auto working = usualMatrix(canvas.height);
  Conversion wanted{.format = withoutRange(native), .from = {}, .to = {}};
  wanted.weights = coefficientsOf(*frame, working);
  wanted.fullRange = isFullRange(*frame, wanted.format);
  const auto placing = placingOf(*frame, canvas, fit);
  if (isHighRange(*frame)) return placeHighRange(frame, placing);
  wanted.to = placing.to;

  const bool plain = wanted.format == AV_PIX_FMT_YUV420P && !wanted.fullRange;
  const bool uncut = placing.crop == Size{frame->width, frame->height} && placing.to == canvas;
  if (plain && uncut) {
    const bool sameColours = wanted.weights == coefficientsOf(working);
    if (sameColours && placing.crop == canvas) return Picture(frame);
    const bool changes = wanted.weights == coefficientsOf(otherThan(working));
    if ((sameColours || changes) && frame->width == 2 * canvas.width && frame->height == 2 * canvas.height) {
      auto half = halved(*frame);
      if (changes) reweigh(half, otherThan(working));
      return share(std::move(half));
    }
  }

  auto part = middleOf(frame, placing.crop);
  const bool alpha = mayHaveAlpha(wanted.format);
  if (alpha) {
    auto weighed = premultiplied(*part, wanted);
    if (!weighed) return weighed.error();
    part = std::move(*weighed);
    wanted.format = AV_PIX_FMT_BGRA;
    wanted.made = AV_PIX_FMT_YUVA420P;
    wanted.fullRange = true;
  }
  auto made = scaled(*part, wanted);
  if (!made) return made.error();
  auto picture = std::move(*made);
  const bool opaque = !alpha || coversAll(picture);
  if (alpha && opaque) picture = withoutAlpha(picture);
  if (wanted.to == canvas) return share(std::move(picture));
  auto whole =
      opaque ? Canvas::black(canvas.width, canvas.height) : Canvas::clear(canvas.width, canvas.height);
  copyInto(whole, picture);
  return share(std::move(whole));
}

Scaler::Scaler(int width, int height) : state_(std::make_unique<State>()) {
  state_->canvas = {width, height};
}
Scaler::Scaler(Scaler&&) noexcept = default;
Scaler& Scaler::operator=(Scaler&&) noexcept = default;
Scaler::~Scaler() = default;

Result<Picture> Scaler::place(const SharedFrame& frame, Fit fit) {
  auto& s = *state_;
  const auto turn = orientationOf(*frame);
  if (turn == Orientation{}) return s.placeUpright(frame, fit);
  // Scaled lying, then turned: the canvas lies as the frame does.
  const Size upright = s.canvas;
  if (turn.swapsSides) s.canvas = {upright.height, upright.width};
  auto lying = s.placeUpright(frame, fit);
  s.canvas = upright;
  if (!lying) return lying;
  return oriented(*lying, turn);
}

}  // namespace kvo::media
