// How loud the sound of a file is, by FFmpeg.
#pragma once

#include "ports/media_contents.h"
#include "ports/sound_peaks.h"

namespace kvo {

class MediaSoundPeaks : public SoundPeaks {
 public:
  /// `facts`, which tells how long a file is, outlives the object.
  explicit MediaSoundPeaks(MediaContents& facts) : facts_(facts) {}

  Result<std::vector<std::uint8_t>> peaks(const std::string& path, int perSecond,
                                          const std::function<void()>& alive) override;

 private:
  MediaContents& facts_;
};

}  // namespace kvo
