#include "media/movie_writer.h"

#include "media/audio_reader.h"
#include "media/ffmpeg.h"
#include "media/muxer.h"
#include "media/sound_encoder.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <utility>

namespace kvo::media {
namespace {

// Advanced Systems Format: the header object of 30 bytes begins with the file properties object. From its
// start, behind its name (16 bytes) and size (8), stand the file's name (16), size, date and number of
// packets (8 each), and then, in units of 100 ns, the play duration, which counts the preroll too, and the
// send duration.
constexpr std::uint64_t kAsfPlayDuration = 30 + 16 + 8 + 16 + 3 * 8;
constexpr std::uint64_t kAsfSendDuration = kAsfPlayDuration + 8;
constexpr std::int32_t kAsfTicks = 10'000'000;         // a second
constexpr std::int64_t kAsfPreroll = 3100LL * 10'000;  // what the muxer writes there, in ticks

Outcome beginFile(Muxer& muxer, OutputKind kind) {
  switch (kind) {
    case OutputKind::Avi:
      return muxer.begin({{"flipped_raw_rgb", "1"}});
    case OutputKind::Wav:
      return muxer.begin({{"rf64", "auto"}});
    case OutputKind::Mp4:
    case OutputKind::M4a:
      return muxer.begin({{"movflags", "+faststart"}});
    case OutputKind::WebM:
      // What an encoder of sound puts ahead is told by the track, and moves nothing. The numbers of tracks
      // are drawn by lot else.
      return muxer.begin({{"avoid_negative_ts", "disabled"}, {"fflags", "+bitexact"}});
    default:
      return muxer.begin({});
  }
}

}  // namespace

struct MovieWriter::State {
  State(const MovieFormat& wanted, std::string fileName) : format(wanted), name(std::move(fileName)) {}

  MovieFormat format;
  std::string name;
  std::unique_ptr<Muxer> muxer{};
  std::optional<SoundEncoder> sound{};
  AVStream* video = nullptr;
  AVStream* audio = nullptr;
  AVRational frameTime{1, 25};
  std::mutex mutex{};
  std::optional<VideoEncoder> first{};  // the one that has described the stream, until it is wanted
  std::int64_t soundAhead = 0;          // samples of the encoder that the file has its times without
  PacketHandle packet = newPacket();
  std::int64_t early = 0;  // the stamp of the next packet ahead of the movie, while there are any
  std::int64_t framesGiven = 0;
  std::int64_t samplesGiven = 0;

  Outcome begin(Replacement& target) {
    const auto& file = movieFileOf(format.container);
    auto opened = Muxer::open(target, file.muxer, name);
    if (!opened) return opened.error();
    muxer = std::move(*opened);
    if (format.video) {
      if (auto done = addVideo(*format.video); !done) return done;
    }
    if (format.audio && file.sound) {
      if (auto done = addAudio(file); !done) return done;
    }
    return beginFile(*muxer, format.container);
  }

  Outcome addVideo(const VideoFormat& v) {
    frameTime = frameTimeOf(v.frameRate);
    video = &muxer->newStream();
    video->time_base = frameTime;
    video->avg_frame_rate = av_inv_q(frameTime);
    auto encoder = VideoEncoder::open(v, muxer->headerInFile(), name);
    if (!encoder) return encoder.error();
    first.emplace(std::move(*encoder));
    return first->describe(*video->codecpar);
  }

  Outcome addAudio(const MovieFile& file) {
    SoundEncoder::Wish wish{*file.sound, file.sampleRate, kChannels, file.soundBits, muxer->headerInFile()};
    if (file.sound == SoundCodec::Wma2) {
      wish.channels = format.sound.channels;
      if (format.sound.sampleRate > 0) wish.sampleRate = format.sound.sampleRate;
    }
    if (format.sound.bitRate > 0 && file.soundBits > 0)
      wish.bitRate = std::max(format.sound.bitRate, kLeastSoundBits);
    auto opened = SoundEncoder::open(wish, name);
    if (!opened) return opened.error();
    sound.emplace(std::move(*opened));
    audio = &muxer->newStream();
    audio->time_base = sound->context().time_base;
    const int told = avcodec_parameters_from_context(audio->codecpar, &sound->context());
    if (told < 0) return ffmpegError("cannot write " + name, told);
    if (file.sound == SoundCodec::Wma2) early = -2;
    if (file.sound == SoundCodec::Opus) soundAhead = sound->context().initial_padding;
    return {};
  }

  Outcome mux(AVPacket& p, const AVStream& stream, AVRational timeBase) {
    av_packet_rescale_ts(&p, timeBase, stream.time_base);
    // What a decoder throws away takes no time: the muxer moves all of the movie behind it.
    if (p.pts < 0 && early < 0) p.pts = p.dts = early++;
    return muxer->write(p, stream);
  }

  SoundEncoder::Take taker() {
    return [this](AVPacket& p) {
      p.pts += soundAhead;
      p.dts += soundAhead;
      return mux(p, *audio, sound->context().time_base);
    };
  }

  Outcome writeFrame(const EncodedFrame& frame) {
    // The muxer takes what it is given; the frame stays the caller's.
    if (const int taken = av_packet_ref(packet.get(), frame.packet().get()); taken < 0)
      return ffmpegError("cannot write " + name, taken);
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
      return muxer->target().write(at, {bytes.data(), bytes.size()});
    };
    if (auto done = field(kAsfPlayDuration, units + kAsfPreroll); !done) return done;
    return field(kAsfSendDuration, units);
  }
};

MovieWriter::MovieWriter(std::unique_ptr<State> state) : state_(std::move(state)) {}
MovieWriter::MovieWriter(MovieWriter&&) noexcept = default;
MovieWriter& MovieWriter::operator=(MovieWriter&&) noexcept = default;
MovieWriter::~MovieWriter() = default;

Result<MovieWriter> MovieWriter::open(Replacement& target, const MovieFormat& format,
                                      const std::string& name) {
  auto state = std::make_unique<State>(format, name);
  if (auto begun = state->begin(target); !begun) return begun.error();
  return MovieWriter(std::move(state));
}

Result<VideoEncoder> MovieWriter::newVideoEncoder() const {
  {
    const std::lock_guard lock(state_->mutex);
    if (auto first = std::exchange(state_->first, std::nullopt)) return std::move(*first);
  }
  return VideoEncoder::open(*state_->format.video, state_->muxer->headerInFile(), state_->name);
}

Outcome MovieWriter::writeVideo(const EncodedFrame& frame) {
  ++state_->framesGiven;
  return state_->writeFrame(frame);
}

Outcome MovieWriter::writeAudio(std::span<const float> samples) {
  auto& s = *state_;
  if (!s.sound || samples.empty()) return {};
  s.samplesGiven += static_cast<std::int64_t>(samples.size()) / kChannels;
  return s.sound->write(samples, s.taker());
}

Outcome MovieWriter::finish() {
  auto& s = *state_;
  if (s.sound) {
    if (auto done = s.sound->finish(s.taker()); !done) return done;
  }
  if (auto done = s.muxer->finish(); !done) return done;
  return isWindowsMedia(s.format.container) ? s.tellAsfLength() : Outcome();
}

}  // namespace kvo::media
