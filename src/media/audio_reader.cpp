#include "media/audio_reader.h"

#include "media/avi_index.h"
#include "media/picture_feed.h"
#include "media/source.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <optional>
#include <string_view>
#include <vector>

namespace kvo::media {
namespace {

constexpr std::int64_t kRestartGap = kSampleRate / 50;   // a jump in time of more than 20 ms is one
constexpr std::int64_t kLostGap = kSampleRate * 3 / 20;  // one of more than 150 ms is a hole
constexpr std::int64_t kSameTime = kSampleRate / 1000;   // stamps are rounded by up to a millisecond
// Seconds decoded ahead of a seek's target: several packets, as the first behind a seek may be a part only,
// or need those ahead of it. Where that lands behind the target all the same, further back.
constexpr double kPrerolls[] = {0.5, 2, 10};

bool canBeSought(const Source& source) {
  const std::string_view codec(avcodec_get_name(source.decoder().codec_id));
  return !source.traits().guessesSoundTimes || codec.starts_with("pcm_");
}

// AVI numbers the chunks of a stream, and only these kinds put the same time into each, or count their bytes.
bool isCountedByAvi(AVCodecID codec) {
  const std::string_view name(avcodec_get_name(codec));
  return name.starts_with("pcm_") || name.starts_with("adpcm_") || name.starts_with("wma") || name == "mp3" ||
         name == "mp2" || name == "ac3" || name == "aac";
}

// What counts as the file's start: its first picture, if it has one.
double originOf(const Source& source) {
  if (mustDecodeForStart(source.format())) {
    if (const auto pictures = PictureFeed::open(source.path(), 1)) return pictures->origin();
  }
  return startOf(source.format());
}

// Samples without a gap; the first is number `start` of the file.
struct Run {
  std::int64_t start = 0;
  std::vector<float> samples;

  [[nodiscard]] std::int64_t end() const {
    return start + static_cast<std::int64_t>(samples.size()) / kChannels;
  }
};

}  // namespace

struct AudioReader::State {
  Source source;
  ResamplerHandle resampler;
  DamageList* damage = nullptr;
  std::optional<AviIndex> index;  // of an AVI
  bool counted = false;           // its stamps make no sense: the samples are counted from the first
  double origin = 0;
  int sourceRate = 0;
  AVSampleFormat sourceFormat = AV_SAMPLE_FMT_NONE;
  int sourceChannels = 0;
  bool ended = false;
  bool faulty = false;          // something could not be decoded since the last good frame
  std::int64_t packetsEnd = 0;  // sample behind the last packet that was read, whole or not
  std::int64_t position = 0;    // sample the next read begins with
  std::deque<Run> runs;         // decoded and not yet read, in order; sound is laid behind the last one

  [[nodiscard]] std::int64_t decodedEnd() const { return runs.empty() ? 0 : runs.back().end(); }

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
    if (made < 0) return ffmpegError("cannot convert the sound of " + source.path(), made);
    sourceRate = frame.sample_rate;
    sourceFormat = static_cast<AVSampleFormat>(frame.format);
    sourceChannels = frame.ch_layout.nb_channels;
    return {};
  }

  // Lays converted samples behind the last run.
  Outcome take(const AVFrame* frame) {
    if (frame != nullptr) {
      if (auto done = configure(*frame); !done) return done;
      place(*frame);
    }
    if (!resampler || runs.empty()) return {};
    auto& samples = runs.back().samples;
    const int input = frame != nullptr ? frame->nb_samples : 0;
    const int room = swr_get_out_samples(resampler.get(), input);
    const auto before = samples.size();
    samples.resize(before + static_cast<std::size_t>(std::max(room, 0)) * kChannels);
    auto* out = reinterpret_cast<std::uint8_t*>(samples.data() + before);
    const auto** in = frame != nullptr ? const_cast<const std::uint8_t**>(frame->extended_data) : nullptr;
    const int got = swr_convert(resampler.get(), &out, room, in, input);
    samples.resize(before + static_cast<std::size_t>(std::max(got, 0)) * kChannels);
    return got < 0 ? Outcome(ffmpegError("cannot convert the sound of " + source.path(), got)) : Outcome();
  }

  // Until the position is reached each frame is placed by its own stamp, as the first ones behind a seek may
  // be stamped wrongly; from there on only a jump in time begins another run.
  void place(const AVFrame& frame) {
    const auto expected = decodedEnd() + swr_get_delay(resampler.get(), kSampleRate);
    const auto pts = counted ? AV_NOPTS_VALUE : frame.best_effort_timestamp;
    const double seconds = static_cast<double>(pts) * source.timeBase() - origin;
    const auto sample =
        pts == AV_NOPTS_VALUE ? expected : static_cast<std::int64_t>(std::llround(seconds * kSampleRate));
    const auto jump = sample - expected;
    if (runs.empty()) {
      runs.push_back({sample, {}});
    } else if (expected < position && std::abs(jump) > kSameTime) {
      runs = {Run{runs.back().end() + jump, {}}};
    } else if (jump > kRestartGap) {
      runs.push_back({runs.back().end() + jump, {}});
      if ((faulty || jump > kLostGap) && damage != nullptr && sample > position)
        damage->add({source.path(), Lost::Sound, secondsOf(std::max(expected, position)), secondsOf(sample)});
    }
    faulty = false;
  }

