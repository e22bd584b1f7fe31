#include "engine/sound/mixer.h"

#include "base/guarded.h"
#include "media/audio_reader.h"

#include <algorithm>
#include <cmath>

namespace kvo::engine {
namespace {

using media::kChannels;
using media::kSampleRate;

// A block is mixed as one, and an envelope runs straight between its ends: 1.5 ms.
constexpr std::int64_t kGainBlock = 64;

std::int64_t sampleAt(double seconds) {
  return static_cast<std::int64_t>(std::llround(seconds * kSampleRate));
}

std::vector<ActiveSet::Range> sampleRanges(const Timeline& timeline) {
  std::vector<ActiveSet::Range> ranges;
  ranges.reserve(timeline.audio.size());
  for (const auto& clip : timeline.audio) ranges.push_back({sampleAt(clip.start), sampleAt(clip.stop)});
  return ranges;
}

float gainAt(const AudioClip& clip, double seconds) {
  double gain = 1;
  for (const auto& envelope : clip.envelopes) gain *= envelope.at(seconds);
  return static_cast<float>(gain);
}

}  // namespace

Mixer::Mixer(const Timeline& timeline, std::int64_t from, media::DamageList* damage)
    : timeline_(timeline),
      damage_(damage),
      clips_(sampleRanges(timeline)),
      position_(from),
      scout_(sampleRanges(timeline)) {}

// All that is read is read on from here, so the first read of a clip begins at its start, or here.
void Mixer::expect(std::int64_t ahead) {
  for (const auto number : scout_.at(position_ + ahead)) {
    if (open_.contains(number) || coming_.contains(number)) continue;
    const auto offset = std::max<std::int64_t>(position_ - clips_[number].first, 0);
    coming_[number] = std::async(std::launch::async, [this, number, offset] {
      return guarded([&] { return ClipSound::open(timeline_.audio[number], offset, damage_); });
    });
  }
}

Result<ClipSound> Mixer::opened(std::size_t clip, std::int64_t offset) {
  auto coming = coming_.extract(clip);
  if (!coming.empty()) return coming.mapped().get();
  return ClipSound::open(timeline_.audio[clip], offset, damage_);
}

Outcome Mixer::addClip(std::size_t number) {
  const auto& clip = timeline_.audio[number];
  const auto& range = clips_[number];
  const auto first = std::max(range.first, position_);
  const auto stop = std::min(range.stop, position_ + kGainBlock);
  if (first >= stop) return {};
  auto found = open_.find(number);
  if (found == open_.end()) {
    auto sound = opened(number, first - range.first);
    if (!sound) return sound.error();
    found = open_.emplace(number, std::move(*sound)).first;
  }
  const auto count = static_cast<std::size_t>(stop - first);
  clipBlock_.resize(count * kChannels);
  if (auto done = found->second.read(clipBlock_); !done) return done;

  const double begin = static_cast<double>(first - range.first) / kSampleRate;
  const float gain = gainAt(clip, begin);
  const float step =
      (gainAt(clip, begin + static_cast<double>(count) / kSampleRate) - gain) / static_cast<float>(count);
  auto* out = block_.data() + (first - position_) * kChannels;
  for (std::size_t sample = 0; sample < count; ++sample) {
    const float factor = gain + step * static_cast<float>(sample);
    for (std::size_t i = sample * kChannels; i < (sample + 1) * kChannels; ++i)
      out[i] += clipBlock_[i] * factor;
  }
  return {};
}

Outcome Mixer::mixBlock() {
  block_.assign(static_cast<std::size_t>(kGainBlock) * kChannels, 0.0F);
  // Those that sound at the block's first sample, and those that begin inside it.
  auto sounding = clips_.at(position_);
  const auto ahead = sounding;
  for (const auto number : clips_.at(position_ + kGainBlock - 1)) {
    if (!std::binary_search(ahead.begin(), ahead.end(), number)) sounding.push_back(number);
  }
  for (const auto number : sounding) {
    if (auto done = addClip(number); !done) return done;
  }
  std::erase_if(open_, [&](const auto& entry) { return clips_[entry.first].stop <= position_ + kGainBlock; });
  position_ += kGainBlock;
  limiter_.process(block_, ready_);
  return {};
}

Outcome Mixer::read(std::span<float> samples) {
  while (ready_.size() < samples.size()) {
    if (auto done = mixBlock(); !done) return done;
  }
  std::copy_n(ready_.begin(), samples.size(), samples.begin());
  ready_.erase(ready_.begin(), ready_.begin() + static_cast<std::ptrdiff_t>(samples.size()));
  return {};
}

}  // namespace kvo::engine
