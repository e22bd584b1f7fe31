#include "media/audio_reader.h"

#include "media/ffmpeg.h"
#include "media/picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace kvo::media {
namespace {

constexpr int kMaxBadPackets = 100;
constexpr std::int64_t kRestartGap = kSampleRate / 50;  // a jump in time of more than 20 ms is one
constexpr double kPreroll = 0.25;                       // seconds decoded ahead of a seek's target

}  // namespace

struct AudioReader::State {
  std::string path;
  FormatHandle format;
  CodecHandle decoder;
  ResamplerHandle resampler;
  PacketHandle packet{av_packet_alloc()};
  int stream = 0;
  double origin = 0;
  int sourceRate = 0;
  AVSampleFormat sourceFormat = AV_SAMPLE_FMT_NONE;
  int sourceChannels = 0;
  bool ended = false;
  int badPackets = 0;
  std::int64_t position = 0;     // sample the next read begins with
  std::int64_t bufferStart = 0;  // sample that the buffer begins with
  std::vector<float> buffer;     // decoded and not yet read
  bool bufferPlaced = false;

  std::int64_t bufferEnd() const {
    return bufferStart + static_cast<std::int64_t>(buffer.size()) / kChannels;
  }

  Outcome configure(const AVFrame& frame) {
    if (resampler && frame.sample_rate == sourceRate && frame.format == sourceFormat &&
        frame.ch_layout.nb_channels == sourceChannels) {
      return {};
    }
    AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
    AVChannelLayout layout{};
    if (frame.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC) {
      av_channel_layout_default(&layout, frame.ch_layout.nb_channels);
    } else {
      av_channel_layout_copy(&layout, &frame.ch_layout);
    }
    SwrContext* raw = nullptr;
    int made = swr_alloc_set_opts2(&raw, &stereo, AV_SAMPLE_FMT_FLT, kSampleRate, &layout,
                                   static_cast<AVSampleFormat>(frame.format), frame.sample_rate, 0, nullptr);
    av_channel_layout_uninit(&layout);
    resampler.reset(raw);
    // One channel comes from both sides as loud as it is; the resampler would take 3 dB off.
    constexpr std::array<double, kChannels> kBothSides = {1, 1};
    if (made >= 0 && frame.ch_layout.nb_channels == 1) made = swr_set_matrix(raw, kBothSides.data(), 1);
    if (made >= 0) made = swr_init(raw);
    if (made < 0) return ffmpegError("cannot convert the sound of " + path, made);
    sourceRate = frame.sample_rate;
    sourceFormat = static_cast<AVSampleFormat>(frame.format);
    sourceChannels = frame.ch_layout.nb_channels;
    return {};
  }

  // Lays converted samples behind the buffer; the first of a run is placed by its time.
  Outcome take(const AVFrame* frame) {
    if (frame != nullptr) {
      if (auto done = configure(*frame); !done) return done;
      place(*frame);
    }
    if (!resampler) return {};
    const int input = frame != nullptr ? frame->nb_samples : 0;
    const int room = swr_get_out_samples(resampler.get(), input);
    const auto before = buffer.size();
    buffer.resize(before + static_cast<std::size_t>(std::max(room, 0)) * kChannels);
    auto* out = reinterpret_cast<std::uint8_t*>(buffer.data() + before);
    const auto** in = frame != nullptr ? const_cast<const std::uint8_t**>(frame->extended_data) : nullptr;
    const int got = swr_convert(resampler.get(), &out, room, in, input);
    buffer.resize(before + static_cast<std::size_t>(std::max(got, 0)) * kChannels);
    return got < 0 ? Outcome(ffmpegError("cannot convert the sound of " + path, got)) : Outcome();
  }

  void place(const AVFrame& frame) {
    const auto pts = frame.best_effort_timestamp;
    if (pts == AV_NOPTS_VALUE) {
      bufferPlaced = true;
      return;
    }
    const double seconds = static_cast<double>(pts) * av_q2d(format->streams[stream]->time_base) - origin;
    const auto sample = static_cast<std::int64_t>(std::llround(seconds * kSampleRate));
    if (!bufferPlaced) {
      bufferStart = sample;
      bufferPlaced = true;
      return;
    }
    const auto expected = bufferEnd() + swr_get_delay(resampler.get(), kSampleRate);
    if (sample > expected + kRestartGap) {
      buffer.resize(buffer.size() + static_cast<std::size_t>(sample - expected) * kChannels, 0.0F);
    }
  }

