#include "media/sound_encoder.h"

#include "media/picture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvo::media {
namespace {

struct SoundTraits {
  const char* encoder;
  AVSampleFormat format;
};

const SoundTraits& soundTraitsOf(SoundCodec codec) {
  static constexpr std::array<SoundTraits, 6> kTraits = {{{"pcm_s16le", AV_SAMPLE_FMT_S16},
                                                          {"wmav2", AV_SAMPLE_FMT_FLTP},
                                                          {"aac", AV_SAMPLE_FMT_FLTP},
                                                          {"libopus", AV_SAMPLE_FMT_FLT},
                                                          {"flac", AV_SAMPLE_FMT_S16},
                                                          {"libmp3lame", AV_SAMPLE_FMT_FLTP}}};
  return kTraits.at(static_cast<std::size_t>(codec));
}

void putSamples(std::span<const float> part, std::size_t channels, AVFrame& frame) {
  switch (frame.format) {
    case AV_SAMPLE_FMT_S16:
      std::transform(part.begin(), part.end(), reinterpret_cast<std::int16_t*>(frame.data[0]), [](float s) {
        return static_cast<std::int16_t>(std::clamp(std::lrint(s * 32768.0F), -32768L, 32767L));
      });
      break;
    case AV_SAMPLE_FMT_FLT:
      std::copy(part.begin(), part.end(), reinterpret_cast<float*>(frame.data[0]));
      break;
    default:
      for (std::size_t channel = 0; channel < channels; ++channel) {
        auto* out = reinterpret_cast<float*>(frame.extended_data[channel]);
        for (auto i = channel; i < part.size(); i += channels) *out++ = part[i];
      }
  }
}

}  // namespace

Result<SoundEncoder> SoundEncoder::open(const Wish& wish, const std::string& name) {
  const auto& traits = soundTraitsOf(wish.codec);
  const auto* codec = avcodec_find_encoder_by_name(traits.encoder);
  if (codec == nullptr) {
    return Error{"cannot write " + name + ": FFmpeg has no encoder for its sound here (" +
                 std::string(traits.encoder) + ")"};
  }
  CodecHandle encoder(avcodec_alloc_context3(codec));
  if (!encoder) throw std::bad_alloc();
  auto& c = *encoder;
  c.sample_rate = wish.sampleRate;
  av_channel_layout_default(&c.ch_layout, wish.channels);
  c.sample_fmt = traits.format;
  c.time_base = {1, wish.sampleRate};
  if (wish.bitRate > 0) c.bit_rate = wish.bitRate;
  if (wish.headerInFile) c.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
  if (const int opened = avcodec_open2(&c, codec, nullptr); opened < 0)
    return ffmpegError("cannot encode the sound of " + name, opened);
  auto shape = SoundShape::open(wish.sampleRate, wish.channels);
  if (!shape) return shape.error();
  SoundEncoder made(std::move(encoder), std::move(*shape), name);
  if (wish.codec == SoundCodec::Wma2) {
    // A decoder throws away the first two frames. One is the encoder's own delay, which its time stamps
    // count; the other is put ahead here.
    made.held_.assign(made.chunk(), 0.0F);
    made.at_ = -c.frame_size;
  }
  return made;
}

// Of all channels in a frame of the encoder; 0 where a frame has any size.
std::size_t SoundEncoder::chunk() const {
  return static_cast<std::size_t>(encoder_->frame_size) * channels();
}

// A null frame asks for what the encoder still holds.
Outcome SoundEncoder::encode(const AVFrame* frame, const Take& take) {
  const auto failure = [&](int code) { return ffmpegError("cannot encode the sound of " + name_, code); };
  if (const int sent = avcodec_send_frame(encoder_.get(), frame); sent < 0 && sent != AVERROR_EOF)
    return failure(sent);
  const auto packet = newPacket();
  for (;;) {
    const int got = avcodec_receive_packet(encoder_.get(), packet.get());
    if (got == AVERROR(EAGAIN) || got == AVERROR_EOF) return {};
    if (got < 0) return failure(got);
    if (packet->duration == 0 && frame != nullptr) packet->duration = frame->nb_samples;
    if (auto done = take(*packet); !done) return done;
  }
}

Outcome SoundEncoder::writeFrame(std::span<const float> part, const Take& take) {
  const auto frame = newFrame();
  frame->format = encoder_->sample_fmt;
  frame->nb_samples = static_cast<int>(part.size() / channels());
  av_channel_layout_copy(&frame->ch_layout, &encoder_->ch_layout);
  frame->sample_rate = encoder_->sample_rate;
  frame->pts = at_;
  if (av_frame_get_buffer(frame.get(), 0) < 0) throw std::bad_alloc();
  putSamples(part, channels(), *frame);
  at_ += frame->nb_samples;
  return encode(frame.get(), take);
}

Outcome SoundEncoder::write(std::span<const float> samples, const Take& take) {
  shape_.convert(samples, held_);
  const auto size = chunk() > 0 ? chunk() : held_.size();
  std::size_t used = 0;
  for (; size > 0 && held_.size() - used >= size; used += size) {
    if (auto done = writeFrame(std::span<const float>(held_).subspan(used, size), take); !done) return done;
  }
  held_.erase(held_.begin(), held_.begin() + static_cast<std::ptrdiff_t>(used));
  return {};
}

Outcome SoundEncoder::finish(const Take& take) {
  if (auto done = write({}, take); !done) return done;
  const bool wholeOnly = (encoder_->codec->capabilities & AV_CODEC_CAP_SMALL_LAST_FRAME) == 0;
  if (wholeOnly && !held_.empty()) held_.resize(chunk(), 0.0F);
  if (!held_.empty()) {
    if (auto done = writeFrame(held_, take); !done) return done;
  }
  held_.clear();
  return encode(nullptr, take);
}

}  // namespace kvo::media
