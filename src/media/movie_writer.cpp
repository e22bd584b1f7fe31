#include "media/movie_writer.h"

#include "base/paths.h"
#include "base/text.h"
#include "media/audio_reader.h"
#include "media/ffmpeg.h"
#include "media/sound_shape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace kvo::media {
namespace {

constexpr int kIoBuffer = 1 << 18;
constexpr std::int64_t kMovieSoundRate = 128000;
constexpr std::int64_t kSoundOnlyRate = 192000;

// Advanced Systems Format: the header object of 30 bytes begins with the file properties object. From its
// start, behind its name (16 bytes) and size (8), stand the file's name (16), size, date and number of
// packets (8 each), and then, in units of 100 ns, the play duration, which counts the preroll too, and the
// send duration.
constexpr std::uint64_t kAsfPlayDuration = 30 + 16 + 8 + 16 + 3 * 8;
constexpr std::uint64_t kAsfSendDuration = kAsfPlayDuration + 8;
constexpr std::int32_t kAsfTicks = 10'000'000;         // a second
constexpr std::int64_t kAsfPreroll = 3100LL * 10'000;  // what the muxer writes there, in ticks

struct FreeIo {
  void operator()(AVIOContext* io) const {
    av_freep(static_cast<void*>(&io->buffer));
    avio_context_free(&io);
  }
};
struct FreeMuxer {
  void operator()(AVFormatContext* c) const { avformat_free_context(c); }
};

// Where the muxer's bytes go.
struct Sink {
  Replacement& target;
  std::int64_t at = 0;
  Outcome done;

  static int write(void* self, std::uint8_t* bytes, int count) {
    auto& sink = *static_cast<Sink*>(self);
    if (!sink.done) return AVERROR(EIO);
    sink.done = sink.target.write(static_cast<std::uint64_t>(sink.at),
                                  {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count)});
    if (!sink.done) return AVERROR(EIO);
    sink.at += count;
    return count;
  }

  static std::int64_t seek(void* self, std::int64_t offset, int whence) {
    auto& sink = *static_cast<Sink*>(self);
    const auto size = static_cast<std::int64_t>(sink.target.size());
    if ((whence & AVSEEK_SIZE) != 0) return size;
    switch (whence & ~AVSEEK_FORCE) {
      case SEEK_SET:
        sink.at = offset;
        break;
      case SEEK_CUR:
        sink.at += offset;
        break;
      case SEEK_END:
        sink.at = size + offset;
        break;
      default:
        return AVERROR(EINVAL);
    }
    return sink.at;
  }
};

const char* muxerOf(Container container) {
  switch (container) {
    case Container::Avi:
      return "avi";
    case Container::Wav:
      return "wav";
    default:
      return "asf";
  }
}

}  // namespace

struct MovieWriter::State {
  State(Replacement& target, const MovieFormat& wanted, std::string fileName)
      : sink{target, 0, {}}, format(wanted), name(std::move(fileName)) {}

  Sink sink;
  MovieFormat format;
  std::string name;
  std::unique_ptr<AVIOContext, FreeIo> io;
  std::unique_ptr<AVFormatContext, FreeMuxer> muxer;
  CodecHandle audioEncoder;
  AVStream* video = nullptr;
  AVStream* audio = nullptr;
  AVRational frameTime{1, 25};
  PacketHandle packet = newPacket();
  std::int64_t samples = 0;  // time of the next one
  std::int64_t early = 0;    // the stamp of the next packet ahead of the movie, while there are any
  std::int64_t framesGiven = 0;
  std::int64_t samplesGiven = 0;
  std::optional<SoundShape> shape;
  std::vector<float> held;  // samples that do not fill an encoder's frame yet

  Error failure(const std::string& what, int code) const {
    return sink.done ? ffmpegError(what + " " + name, code) : sink.done.error();
  }

  Outcome begin() {
    auto* buffer = static_cast<unsigned char*>(av_malloc(kIoBuffer));
    io.reset(avio_alloc_context(buffer, kIoBuffer, 1, &sink, nullptr, &Sink::write, &Sink::seek));
    AVFormatContext* raw = nullptr;
    if (const int made = avformat_alloc_output_context2(&raw, nullptr, muxerOf(format.container), nullptr);
        made < 0) {
      return failure("cannot write", made);
    }
    muxer.reset(raw);
    io->seekable = AVIO_SEEKABLE_NORMAL;
    io->direct = 1;  // whole frames go to the file without a copy into the buffer
    muxer->pb = io.get();
    muxer->flags |= AVFMT_FLAG_CUSTOM_IO;
    if (format.video) {
      if (auto done = addVideo(*format.video); !done) return done;
    }
    if (format.audio) {
      if (auto done = addAudio(); !done) return done;
    }
    AVDictionary* options = nullptr;
    if (format.container == Container::Avi) av_dict_set(&options, "flipped_raw_rgb", "1", 0);
    if (format.container == Container::Wav) av_dict_set(&options, "rf64", "auto", 0);
    const int begun = avformat_write_header(muxer.get(), &options);
    av_dict_free(&options);
    return begun < 0 ? Outcome(failure("cannot write", begun)) : Outcome();
  }