  Outcome decodeMore() {
    auto frame = newFrame();
    for (;;) {
      const int got = avcodec_receive_frame(decoder.get(), frame.get());
      if (got >= 0) return take(frame.get());
      if (got == AVERROR_EOF) {
        ended = true;
        return take(nullptr);
      }
      if (got != AVERROR(EAGAIN) && ++badPackets > kMaxBadPackets) {
        return ffmpegError("cannot decode the sound of " + path, got);
      }
      if (auto done = feed(); !done) return done;
    }
  }

  Outcome feed() {
    for (;;) {
      const int got = av_read_frame(format.get(), packet.get());
      if (got < 0) {
        avcodec_send_packet(decoder.get(), nullptr);
        return got == AVERROR_EOF ? Outcome() : Outcome(ffmpegError("cannot read " + path, got));
      }
      const bool wanted = packet->stream_index == stream;
      const int sent = wanted ? avcodec_send_packet(decoder.get(), packet.get()) : 0;
      av_packet_unref(packet.get());
      if (sent < 0 && sent != AVERROR(EAGAIN) && ++badPackets > kMaxBadPackets) {
        return ffmpegError("cannot decode the sound of " + path, sent);
      }
      if (wanted) return {};
    }
  }
};

AudioReader::AudioReader(std::unique_ptr<State> state) : state_(std::move(state)) {}
AudioReader::AudioReader(AudioReader&&) noexcept = default;
AudioReader& AudioReader::operator=(AudioReader&&) noexcept = default;
AudioReader::~AudioReader() = default;

Result<AudioReader> AudioReader::open(const std::string& path) {
  auto state = std::make_unique<State>();
  state->path = path;
  auto format = openInput(path);
  if (!format) return format.error();
  state->format = std::move(*format);
  state->stream = av_find_best_stream(state->format.get(), AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
  if (state->stream < 0) return Error{"no sound in " + path};
  for (unsigned i = 0; i < state->format->nb_streams; ++i) {
    if (static_cast<int>(i) != state->stream) state->format->streams[i]->discard = AVDISCARD_ALL;
  }
  auto decoder = openDecoder(*state->format, state->stream, path, 1);
  if (!decoder) return decoder.error();
  state->decoder = std::move(*decoder);
  if (state->format->start_time != AV_NOPTS_VALUE) {
    state->origin = static_cast<double>(state->format->start_time) / AV_TIME_BASE;
  }
  return AudioReader(std::move(state));
}

Outcome AudioReader::seek(std::int64_t sample) {
  auto& s = *state_;
  const double seconds = static_cast<double>(sample) / kSampleRate;
  const auto target =
      static_cast<std::int64_t>((std::max(seconds - kPreroll, 0.0) + s.origin) * AV_TIME_BASE);
  if (sample > 0 || s.position > 0 || s.bufferPlaced) {
    const int done = avformat_seek_file(s.format.get(), -1, INT64_MIN, target, target, AVSEEK_FLAG_BACKWARD);
    if (done < 0) return ffmpegError("cannot seek in " + s.path, done);
  }
  avcodec_flush_buffers(s.decoder.get());
  s.resampler.reset();
  s.buffer.clear();
  s.bufferPlaced = false;
  s.ended = false;
  s.position = sample;
  s.bufferStart = sample;
  return {};
}

Outcome AudioReader::read(std::span<float> samples) {
  auto& s = *state_;
  const auto count = static_cast<std::int64_t>(samples.size()) / kChannels;
  while (!s.ended && s.bufferEnd() < s.position + count) {
    if (auto done = s.decodeMore(); !done) return done;
    // What lies ahead of the position is of no use; it is let go in large pieces.
    if (s.bufferPlaced && s.bufferEnd() < s.position) {
      s.bufferStart = s.bufferEnd();
      s.buffer.clear();
    }
  }
  std::fill(samples.begin(), samples.end(), 0.0F);
  const auto from = std::max(s.position, s.bufferStart);
  const auto to = std::min(s.position + count, s.bufferEnd());
  if (from < to) {
    std::copy_n(s.buffer.begin() + (from - s.bufferStart) * kChannels, (to - from) * kChannels,
                samples.begin() + (from - s.position) * kChannels);
  }
  s.position += count;
  const auto used = std::clamp<std::int64_t>(s.position - s.bufferStart, 0, s.bufferEnd() - s.bufferStart);
  s.buffer.erase(s.buffer.begin(), s.buffer.begin() + used * kChannels);
  s.bufferStart += used;
  return {};
}

double AudioReader::duration() const {
  const auto length = state_->format->duration;
  return length > 0 ? static_cast<double>(length) / AV_TIME_BASE : 0;
}

}  // namespace kvo::media
