#include "adapters/media/media_sound_peaks.h"

#include "base/guarded.h"
#include "media/audio_reader.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace kvo {
namespace {

constexpr double kLongestSound = 100 * 3600;  // seconds; a file that tells more is damaged

std::uint8_t loudest(std::span<const float> samples) {
  float peak = 0;
  for (const float sample : samples) peak = std::max(peak, std::abs(sample));
  return static_cast<std::uint8_t>(std::lround(std::min(peak, 1.0F) * 255));
}

Result<std::vector<std::uint8_t>> peaksOf(const std::string& path, double seconds, int perSecond,
                                          const std::function<void()>& alive) {
  auto reader = media::AudioReader::open(path);
  if (!reader) return reader.error();
  const auto count = static_cast<std::int64_t>(std::ceil(seconds * perSecond));
  std::vector<std::uint8_t> peaks;
  peaks.reserve(static_cast<std::size_t>(count));
  std::vector<float> samples;
  for (std::int64_t i = 0; i < count; ++i) {
    const auto stretch = (i + 1) * media::kSampleRate / perSecond - i * media::kSampleRate / perSecond;
    samples.resize(static_cast<std::size_t>(stretch * media::kChannels));
    if (auto done = reader->read(samples); !done) return done.error();
    peaks.push_back(loudest(samples));
    alive();
  }
  return peaks;
}

}  // namespace

Result<std::vector<std::uint8_t>> MediaSoundPeaks::peaks(const std::string& path, int perSecond,
                                                         const std::function<void()>& alive) {
  const auto facts = facts_.facts(path);
  if (!facts) return facts.error();
  if (!facts->hasAudio) return Error{"no sound in " + path};
  if (facts->wholeDuration <= 0 || facts->wholeDuration > kLongestSound)
    return Error{path + " tells no length"};
  return guarded([&] { return peaksOf(path, facts->wholeDuration, perSecond, alive); });
}

}  // namespace kvo
