#include "sketches/kept_sketches.h"

#include "sketches/sketch_file.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr int kMostPeaks = 1000;  // a second
constexpr double kLongest = 4e9;  // milliseconds, 46 days

std::uint32_t millisecondsOf(double seconds) {
  return static_cast<std::uint32_t>(std::clamp(std::round(seconds * 1000), 0.0, kLongest));
}

Sketches::Picture decoded(const Jpeg& jpeg, const std::string& bytes) {
  const auto size = bytes.empty() ? Result<JpegSize>(Error{"there is none"}) : jpeg.size(bytes);
  if (!size || size->width > kSketchWidth || size->height > kSketchHeight) return nullptr;
  auto picture = std::make_shared<FramePicture>();
  picture->width = size->width;
  picture->height = size->height;
  const auto stride = static_cast<std::size_t>(size->width) * 3;
  picture->bgr.resize(stride * static_cast<std::size_t>(size->height));
  return jpeg.decode(bytes, 1, picture->bgr, stride) ? picture : nullptr;
}

// Forgets what has not been used for the longest time.
void trim(auto& known, std::size_t most) {
  while (known.size() > most) {
    known.erase(std::min_element(known.begin(), known.end(),
                                 [](const auto& a, const auto& b) { return a.second.used < b.second.used; }));
  }
}

}  // namespace

KeptSketches::KeptSketches(const SketchProcess::Ports& ports, const Jpeg& jpeg)
    : jpeg_(jpeg),
      drawing_(ports, [this](const SketchOrder& order, const auto& data) { pictureCame(order, data); }),
      listening_(ports, [this](const SketchOrder& order, const auto& data) { peaksCame(order, data); }) {}

std::optional<Sketches::Picture> KeptSketches::picture(const std::string& path, double seconds) {
  if (path.empty()) return Picture();
  const auto found = pictures_.find({path, millisecondsOf(seconds)});
  if (found == pictures_.end()) {
    drawing_.want({SketchOrder::Kind::Picture, path, millisecondsOf(seconds)});
    return std::nullopt;
  }
  found->second.used = ++uses_;
  return found->second.content;
}

void KeptSketches::pictureCame(const SketchOrder& order, const std::string& jpeg) {
  pictures_[{order.path, order.milliseconds}] = {decoded(jpeg_, jpeg), ++uses_};
  trim(pictures_, kMostPictures);
  heard_(order.path);
}

std::optional<Sketches::Peaks> KeptSketches::peaks(const std::string& path, int perSecond) {
  if (path.empty()) return Peaks();
  const auto found = sounds_.find(path);
  if (found == sounds_.end()) {
    listening_.want({SketchOrder::Kind::Peaks, path});
    return std::nullopt;
  }
  found->second.used = ++uses_;
  auto& rates = found->second.content;
  const auto& made = rates.at(kKeptPeaks);
  if (made == nullptr) return made;
  const int rate = std::clamp(perSecond, 1, kMostPeaks);
  auto& peaks = rates[rate];
  if (peaks == nullptr)
    peaks = std::make_shared<const std::vector<std::uint8_t>>(peaksAtRate(*made, kKeptPeaks, rate));
  return peaks;
}

void KeptSketches::peaksCame(const SketchOrder& order, const std::string& loud) {
  auto peaks =
      loud.empty() ? nullptr : std::make_shared<const std::vector<std::uint8_t>>(loud.begin(), loud.end());
  sounds_[order.path] = {{{kKeptPeaks, std::move(peaks)}}, ++uses_};
  trim(sounds_, kMostSounds);
  heard_(order.path);
}

void KeptSketches::preparePicture(const std::string& path, double seconds) {
  if (!path.empty()) drawing_.want({SketchOrder::Kind::Picture, path, millisecondsOf(seconds), true});
}

void KeptSketches::preparePeaks(const std::string& path) {
  if (!path.empty()) listening_.want({SketchOrder::Kind::Peaks, path, 0, true});
}

std::vector<std::uint8_t> peaksAtRate(const std::vector<std::uint8_t>& peaks, int rate, int wanted) {
  const auto from = static_cast<std::size_t>(rate);
  const auto to = static_cast<std::size_t>(wanted);
  std::vector<std::uint8_t> all((peaks.size() * to + from - 1) / from);
  for (std::size_t i = 0; i < all.size(); ++i) {
    const auto first = i * from / to;
    const auto end =
        std::clamp((i + 1) * from / to + ((i + 1) * from % to == 0 ? 0 : 1), first + 1, peaks.size());
    all[i] = *std::max_element(peaks.begin() + static_cast<std::ptrdiff_t>(first),
                               peaks.begin() + static_cast<std::ptrdiff_t>(end));
  }
  return all;
}

}  // namespace kvo
