#include "engine/sound/clip_sound.h"

#include "base/numbers.h"
#include "media/audio_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include <rubberband/RubberBandStretcher.h>

namespace kvo::engine {
namespace {

using RubberBand::RubberBandStretcher;

// Lengths of a document are rounded; a clip that runs off its speed by less than this runs at speed 1.
constexpr double kSameLength = 0.002;
constexpr double kSlowest = 0.0099;   // the stretcher can do no more
constexpr std::size_t kBlock = 1024;  // stereo samples given to the stretcher at a time

using Planes = std::array<std::vector<float>, media::kChannels>;

std::int64_t samplesOf(double seconds) {
  return static_cast<std::int64_t>(std::llround(seconds * media::kSampleRate));
}

}  // namespace

struct ClipSound::State {
  State(media::AudioReader source, double clipRatio) : reader(std::move(source)), ratio(clipRatio) {
    if (ratio == 1) return;
    stretcher = std::make_unique<RubberBandStretcher>(
        media::kSampleRate, media::kChannels,
        RubberBandStretcher::OptionProcessRealTime | RubberBandStretcher::OptionEngineFiner, 1 / ratio);
    stretcher->setMaxProcessSize(kBlock);
    toDrop = stretcher->getStartDelay();
    interleaved.resize(kBlock * media::kChannels);
    for (auto& plane : planes) plane.resize(kBlock);
    const std::size_t pad = stretcher->getPreferredStartPad();
    for (std::size_t given = 0; given < pad; given += kBlock) feed(std::min(kBlock, pad - given));
  }

  void feed(std::size_t count) {
    const std::array<const float*, media::kChannels> inputs = {planes[0].data(), planes[1].data()};
    stretcher->process(inputs.data(), count, false);
  }

  Outcome feedFromFile() {
    if (auto done = reader.read(interleaved); !done) return done;
    for (std::size_t i = 0; i < kBlock; ++i) {
      for (std::size_t channel = 0; channel < planes.size(); ++channel) {
        planes[channel][i] = interleaved[i * planes.size() + channel];
      }
    }
    feed(kBlock);
    return {};
  }

  // Takes up to `count` stretched samples out into the front of `planes`-sized buffers.
  std::size_t take(std::size_t count) {
    const auto ready = stretcher->available();
    if (ready <= 0) return 0;
    const auto wanted = std::min({count, static_cast<std::size_t>(ready), kBlock});
    for (auto& plane : stretched) plane.resize(kBlock);
    const std::array<float*, media::kChannels> outputs = {stretched[0].data(), stretched[1].data()};
    return stretcher->retrieve(outputs.data(), wanted);
  }

  media::AudioReader reader;
  double ratio;
  std::unique_ptr<RubberBandStretcher> stretcher;
  std::size_t toDrop = 0;  // the stretcher's delay, still to be thrown away
  std::vector<float> interleaved;
  Planes planes;
  Planes stretched;
};

ClipSound::ClipSound(std::unique_ptr<State> state) : state_(std::move(state)) {}
ClipSound::ClipSound(ClipSound&&) noexcept = default;
ClipSound& ClipSound::operator=(ClipSound&&) noexcept = default;
ClipSound::~ClipSound() = default;

Result<ClipSound> ClipSound::open(const Clip& clip, std::int64_t offset, media::DamageList* damage) {
  auto reader = media::AudioReader::open(clip.src, damage);
  if (!reader) return reader.error();
  const double source = clip.mstop - clip.mstart;
  const double shown = clip.stop - clip.start;
  const double ratio = std::fabs(source - shown) < kSameLength ? 1 : source / shown;
  if (ratio < kSlowest)
    return Error{"clip " + clip.src + ": its sound cannot be played at a speed of " + ShortText(ratio)};
  const double from = clip.mstart + static_cast<double>(offset) / media::kSampleRate * ratio;
  if (auto done = reader->seek(samplesOf(from)); !done) return done.error();
  return ClipSound(std::make_unique<State>(std::move(*reader), ratio));
}

Outcome ClipSound::read(std::span<float> samples) {
  auto& s = *state_;
  if (!s.stretcher) return s.reader.read(samples);
  std::size_t filled = 0;
  const std::size_t wanted = samples.size() / media::kChannels;
  while (filled < wanted) {
    const auto got = s.take(s.toDrop > 0 ? s.toDrop : wanted - filled);
    if (got == 0) {
      if (auto done = s.feedFromFile(); !done) return done;
      continue;
    }
    if (s.toDrop > 0) {
      s.toDrop -= got;
      continue;
    }
    for (std::size_t i = 0; i < got; ++i) {
      for (std::size_t channel = 0; channel < s.stretched.size(); ++channel) {
        samples[(filled + i) * s.stretched.size() + channel] = s.stretched[channel][i];
      }
    }
    filled += got;
  }
  return {};
}

}  // namespace kvo::engine
