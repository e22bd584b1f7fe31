// The port to how loud the sound of a file is along its length.
#pragma once

#include "base/result.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace kvo {

class SoundPeaks {
 public:
  SoundPeaks() = default;
  SoundPeaks(const SoundPeaks&) = delete;
  SoundPeaks& operator=(const SoundPeaks&) = delete;
  virtual ~SoundPeaks() = default;

  /// The loudest sample of each stretch of the sound, `perSecond` stretches a second from the file's start to
  /// its end: 0 for silence, 255 for full scale. `alive` is called again and again on the way. Fails with a
  /// line that names the file when it has no sound, or tells no length.
  virtual Result<std::vector<std::uint8_t>> peaks(const std::string& path, int perSecond,
                                                  const std::function<void()>& alive) = 0;
};

}  // namespace kvo
