#include "windows/editor/timeline_sketches.h"

#include "ui/pictures.h"

#include <QImage>
#include <algorithm>
#include <array>
#include <cmath>

namespace kvo {
namespace {

constexpr std::size_t kMostPictures = 600;  // 33 KB each at the usual height
constexpr std::array kRates = {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};

QPixmap scaled(const FramePicture& picture, double height, double pixelRatio) {
  auto pixmap = QPixmap::fromImage(
      imageOver(picture)
          .scaledToHeight(std::max(1, qRound(height * pixelRatio)), Qt::SmoothTransformation)
          .convertToFormat(QImage::Format_RGB32));
  pixmap.setDevicePixelRatio(pixelRatio);
  return pixmap;
}

}  // namespace

void TimelineSketches::setHeight(double height, double pixelRatio) {
  if (height_ == height && pixelRatio_ == pixelRatio) return;
  height_ = height;
  pixelRatio_ = pixelRatio;
  kept_.clear();
}

QPixmap TimelineSketches::picture(const std::string& file, double seconds) {
  const Place place{file, std::llround(seconds * 1000)};
  if (const auto found = kept_.find(place); found != kept_.end()) {
    found->second.seen = frame_;
    return found->second.picture;
  }
  const auto come = sketches_.picture(file, seconds);
  if (!come) return nearest(place);
  auto& kept = kept_[place];
  kept.seen = frame_;
  kept.isNone = *come == nullptr;
  if (!kept.isNone) kept.picture = scaled(**come, height_, pixelRatio_);
  return kept.picture;
}

QPixmap TimelineSketches::nearest(const Place& place) const {
  const auto behind = kept_.lower_bound(place);
  const bool hasBehind = behind != kept_.end() && behind->first.first == place.first;
  if (behind != kept_.begin()) {
    const auto ahead = std::prev(behind);
    const bool isNearer =
        !hasBehind || place.second - ahead->first.second < behind->first.second - place.second;
    if (ahead->first.first == place.first && isNearer) return ahead->second.picture;
  }
  return hasBehind ? behind->second.picture : QPixmap();
}

bool TimelineSketches::mayHavePicture(const std::string& file) const {
  const auto found = kept_.lower_bound({file, 0});
  return found == kept_.end() || found->first.first != file || !found->second.isNone;
}

std::pair<Sketches::Peaks, int> TimelineSketches::peaks(const std::string& file, double perSecond) {
  const auto* found = std::find_if(kRates.begin(), kRates.end(), [&](int rate) { return rate >= perSecond; });
  const int rate = found == kRates.end() ? kRates.back() : *found;
  return {sketches_.peaks(file, rate).value_or(nullptr), rate};
}

void TimelineSketches::frameDrawn() {
  ++frame_;
  if (kept_.size() <= kMostPictures) return;
  std::erase_if(kept_, [&](const auto& entry) { return entry.second.seen + 1 < frame_; });
}

}  // namespace kvo
