#include "playback/frame_count.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kvo {
namespace {

// A place that lies this little ahead of a picture means it: containers count in milliseconds, and marks are
// written with a few decimals. Seconds, and no more than such a part of a picture.
constexpr double kMeant = 0.0011;
constexpr double kMostMeant = 0.25;

}  // namespace

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

FrameCount FrameCount::ofBegins(std::vector<double> begins, double end) {
  FrameCount count;
  count.begins_ = std::move(begins);
  const auto pictures = static_cast<double>(count.begins_.size());
  count.begins_.push_back(std::max(end, count.begins_.back()));
  count.perSecond_ = count.begins_.back() > 0 ? pictures / count.begins_.back() : 0;
  return count;
}

double FrameCount::frameAt(double seconds) const {
  if (!begins_.empty()) {
    const auto behind = std::upper_bound(begins_.begin() + 1, begins_.end(), seconds + kMeant);
    return static_cast<double>(behind - begins_.begin() - 1);
  }
  if (!pictures_) return seconds * perSecond_;
  const double frame = seconds * pictures_->numerator() / pictures_->denominator();
  return std::floor(frame + std::min(kMeant * perSecond_, kMostMeant));
}

double FrameCount::beginAt(double seconds) const {
  return begins_.empty() || seconds >= begins_.back() ? seconds : secondsAt(frameAt(seconds));
}

double FrameCount::framesIn(double seconds) const {
  if (!begins_.empty()) {
    const double frame = frameAt(seconds);
    const double begin = secondsAt(frame);
    return seconds - begin > secondsAt(frame + 1) - seconds ? frame + 1 : frame;
  }
  if (!pictures_) return seconds * perSecond_;
  return std::round(seconds * pictures_->numerator() / pictures_->denominator());
}

double FrameCount::secondsAt(double frame) const {
  if (!begins_.empty()) {
    const auto last = static_cast<double>(begins_.size() - 1);
    return begins_[static_cast<std::size_t>(std::clamp(std::floor(frame), 0.0, last))];
  }
  if (!pictures_) return perSecond_ > 0 ? frame / perSecond_ : 0;
  return frame * pictures_->denominator() / pictures_->numerator();
}

}  // namespace kvo
