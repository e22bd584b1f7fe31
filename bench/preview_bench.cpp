// The editor's preview at speed: bench_preview CLIP [LONG], as in "corpus/c" for its clips c1.mp4 to c3.mp4
// of the corpus (720 lines at 25 frames a second, a key frame every two seconds). A movie of three of them
// with two dissolves, the middle one blurred, is played at power 5 and at power 10, and sought in; samples of
// every effect are begun. LONG is a file of the same kind whose only key frame is its first, of twelve
// seconds.
#include "editor/compiler/effect_word.h"
#include "editor/compiler/sample_documents.h"
#include "engine/run/engine_player.h"
#include "media/media_facts.h"
#include "media/video_reader.h"
#include "ports/sound_output.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
constexpr double kSampleRate = 44100;
constexpr double kLength = 16;  // seconds of the movie
constexpr int kSeeks = 100;
constexpr double kGiveUp = 5;  // seconds

double now() { return std::chrono::duration<double>(Clock::now().time_since_epoch()).count(); }

double cpuSeconds() {
  rusage used{};
  ::getrusage(RUSAGE_SELF, &used);
  const auto of = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
  };
  return of(used.ru_utime) + of(used.ru_stime);
}

// Loudspeakers that nobody hears; they know how much of what was queued has been heard.
class TimedSound : public kvo::SoundOutput {
 public:
  kvo::Outcome open() override { return {}; }
  void queue(std::span<const float> samples) override {
    const std::lock_guard lock(mutex_);
    settle();
    if (runs_ && waits_ <= 0) ++dry_;
    waits_ += static_cast<double>(samples.size()) / 2 / kSampleRate;
  }
  [[nodiscard]] double waiting() const override {
    const std::lock_guard lock(mutex_);
    return left();
  }
  void clear() override {
    const std::lock_guard lock(mutex_);
    settle();
    waits_ = 0;
    heard_ = 0;
  }
  void run() override {
    const std::lock_guard lock(mutex_);
    settle();
    runs_ = true;
  }
  void hold() override {
    const std::lock_guard lock(mutex_);
    settle();
    runs_ = false;
  }
  /// Seconds heard since it was cleared.
  [[nodiscard]] double heard() const {
    const std::lock_guard lock(mutex_);
    return heard_ + waits_ - left();
  }
  [[nodiscard]] int dry() const { return dry_; }

 private:
  [[nodiscard]] double left() const { return runs_ ? std::max(0.0, waits_ - (now() - since_)) : waits_; }
  void settle() {
    const double rest = left();
    heard_ += waits_ - rest;
    waits_ = rest;
    since_ = now();
  }
  mutable std::mutex mutex_;
  double waits_ = 0;
  double heard_ = 0;
  double since_ = 0;
  bool runs_ = false;
  int dry_ = 0;
};

struct Form {
  int power;
  int width, height, rate;
};

std::string clipOf(const std::string& clips, int number, double start, const std::string& inside) {
  const auto at = std::to_string(start);
  const auto stop = std::to_string(start + 6);
  return "<track>\r\n<clip src=\"" + clips + std::to_string(number) +
         ".mp4\" mstart=\"1\" mstop=\"7\" start=\"" + at + "\" stop=\"" + stop + "\" >\r\n" + inside +
         "</clip>\r\n";
}

std::string documentOf(const std::string& clips, const Form& form) {
  std::string text = "<timeline>\r\n<group type=\"video\" bitdepth=\"24\" width=\"" +
                     std::to_string(form.width) + "\" height=\"" + std::to_string(form.height) +
                     "\" framerate=\"" + std::to_string(form.rate) + "\">\r\n";
  for (int i = 0; i < 3; ++i) {
    const double start = i * 5.0;
    text += clipOf(
        clips, i + 1, start,
        i == 1 ? "<effect clsid=\"{7312498D-E87A-11d1-81E0-0000F87557DB}\" start=\"0\" stop=\"6\">\r\n<param "
                 "name=\"PixelRadius\" value=\"4\"/>\r\n</effect>\r\n"
               : "");
    if (i > 0) {
      text += "<transition start=\"" + std::to_string(start) + "\" stop=\"" + std::to_string(start + 1) +
              "\" clsid=\"{16B280C5-EE70-11D1-9066-00C04FD9189D}\">\r\n<param name=\"Progress\" "
              "value=\"0.0\">\r\n<linear time=\"1\" value=\"1\"/>\r\n</param>\r\n</transition>\r\n";
    }
    text += "</track>\r\n";
  }
  text += "</group>\r\n<group type=\"audio\" SamplingRate=\"44100\">\r\n";
  for (int i = 0; i < 3; ++i) text += clipOf(clips, i + 1, i * 5.0, "") + "</track>\r\n";
  return text + "</group>\r\n</timeline>\r\n";
}

struct Shown {
  std::int64_t frame;
  double at;
  double heard;
};

