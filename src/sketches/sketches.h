// Small pictures and peaks of media files, for whoever shows files in small: the list, the slider, a
// timeline. They are made in the background and kept from one run to the next.
#pragma once

#include "ports/media_contents.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kvo {

/// A picture has the file's own shape and fits this box; one that is smaller stays as it is. Pixels.
inline constexpr int kSketchWidth = 256;
inline constexpr int kSketchHeight = 144;

class Sketches {
 public:
  using Picture = std::shared_ptr<const FramePicture>;
  using Peaks = std::shared_ptr<const std::vector<std::uint8_t>>;

  Sketches() = default;
  Sketches(const Sketches&) = delete;
  Sketches& operator=(const Sketches&) = delete;
  virtual ~Sketches() = default;

  /// What a file shows at `seconds`. Nothing while it is being made, null where there is none. Of the many
  /// that are asked for the last comes first, and those that were asked for long ago may never come: ask
  /// again for what is still wanted when others come.
  virtual std::optional<Picture> picture(const std::string& path, double seconds) = 0;

  /// The loudest sample of each stretch of a file's sound, `perSecond` (1 to 1000) stretches a second: 0 is
  /// silence, 255 full scale. Nothing while they are being made, null where there is no sound.
  virtual std::optional<Peaks> peaks(const std::string& path, int perSecond) = 0;

  /// Have the picture, or the peaks, made when nothing else is wanted, for later.
  virtual void preparePicture(const std::string& path, double seconds) = 0;
  virtual void preparePeaks(const std::string& path) = 0;

  /// Who hears that something of a file has come.
  virtual void whenCome(std::function<void(const std::string& path)> heard) = 0;
};

}  // namespace kvo
