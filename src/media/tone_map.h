// Brings pictures of a high dynamic range (PQ of SMPTE ST 2084, HLG of ARIB STD-B67) down to what a movie of
// BT.709 shows. For this room only.
#pragma once

#include "media/filter_chain.h"

#include <optional>

namespace kvo::media {

/// Whether a frame says that it was made with PQ or HLG.
bool isHighRange(const AVFrame& frame);

class ToneMap {
 public:
  /// The frame scaled to `width` x `height`, 4:2:0, 8 bits, BT.709, limited range. White of BT.2408 (203
  /// cd/m2) stays white of a movie's text and paper; what is brighter is pressed together above it. Fails
  /// when the frame's format cannot be taken.
  Result<SharedFrame> map(const SharedFrame& frame, int width, int height);

 private:
  std::optional<FilterChain> graph_;
  int width_ = 0;
  int height_ = 0;
};

}  // namespace kvo::media