class Measured {
 public:
  Measured()
      : sound_(new TimedSound),
        player_(std::unique_ptr<kvo::SoundOutput>(sound_), [this](std::int64_t frame, auto /*picture*/) {
          const std::lock_guard lock(mutex_);
          shown_.push_back({frame, now(), sound_->heard()});
          told_.notify_all();
        }) {}

  kvo::engine::EnginePlayer& player() { return player_; }
  [[nodiscard]] int dry() const { return sound_->dry(); }

  std::vector<Shown> take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(shown_, {});
  }
  /// Waits for a picture; nothing when none comes.
  std::optional<Shown> next() {
    std::unique_lock lock(mutex_);
    if (!told_.wait_for(lock, std::chrono::duration<double>(kGiveUp), [this] { return !shown_.empty(); }))
      return std::nullopt;
    const auto first = shown_.front();
    shown_.erase(shown_.begin());
    return first;
  }
  bool comesTo(kvo::PlayState state, double seconds) {
    for (const double until = now() + seconds; now() < until;) {
      if (player_.state() == state) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return false;
  }

 private:
  TimedSound* sound_;
  std::mutex mutex_;
  std::condition_variable told_;
  std::vector<Shown> shown_;
  kvo::engine::EnginePlayer player_;
};

bool plays(const std::string& clips, const Form& form) {
  Measured measured;
  const double begun = now();
  const double cpu = cpuSeconds();
  if (const auto loaded = measured.player().load(documentOf(clips, form)); !loaded) {
    std::fprintf(stderr, "%s\n", loaded.error().text.c_str());
    return false;
  }
  measured.player().play();
  if (!measured.comesTo(kvo::PlayState::Ended, kLength + kGiveUp)) {
    std::fprintf(stderr, "it does not come to its end: %s\n", measured.player().failure().c_str());
    return false;
  }
  const auto shown = measured.take();
  // The second picture comes a frame behind the start.
  const double start = shown.size() > 1 ? shown[1].at - begun - 1.0 / form.rate : kGiveUp;
  double gap = 0;
  double gapAt = 0;
  double apart = 0;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (i > 1 && shown[i].at - shown[i - 1].at > gap) {
      gap = shown[i].at - shown[i - 1].at;
      gapAt = static_cast<double>(shown[i].frame) / form.rate;
    }
    if (shown[i].heard > 0)
      apart = std::max(apart, std::abs(static_cast<double>(shown[i].frame) / form.rate - shown[i].heard));
  }
  const double due = kLength * form.rate;
  std::printf(
      "  power %d, %d x %d at %d: starts in %.0f ms, %.1f %% left out, longest gap %.0f ms (at %.1f s), "
      "sound "
      "within %.0f ms, ran dry %d times, %.0f %% of a core\n",
      form.power, form.width, form.height, form.rate, start * 1000,
      100 * (1 - static_cast<double>(shown.size()) / due), gap * 1000, gapAt, apart * 1000, measured.dry(),
      100 * (cpuSeconds() - cpu) / kLength);
  return true;
}

void tell(const char* what, std::vector<double> took) {
  if (took.empty()) return;
  std::sort(took.begin(), took.end());
  std::printf("    %s: median %.0f ms, nine of ten within %.0f ms, all within %.0f ms\n", what,
              took[took.size() / 2] * 1000, took[took.size() * 9 / 10] * 1000, took.back() * 1000);
}

bool seeks(const std::string& clips, const Form& form) {
  Measured measured;
  if (!measured.player().load(documentOf(clips, form)) || !measured.next()) return false;
  std::mt19937 random(1);
  const auto timed = [&](std::int64_t frame) {
    const double begun = now();
    measured.player().seek(frame);
    for (;;) {
      const auto shown = measured.next();
      if (!shown) return kGiveUp;
      if (shown->frame == frame) return shown->at - begun;
    }
  };
  const auto frames = static_cast<unsigned>(kLength * form.rate);
  std::vector<double> took;
  const double cpu = cpuSeconds();
  for (std::int64_t i = 0, before = 0; i < kSeeks; ++i) {
    const auto frame = static_cast<std::int64_t>(random() % frames);
    if (frame != std::exchange(before, frame)) took.push_back(timed(frame));
  }
  std::printf("  power %d, seeks, %.0f ms CPU each:\n", form.power, 1000 * (cpuSeconds() - cpu) / kSeeks);
  tell("anywhere", took);

  // To places that have been seen while ten seconds were played.
  measured.player().seek(0);
  measured.player().play();
  std::this_thread::sleep_for(std::chrono::seconds(10));
  measured.player().pause();
  if (!measured.comesTo(kvo::PlayState::Paused, kGiveUp)) return false;
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  const auto last = measured.player().position();
  measured.take();
  took.clear();
  auto before = last;
  for (int i = 0; i < kSeeks; ++i) {
    const auto frame = static_cast<std::int64_t>(random() % static_cast<unsigned>(last));
    if (frame == before) continue;  // it is shown
    before = frame;
    took.push_back(timed(frame));
  }
  tell("where it was within the last 10 s", took);
  return true;
}

