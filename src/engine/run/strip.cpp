#include "engine/run/strip.h"

#include "engine/document/document_reader.h"
#include "engine/picture/compositor.h"
#include "media/bgr.h"

#include <algorithm>
#include <utility>

namespace kvo::engine {
namespace {

constexpr std::size_t kStripBytes = 3;  // a pixel

}  // namespace

Result<std::vector<FramePicture>> drawStrip(std::string document, int frames) {
  const auto timeline = readDocument(std::move(document));
  if (!timeline) return timeline.error();
  if (!timeline->hasVideo) return Error{"the document has no picture"};
  Compositor compositor(*timeline);
  const auto last = std::max<std::int64_t>(0, timeline->frames() - 1);
  std::vector<FramePicture> strip;
  for (int i = 0; i < frames; ++i) {
    const auto picture = compositor.frame(last * i / std::max(1, frames - 1));
    if (!picture) return picture.error();
    FramePicture shown{picture->width(), picture->height(), {}};
    const auto stride = static_cast<std::size_t>(shown.width) * kStripBytes;
    shown.bgr.resize(stride * static_cast<std::size_t>(shown.height));
    media::toBgr(*picture, shown.bgr.data(), stride);
    strip.push_back(std::move(shown));
  }
  return strip;
}

}  // namespace kvo::engine