  [[nodiscard]] bool isAsf() const {
    return format.container == Container::Wmv || format.container == Container::Wma;
  }
  [[nodiscard]] bool headerInFile() const { return (muxer->oformat->flags & AVFMT_GLOBALHEADER) != 0; }

  Outcome addVideo(const VideoFormat& v) {
    frameTime = frameTimeOf(v.frameRate);
    video = avformat_new_stream(muxer.get(), nullptr);
    if (video == nullptr) return failure("cannot write", AVERROR(ENOMEM));
    video->time_base = frameTime;
    video->avg_frame_rate = av_inv_q(frameTime);
    const auto encoder = VideoEncoder::open(v, headerInFile(), name);
    return encoder ? encoder->describe(*video->codecpar) : encoder.error();
  }

  Outcome addAudio() {
    const auto id = isAsf() ? AV_CODEC_ID_WMAV2 : AV_CODEC_ID_PCM_S16LE;
    const auto* codec = avcodec_find_encoder(id);
    if (codec == nullptr) {
      return Error{"cannot write " + name + ": no encoder for " + avcodec_get_name(id)};
    }
    audio = avformat_new_stream(muxer.get(), nullptr);
    if (audio == nullptr) return failure("cannot write", AVERROR(ENOMEM));
    audioEncoder.reset(avcodec_alloc_context3(codec));
    auto& c = *audioEncoder;
    const auto wanted = isAsf() ? format.sound : SoundFormat();
    auto made = SoundShape::open(wanted.sampleRate, wanted.channels);
    if (!made) return made.error();
    shape.emplace(std::move(*made));
    c.sample_rate = wanted.sampleRate;
    av_channel_layout_default(&c.ch_layout, wanted.channels);
    c.sample_fmt = isAsf() ? AV_SAMPLE_FMT_FLTP : AV_SAMPLE_FMT_S16;
    c.time_base = {1, wanted.sampleRate};
    if (isAsf()) c.bit_rate = format.video ? kMovieSoundRate : kSoundOnlyRate;
    if (isAsf() && wanted.bitRate > 0) c.bit_rate = std::max(wanted.bitRate, kLeastSoundBits);
    audio->time_base = c.time_base;
    auto opened = openEncoder(c, *audio);
    if (opened && isAsf()) {
      // A decoder throws away the first two frames. One is the encoder's own delay, which its time stamps
      // count; the other is put ahead here.
      held.assign(frameSamples(), 0.0F);
      samples = -c.frame_size;
      early = -2;
    }
    return opened;
  }

  [[nodiscard]] int channels() const { return audioEncoder->ch_layout.nb_channels; }
  // Of all channels in a frame of the encoder; 0 where a frame has any size.
  [[nodiscard]] std::size_t frameSamples() const {
    return static_cast<std::size_t>(audioEncoder->frame_size) * static_cast<std::size_t>(channels());
  }

  Outcome openEncoder(AVCodecContext& encoder, AVStream& stream) const {
    int done = avcodec_open2(&encoder, encoder.codec, nullptr);
    if (done >= 0) done = avcodec_parameters_from_context(stream.codecpar, &encoder);
    return done < 0 ? Outcome(failure("cannot encode", done)) : Outcome();
  }

  Outcome mux(AVPacket& p, const AVStream& stream, AVRational timeBase) {
    av_packet_rescale_ts(&p, timeBase, stream.time_base);
    // What a decoder throws away takes no time: the muxer moves all of the movie behind it.
    if (p.pts < 0 && early < 0) p.pts = p.dts = early++;
    p.stream_index = stream.index;
    const int written = av_interleaved_write_frame(muxer.get(), &p);
    return written < 0 || !sink.done ? Outcome(failure("cannot write", written)) : Outcome();
  }

  // A null frame asks for what the encoder still holds.
  Outcome encode(AVCodecContext& encoder, const AVStream& stream, const AVFrame* frame, int duration) {
    if (const int sent = avcodec_send_frame(&encoder, frame); sent < 0 && sent != AVERROR_EOF) {
      return failure("cannot encode", sent);
    }
    for (;;) {
      const int got = avcodec_receive_packet(&encoder, packet.get());
      if (got == AVERROR(EAGAIN) || got == AVERROR_EOF) return {};
      if (got < 0) return failure("cannot encode", got);
      if (packet->duration == 0) packet->duration = duration;
      if (auto done = mux(*packet, stream, encoder.time_base); !done) return done;
    }
  }

  Outcome writeFrame(const EncodedFrame& frame) {
    // The muxer takes what it is given; the frame stays the caller's.
    if (const int taken = av_packet_ref(packet.get(), frame.packet().get()); taken < 0) {
      return failure("cannot write", taken);
    }
    return mux(*packet, *video, frameTime);
  }

