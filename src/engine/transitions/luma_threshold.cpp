// Threshold: the light parts of the first picture give way first, the dark ones last.
#include "engine/transitions/registry.h"
#include "engine/transitions/threshold.h"
#include "media/pixel_rows.h"

#include <vector>

namespace kvo::engine {
namespace {

constexpr int kSoft = 5000;  // of 65535

void paint(const media::Picture& below, const media::Picture& above, double progress, media::Canvas& out) {
  const int position = static_cast<int>(progress * (kWay + kSoft));
  const auto width = static_cast<std::size_t>(out.width());
  std::vector<std::uint16_t> thresholds(width);
  std::vector<std::uint8_t> shares(width);
  std::vector<std::uint8_t> half(width);
  for (int plane = 0; plane < out.planes(); ++plane) {
    const auto count = static_cast<std::size_t>(out.width(plane));
    for (int y = 0; y < out.height(plane); ++y) {
      const auto* luma = below.row(0, y);
      if (media::Picture::isChroma(plane)) {
        media::halveRows(below.row(0, 2 * y), below.row(0, 2 * y + 1), half.data(), count);
        luma = half.data();
      }
      for (std::size_t x = 0; x < count; ++x)
        thresholds[x] = static_cast<std::uint16_t>(kWay - luma[x] * 257);
      media::sharesRow(thresholds.data(), position, kSoft, shares.data(), count);
      media::mixRowByShares(below.row(plane, y), above.row(plane, y), shares.data(), out.row(plane, y),
                            count);
    }
  }
}

Result<PaintTransition> makeLumaThreshold(const Params& /*params*/, int /*width*/, int /*height*/) {
  return PaintTransition([](const media::Picture& below, const media::Picture& above, const Moment& moment,
                            media::Canvas& out) { paint(below, above, moment.progress, out); });
}

}  // namespace

const DrawnTransition transitions::Threshold{makeLumaThreshold};

}  // namespace kvo::engine
