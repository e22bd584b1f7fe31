// Emboss and engrave: the picture as a grey relief, raised or cut in.
#include "engine/effects/registry.h"
#include "engine/picture/planes.h"

#include <opencv2/imgproc.hpp>

namespace kvo::engine {
namespace {

constexpr double kGrey = 126;

// Light from the upper left falls on slopes that face it.
DrawEffect relief(double raised) {
  return [raised](const media::Picture& picture, const EffectMoment& /*moment*/) {
    auto out = copyOf(picture);
    const cv::Matx33f slope(-1, -1, 0, -1, 0, 1, 0, 1, 1);
    cv::filter2D(planeOf(picture, 0), planeOf(out, 0), CV_8U, cv::Mat(slope) * raised, {-1, -1}, kGrey,
                 cv::BORDER_REPLICATE);
    out.fill(1, 128);
    out.fill(2, 128);
    if (out.hasAlpha()) {
      cv::Mat seen;
      planeOf(out, 3).convertTo(seen, CV_8U, (kGrey - 16) / 255, 16);
      cv::Mat luma = planeOf(out, 0);
      cv::min(luma, seen, luma);
    }
    return share(std::move(out));
  };
}

DrawEffect makeEmboss(const Params& /*params*/, int /*width*/, int /*height*/) { return relief(1); }
DrawEffect makeEngrave(const Params& /*params*/, int /*width*/, int /*height*/) { return relief(-1); }

}  // namespace

const DrawnEffect effects::Emboss{makeEmboss};
const DrawnEffect effects::Engrave{makeEngrave};

}  // namespace kvo::engine