  // The muxer reckons with what the encoder put ahead of the sound and behind it.
  Outcome tellAsfLength() {
    const auto rate = format.video ? format.video->frameRate : FrameRate();
    const auto units = std::max(rate.unitsAt(framesGiven, kAsfTicks),
                                FrameRate(kSampleRate).unitsAt(samplesGiven, kAsfTicks));
    const auto field = [&](std::uint64_t at, std::int64_t value) {
      std::array<char, 8> bytes{};
      AV_WL64(bytes.data(), static_cast<std::uint64_t>(value));
      return sink.target.write(at, {bytes.data(), bytes.size()});
    };
    if (auto done = field(kAsfPlayDuration, units + kAsfPreroll); !done) return done;
    return field(kAsfSendDuration, units);
  }

  Outcome writeSamples(std::span<const float> part) {
    auto frame = newFrame();
    frame->format = audioEncoder->sample_fmt;
    frame->nb_samples = static_cast<int>(part.size()) / channels();
    av_channel_layout_copy(&frame->ch_layout, &audioEncoder->ch_layout);
    frame->sample_rate = audioEncoder->sample_rate;
    frame->pts = samples;
    if (av_frame_get_buffer(frame.get(), 0) < 0) throw std::bad_alloc();
    if (audioEncoder->sample_fmt == AV_SAMPLE_FMT_S16) {
      auto* out = reinterpret_cast<std::int16_t*>(frame->data[0]);
      std::transform(part.begin(), part.end(), out, [](float s) {
        return static_cast<std::int16_t>(std::clamp(std::lrint(s * 32768.0F), -32768L, 32767L));
      });
    } else {
      const auto step = static_cast<std::size_t>(channels());
      for (std::size_t channel = 0; channel < step; ++channel) {
        auto* out = reinterpret_cast<float*>(frame->extended_data[channel]);
        for (auto i = channel; i < part.size(); i += step) *out++ = part[i];
      }
    }
    samples += frame->nb_samples;
    return encode(*audioEncoder, *audio, frame.get(), frame->nb_samples);
  }
};

MovieWriter::MovieWriter(std::unique_ptr<State> state) : state_(std::move(state)) {}
MovieWriter::MovieWriter(MovieWriter&&) noexcept = default;
MovieWriter& MovieWriter::operator=(MovieWriter&&) noexcept = default;
MovieWriter::~MovieWriter() = default;

std::optional<Container> containerOf(std::string_view path) {
  constexpr std::array<std::pair<std::string_view, Container>, 4> kKinds = {{{".avi", Container::Avi},
                                                                             {".wav", Container::Wav},
                                                                             {".wmv", Container::Wmv},
                                                                             {".wma", Container::Wma}}};
  for (const auto& [extension, kind] : kKinds) {
    if (path.size() > extension.size() && sameText(path.substr(path.size() - extension.size()), extension)) {
      return kind;
    }
  }
  return std::nullopt;
}

Result<MovieWriter> MovieWriter::open(Replacement& target, const MovieFormat& format,
                                      const std::string& name) {
  auto state = std::make_unique<State>(target, format, name);
  if (auto begun = state->begin(); !begun) return begun.error();
  return MovieWriter(std::move(state));
}

Result<VideoEncoder> MovieWriter::newVideoEncoder() const {
  return VideoEncoder::open(*state_->format.video, state_->headerInFile(), state_->name);
}

Outcome MovieWriter::writeVideo(const EncodedFrame& frame) {
  ++state_->framesGiven;
  return state_->writeFrame(frame);
}

Outcome MovieWriter::writeAudio(std::span<const float> samples) {
  auto& s = *state_;
  s.samplesGiven += static_cast<std::int64_t>(samples.size()) / kChannels;
  const auto chunk = s.frameSamples();
  if (samples.empty() || chunk == 0) return samples.empty() ? Outcome() : s.writeSamples(samples);
  s.shape->convert(samples, s.held);
  std::size_t used = 0;
  for (; s.held.size() - used >= chunk; used += chunk) {
    if (auto done = s.writeSamples(std::span<const float>(s.held).subspan(used, chunk)); !done) return done;
  }
  s.held.erase(s.held.begin(), s.held.begin() + static_cast<std::ptrdiff_t>(used));
  return {};
}

Outcome MovieWriter::finish() {
  auto& s = *state_;
  if (s.shape && s.frameSamples() > 0) {
    s.shape->convert({}, s.held);
    // The encoder takes whole frames only.
    const auto chunk = s.frameSamples();
    s.held.resize((s.held.size() + chunk - 1) / chunk * chunk, 0.0F);
    for (std::span<const float> rest = s.held; !rest.empty(); rest = rest.subspan(chunk)) {
      if (auto done = s.writeSamples(rest.first(chunk)); !done) return done;
    }
    s.held.clear();
  }
  if (s.audioEncoder) {
    if (auto done = s.encode(*s.audioEncoder, *s.audio, nullptr, 0); !done) return done;
  }
  const int ended = av_write_trailer(s.muxer.get());
  avio_flush(s.io.get());
  if (ended < 0 || !s.sink.done) return s.failure("cannot write", ended);
  return s.isAsf() ? s.tellAsfLength() : Outcome();
}

}  // namespace kvo::media