  static double secondsOf(std::int64_t sample) { return static_cast<double>(sample) / kSampleRate; }

  // A packet on its way to the decoder.
  void mark(AVPacket& packet) {
    if (index) index->correct(packet, source.stream());
    if (packet.pts == AV_NOPTS_VALUE) return;
    const double end = static_cast<double>(packet.pts + packet.duration) * source.timeBase() - origin;
    packetsEnd = std::max(packetsEnd, static_cast<std::int64_t>(end * kSampleRate));
  }

  Outcome decodeMore() {
    const auto frame = source.next({[this](AVPacket& packet) { mark(packet); }, [this] { faulty = true; }});
    if (!frame) return frame.error();
    if (*frame) return take(frame->get());
    ended = true;
    if (auto done = take(nullptr); !done) return done;
    const auto known = std::max(decodedEnd(), position);
    if (faulty && damage != nullptr && packetsEnd > known + kLostGap)
      damage->add({source.path(), Lost::Sound, secondsOf(known), secondsOf(packetsEnd)});
    return {};
  }

  // What was decoded is of no use any more; what comes next is placed by its stamp.
  void forget() {
    resampler.reset();
    runs.clear();
    ended = faulty = false;
    packetsEnd = 0;
  }

  // What lies ahead of the position is of no use any more, but the last run says where the next sound goes.
  void letGo() {
    while (runs.size() > 1 && runs.front().end() <= position) runs.pop_front();
    if (runs.empty()) return;
    auto& run = runs.front();
    const auto used = std::clamp<std::int64_t>(position - run.start, 0, run.end() - run.start);
    run.samples.erase(run.samples.begin(), run.samples.begin() + used * kChannels);
    run.start += used;
  }

  // True when sound that begins at the position, or ahead of it, comes next.
  Result<bool> seekAhead(double seconds) {
    if (!source.seek(seconds + origin)) return false;
    forget();
    while (!ended && runs.empty()) {
      if (auto done = decodeMore(); !done) return done.error();
    }
    return !runs.empty() && runs.front().start <= position;
  }
};

AudioReader::AudioReader(std::unique_ptr<State> state) : state_(std::move(state)) {}
AudioReader::AudioReader(AudioReader&&) noexcept = default;
AudioReader& AudioReader::operator=(AudioReader&&) noexcept = default;
AudioReader::~AudioReader() = default;

Result<AudioReader> AudioReader::open(const std::string& path, DamageList* damage) {
  auto source = Source::open(path, AVMEDIA_TYPE_AUDIO, "no sound in ", 1);
  if (!source) return source.error();
  auto state = std::make_unique<State>();
  state->source = std::move(*source);
  state->damage = damage;
  state->origin = originOf(state->source);
  if (state->source.traits().numbersChunks) {
    state->counted = !isCountedByAvi(state->source.decoder().codec_id);
    if (!state->counted) state->index.emplace();
  }
  return AudioReader(std::move(state));
}

Outcome AudioReader::seek(std::int64_t sample) {
  auto& s = *state_;
  const bool fresh = s.position == 0 && s.runs.empty();
  s.position = sample;
  const double seconds = State::secondsOf(sample);
  const bool sought = canBeSought(s.source) && !s.counted;
  for (const double preroll : kPrerolls) {
    if (!sought || seconds <= preroll) break;
    const auto done = s.seekAhead(seconds - preroll);
    if (!done) return done.error();
    if (*done) return {};
  }
  if (fresh && s.runs.empty()) return {};
  if (auto done = s.source.reopen(); !done) return done;
  s.forget();
  return {};
}

Outcome AudioReader::read(std::span<float> samples) {
  auto& s = *state_;
  const auto stop = s.position + static_cast<std::int64_t>(samples.size()) / kChannels;
  while (!s.ended && (s.runs.empty() || s.decodedEnd() < stop)) {
    if (auto done = s.decodeMore(); !done) return done;
    if (s.decodedEnd() < s.position) s.letGo();
  }
  std::fill(samples.begin(), samples.end(), 0.0F);
  for (const auto& run : s.runs) {
    const auto from = std::max(s.position, run.start);
    const auto to = std::min(stop, run.end());
    if (from >= to) continue;
    std::copy_n(run.samples.begin() + (from - run.start) * kChannels, (to - from) * kChannels,
                samples.begin() + (from - s.position) * kChannels);
  }
  s.position = stop;
  s.letGo();
  return {};
}

}  // namespace kvo::media
