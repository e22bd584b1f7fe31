#include "media/sound_shape.h"

#include "media/audio_reader.h"
#include "media/ffmpeg.h"

#include <algorithm>

namespace kvo::media {

struct SoundShape::State {
  int channels = kChannels;
  ResamplerHandle resampler;  // none where nothing changes
};

SoundShape::SoundShape(std::unique_ptr<State> state) : state_(std::move(state)) {}
SoundShape::SoundShape(SoundShape&&) noexcept = default;
SoundShape& SoundShape::operator=(SoundShape&&) noexcept = default;
SoundShape::~SoundShape() = default;

Result<SoundShape> SoundShape::open(int sampleRate, int channels) {
  auto state = std::make_unique<State>();
  state->channels = channels;
  if (sampleRate == kSampleRate && channels == kChannels) return SoundShape(std::move(state));
  AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
  AVChannelLayout layout{};
  av_channel_layout_default(&layout, channels);
  SwrContext* raw = nullptr;
  int made = swr_alloc_set_opts2(&raw, &layout, AV_SAMPLE_FMT_FLT, sampleRate, &stereo, AV_SAMPLE_FMT_FLT,
                                 kSampleRate, 0, nullptr);
  state->resampler.reset(raw);
  av_channel_layout_uninit(&layout);
  if (made >= 0) made = swr_init(raw);
  if (made < 0) return ffmpegError("cannot convert the sound of the movie", made);
  return SoundShape(std::move(state));
}

void SoundShape::convert(std::span<const float> samples, std::vector<float>& out) {
  auto& s = *state_;
  if (!s.resampler) {
    out.insert(out.end(), samples.begin(), samples.end());
    return;
  }
  const int given = static_cast<int>(samples.size()) / kChannels;
  const auto room = static_cast<std::size_t>(std::max(swr_get_out_samples(s.resampler.get(), given), 0));
  const auto before = out.size();
  const auto channels = static_cast<std::size_t>(s.channels);
  out.resize(before + room * channels);
  auto* to = reinterpret_cast<std::uint8_t*>(out.data() + before);
  const auto* from = reinterpret_cast<const std::uint8_t*>(samples.data());
  const int got =
      swr_convert(s.resampler.get(), &to, static_cast<int>(room), given > 0 ? &from : nullptr, given);
  if (got < 0) throw std::bad_alloc();  // nothing else can fail once it is set up
  out.resize(before + static_cast<std::size_t>(got) * channels);
}

}  // namespace kvo::media
