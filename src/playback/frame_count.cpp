#include "playback/frame_count.h"

#include <cmath>

namespace kvo {

FrameCount FrameCount::ofPictures(double perSecond) {
  FrameCount count;
  count.pictures_ = FrameRate::fromDecimal(perSecond);
  count.perSecond_ = count.pictures_ ? count.pictures_->perSecond() : 0;
  return count;
}

FrameCount FrameCount::ofSound() {
  FrameCount count;
  count.perSecond_ = 1;
  return count;
}

double FrameCount::frameAt(double seconds) const {
  if (!pictures_) return seconds * perSecond_;
  return std::round(seconds * pictures_->numerator() / pictures_->denominator());
}

double FrameCount::secondsAt(double frame) const {
  if (!pictures_) return perSecond_ > 0 ? frame / perSecond_ : 0;
  return frame * pictures_->denominator() / pictures_->numerator();
}

}  // namespace kvo