// The sample of an effect, as the editor plays it beside a movie of 720 lines.
std::string sampleOf(const std::string& file, int effect, int level) {
  kvo::Collection one;
  auto& clip = one.MovieList.add({});
  clip.Path(file.substr(0, file.rfind('/') + 1));
  clip.MovieName(file.substr(file.rfind('/') + 1));
  clip.LoopStart(kvo::Value(1));
  clip.LoopEnd(kvo::Value(7));
  clip.BlurInt(static_cast<kvo::Integer>(level));
  kvo::EffectWord word;
  word.set(effect, true);
  clip.EffectWord(word.text());
  kvo::CompileOptions options;
  options.output.rate = 10;
  return kvo::clipSample(one, 1, options, {}, {480, 270, true}).text;
}

// From the change of a value to the first picture of the sample: of each effect, and of a slider that is
// dragged.
bool samples(const std::string& clips) {
  constexpr int kEffects = 42;
  constexpr int kChanges = 40;
  constexpr auto kPace = std::chrono::milliseconds(60);
  constexpr int kBlur = static_cast<int>(kvo::EffectSwitch::Blur);
  Measured measured;
  const auto timed = [&](int effect, int level) {
    const double begun = now();
    auto document = sampleOf(clips + "1.mp4", effect, level);
    if (!measured.player().load(std::move(document))) return kGiveUp;
    measured.take();
    measured.player().play();
    for (;;) {
      const auto shown = measured.next();
      if (!shown) return kGiveUp;
      if (shown->frame == 0) return shown->at - begun;
    }
  };
  std::vector<double> took;
  for (int effect = 1; effect <= kEffects; ++effect) {
    took.push_back(timed(effect, 1));
    std::this_thread::sleep_for(kPace);
  }
  std::printf("  samples at 480 x 270, from the change to the first picture:\n");
  tell("each effect", took);
  took.clear();
  for (int level = 1; level <= kChanges; ++level) {
    took.push_back(timed(kBlur, level));
    std::this_thread::sleep_for(kPace);
  }
  tell("a slider that is dragged", took);
  return took.back() < kGiveUp;
}

// Seeks in twelve seconds behind one key frame, each in a player that has just been opened.
bool seeksFarFromAKeyFrame(const std::string& file) {
  constexpr int kFarSeeks = 20;
  constexpr int kRate = 25;
  constexpr unsigned kFrames = 12 * kRate;
  const auto document =
      "<timeline>\r\n<group type=\"video\" bitdepth=\"24\" width=\"1280\" height=\"720\" "
      "framerate=\"25\">\r\n<track>\r\n<clip src=\"" +
      file +
      "\" mstart=\"0\" mstop=\"12\" start=\"0\" stop=\"12\" "
      ">\r\n</clip>\r\n</track>\r\n</group>\r\n</timeline>\r\n";
  std::mt19937 random(2);
  std::vector<double> first;
  std::vector<double> exact;
  std::vector<double> ratio;
  for (int i = 0; i < kFarSeeks; ++i) {
    const auto frame = static_cast<std::int64_t>(kFrames / 4 + random() % (kFrames * 3 / 4));
    Measured measured;
    if (!measured.player().load(document) || !measured.next()) return false;
    const double begun = now();
    measured.player().seek(frame);
    auto shown = measured.next();
    if (!shown) return false;
    first.push_back(shown->at - begun);
    while (shown && shown->frame != frame) shown = measured.next();
    if (!shown) return false;
    exact.push_back(shown->at - begun);
    auto reader = kvo::media::VideoReader::open(file, 0);
    if (!reader || !reader->frameAt(0)) return false;
    const double decodes = now();
    if (!reader->frameAt(static_cast<double>(frame) / kRate)) return false;
    ratio.push_back(exact.back() / (now() - decodes));
  }
  std::printf("  far behind a key frame, %s:\n", file.c_str());
  tell("some picture", first);
  tell("the one that is wanted", exact);
  std::sort(ratio.begin(), ratio.end());
  std::printf("    against decoding alone: median %.2f times, nine of ten within %.2f\n",
              ratio[ratio.size() / 2], ratio[ratio.size() * 9 / 10]);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) return 2;
  kvo::media::silenceRemarks();
  std::printf("%s\n", argv[1]);
  for (const auto& form : {Form{5, 427, 240, 10}, Form{10, 1280, 720, 25}}) {
    if (!plays(argv[1], form) || !seeks(argv[1], form)) return 1;
  }
  if (!samples(argv[1])) return 1;
  return argc == 3 && !seeksFarFromAKeyFrame(argv[2]) ? 1 : 0;
}
