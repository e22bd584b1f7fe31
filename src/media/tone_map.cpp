#include "media/tone_map.h"

namespace kvo::media {
namespace {

// Scaled first, as all that follows is done in floating point. What a frame does not say of itself is
// BT.2020, as both curves are defined with it.
std::string chainFor(const AVFrame& frame, int width, int height) {
  std::string chain("zscale=w=");
  chain.append(std::to_string(width)).append(":h=").append(std::to_string(height));
  if (frame.colorspace == AVCOL_SPC_UNSPECIFIED) chain.append(":matrixin=2020_ncl");
  if (frame.color_primaries == AVCOL_PRI_UNSPECIFIED) chain.append(":primariesin=2020");
  if (frame.color_range == AVCOL_RANGE_UNSPECIFIED) chain.append(":rangein=limited");
  return chain.append(
      ":filter=bicubic,zscale=transfer=linear:npl=203,format=gbrpf32le,"
      "zscale=primaries=709,tonemap=mobius:desat=0,"
      "zscale=transfer=709:matrix=709:range=limited,format=yuv420p");
}

}  // namespace

bool isHighRange(const AVFrame& frame) {
  return frame.color_trc == AVCOL_TRC_SMPTE2084 || frame.color_trc == AVCOL_TRC_ARIB_STD_B67;
}

Result<SharedFrame> ToneMap::map(const SharedFrame& frame, int width, int height) {
  if (!graph_ || !graph_->fits(*frame) || width != width_ || height != height_) {
    auto made = FilterChain::make(chainFor(*frame, width, height), *frame, 1);
    if (!made) return made.error();
    graph_ = std::move(*made);
    width_ = width;
    height_ = height;
  }
  if (auto done = graph_->push(frame); !done) return done.error();
  auto mapped = graph_->pull();
  if (mapped && !*mapped) return Error{"a picture of high dynamic range cannot be converted"};
  return mapped;
}

}  // namespace kvo::media
