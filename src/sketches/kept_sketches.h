// Sketches out of memory, or else by processes that make them or find them on the disk: one for pictures, one
// for peaks, which take longer.
#pragma once

#include "ports/jpeg.h"
#include "sketches/sketch_process.h"
#include "sketches/sketches.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace kvo {

class KeptSketches : public Sketches {
 public:
  static constexpr std::size_t kMostPictures = 256;  ///< in memory, 110 KB each
  static constexpr std::size_t kMostSounds = 32;     ///< in memory, 360 KB for an hour

  /// All that `ports` names, and `jpeg`, outlive the object.
  KeptSketches(const SketchProcess::Ports& ports, const Jpeg& jpeg);

  std::optional<Picture> picture(const std::string& path, double seconds) override;
  std::optional<Peaks> peaks(const std::string& path, int perSecond) override;
  void preparePicture(const std::string& path, double seconds) override;
  void preparePeaks(const std::string& path) override;
  void whenCome(std::function<void(const std::string& path)> heard) override { heard_ = std::move(heard); }

 private:
  template <class Content>
  struct Known {
    Content content;
    std::uint64_t used = 0;  // higher the later
  };
  using Place = std::pair<std::string, std::uint32_t>;  // milliseconds

  void pictureCame(const SketchOrder& order, const std::string& jpeg);
  void peaksCame(const SketchOrder& order, const std::string& loud);

  const Jpeg& jpeg_;
  std::function<void(const std::string&)> heard_ = [](const std::string&) {};
  std::map<Place, Known<Picture>> pictures_;
  std::map<std::string, Known<std::map<int, Peaks>>> sounds_;  // by the path; the peaks by their rate
  std::uint64_t uses_ = 0;
  SketchProcess drawing_;
  SketchProcess listening_;
};

/// Peaks at another rate: what lies in a stretch, even in part, counts for it. Both rates are 1 or more.
std::vector<std::uint8_t> peaksAtRate(const std::vector<std::uint8_t>& peaks, int rate, int wanted);

}  // namespace kvo
