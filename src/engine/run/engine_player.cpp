#include "engine/run/engine_player.h"

#include "base/guarded.h"
#include "engine/document/document_reader.h"
#include "engine/run/playback.h"
#include "media/bgr.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace kvo::engine {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kFilesKept = 4;  // open for the next document
constexpr double kLongWay = 2.2;       // seconds of film: key frames are further apart than that
constexpr double kNewest = 0.25;       // what the newest frame weighs in how long one takes

double nowSeconds() { return std::chrono::duration<double>(Clock::now().time_since_epoch()).count(); }

struct Sides {
  int width = 0;
  int height = 0;
};

std::shared_ptr<const Bitmap> bitmapOf(const media::Picture& picture, const Sides& sides) {
  const auto [width, height] = sides;
  auto bitmap = std::make_shared<Bitmap>(Bitmap{width, height, {}});
  if (!picture) return bitmap;
  // A picture's sides are even; the timeline's may be one less.
  if (picture.width() == width && picture.height() == height) {
    bitmap->bgr.resize(static_cast<std::size_t>(width) * 3 * static_cast<std::size_t>(height));
    media::toBgr(picture, bitmap->bgr.data(), static_cast<std::size_t>(width) * 3);
    return bitmap;
  }
  const auto stride = static_cast<std::size_t>(picture.width()) * 3;
  std::vector<std::uint8_t> whole(stride * static_cast<std::size_t>(picture.height()));
  media::toBgr(picture, whole.data(), stride);
  const auto rowBytes = static_cast<std::size_t>(width) * 3;
  bitmap->bgr.reserve(rowBytes * static_cast<std::size_t>(height));
  for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
    const auto row = whole.begin() + static_cast<std::ptrdiff_t>(y * stride);
    bitmap->bgr.insert(bitmap->bgr.end(), row, row + static_cast<std::ptrdiff_t>(rowBytes));
  }
  return bitmap;
}

}  // namespace

struct EnginePlayer::State {
  struct Command {
    enum class What { Play, Pause, Stop, Seek } what;
    std::int64_t frame = 0;  // of a seek
  };

  std::unique_ptr<SoundOutput> sound;
  ShowFrame show;

  std::mutex mutex;
  std::condition_variable changed;
  std::vector<Command> commands;
  std::optional<Timeline> toLoad;
  bool drops = false;  // what is played is to make room for what is to be loaded, or for nothing
  bool ends = false;
  // What the playback said last, for whoever asks.
  PlayState state = PlayState::Empty;
  std::string failure;
  std::int64_t position = 0;
  std::int64_t frames = 0;
  double frameRate = 0;
  double takes = 0.01;  // seconds to make a frame, of late

  std::thread thread;

  void tell(const Playback& playback) {
    state = playback.state();
    position = std::max<std::int64_t>(playback.position(), 0);
  }

  // Takes a timeline in place of what there is, or nothing.
  void take(std::optional<Timeline> timeline) {
    const std::lock_guard lock(mutex);
    commands.clear();
    failure.clear();
    state = timeline ? PlayState::Stopped : PlayState::Empty;
    position = 0;
    frames = timeline ? std::max<std::int64_t>(1, timeline->frames()) : 0;
    frameRate = timeline ? timeline->frameRate.perSecond() : 0;
    toLoad = std::move(timeline);
    drops = true;
    changed.notify_all();
  }

  void command(const Command& what) {
    const std::lock_guard lock(mutex);
    if (state == PlayState::Empty || state == PlayState::Failed) return;
    // Of the seeks that have not been taken up only the newest counts.
    if (what.what == Command::What::Seek && !commands.empty() && commands.back().what == what.what)
      commands.pop_back();
    commands.push_back(what);
    changed.notify_all();
  }

  bool isWantedElsewhere() {
    const std::lock_guard lock(mutex);
    return !commands.empty() || drops || ends;
  }

  // Goes to a frame by stretches. Where the way is long, what is there first stands in for the frame
  // meanwhile, and it is left when something else is wanted: false then.
  bool goTo(std::int64_t frame, Playback& playback, const Sides& sides) {
    bool toldRoughly = playback.state() == PlayState::Playing;
    for (;;) {
      const double left = playback.approach(frame);
      if (left <= 0) break;
      if (left < kLongWay) continue;
      if (!std::exchange(toldRoughly, true)) {
        const auto rough = playback.roughly(frame);
        if (rough.picture) show(rough.frame, bitmapOf(rough.picture, sides));
      }
      if (isWantedElsewhere()) return false;
    }
    playback.makeReady(frame);
    return true;
  }

  // The picture that is wanted first is made before the clock runs. False when it has not been.
  bool carryOut(const Command& command, Playback& playback, const Sides& sides) {
    bool ready = true;
    switch (command.what) {
      case Command::What::Play:
        playback.expectSound();
        playback.makeReady();
        playback.play(nowSeconds());
        break;
      case Command::What::Pause:
        playback.pause(nowSeconds());
        break;
      case Command::What::Stop:
        playback.stop();
        break;
      case Command::What::Seek:
        playback.expectSound(command.frame);
        ready = goTo(command.frame, playback, sides);
        playback.seek(command.frame, nowSeconds());
        break;
    }
    return ready;
  }

  // Does `work` while nobody has to wait for it; false when something else is wanted by now, or it failed.
  template <class Work>
  bool unlocked(std::unique_lock<std::mutex>& lock, std::unique_ptr<Playback>& playback, const Work& work) {
    lock.unlock();
    const auto done = guarded(work);
    if (!done) playback.reset();
    lock.lock();
    if (drops) return false;
    if (done) return true;
    state = PlayState::Failed;
    failure = done.error().text;
    return false;
  }

  // Makes frames ahead while nothing is due or wanted for longer than one takes.
  void workAhead(std::unique_lock<std::mutex>& lock, std::unique_ptr<Playback>& playback, double& wait) {
    while (playback && wait > takes && commands.empty() && !ends && !drops) {
      bool worked = false;
      const bool goesOn = unlocked(lock, playback, [&]() -> Outcome {
        const double begun = nowSeconds();
        worked = playback->workAhead();
        const double now = nowSeconds();
        if (worked) takes += (now - begun - takes) * kNewest;
        wait = playback->dueIn(now);
        return {};
      });
      if (!goesOn || !worked) return;
    }
  }

  void run() {
    OpenFiles files(kFilesKept);
    std::unique_ptr<Playback> playback;
    Sides sides;
    std::unique_lock lock(mutex);
    while (!ends) {
      if (drops) {
        drops = false;
        auto next = std::exchange(toLoad, std::nullopt);
        unlocked(lock, playback, [&]() -> Outcome {
          playback.reset();  // the sound is free again
          if (!next) {
            files.clear();
            return {};
          }
          sides = {next->width, next->height};
          playback = std::make_unique<Playback>(std::move(*next), sound.get(), &files);
          return {};
        });
        continue;
      }
      if (!playback) {
        changed.wait(lock);
        continue;
      }
      double wait = 0;
      const auto asked = std::exchange(commands, {});
      const bool shown = unlocked(lock, playback, [&]() -> Outcome {
        bool ready = true;
        for (const auto& command : asked) ready = carryOut(command, *playback, sides);
        if (!ready) return {};
        auto due = playback->step(nowSeconds());
        if (!due) return due.error();
        if (*due) show((*due)->frame, bitmapOf((*due)->picture, sides));
        wait = playback->dueIn(nowSeconds());
        return {};
      });
      if (!shown) continue;
      tell(*playback);
      workAhead(lock, playback, wait);
      if (wait > 0 && playback && !drops && commands.empty() && !ends)
        changed.wait_for(lock, std::chrono::duration<double>(wait));
    }
  }
};

EnginePlayer::EnginePlayer(std::unique_ptr<SoundOutput> sound, ShowFrame show)
    : state_(std::make_unique<State>()) {
  state_->sound = std::move(sound);
  state_->show = std::move(show);
  state_->thread = std::thread([state = state_.get()] { state->run(); });
}

EnginePlayer::~EnginePlayer() {
  {
    const std::lock_guard lock(state_->mutex);
    state_->ends = true;
    state_->changed.notify_all();
  }
  state_->thread.join();
}

Outcome EnginePlayer::load(std::string document) {
  auto timeline = guarded([&] { return readDocument(std::move(document)); });
  if (!timeline) {
    state_->take(std::nullopt);
    return timeline.error();
  }
  state_->take(std::move(*timeline));
  return {};
}

void EnginePlayer::clear() { state_->take(std::nullopt); }

void EnginePlayer::play() { state_->command({State::Command::What::Play}); }
void EnginePlayer::pause() { state_->command({State::Command::What::Pause}); }
void EnginePlayer::stop() { state_->command({State::Command::What::Stop}); }
void EnginePlayer::seek(std::int64_t frame) { state_->command({State::Command::What::Seek, frame}); }

PlayState EnginePlayer::state() const {
  const std::lock_guard lock(state_->mutex);
  return state_->state;
}
std::string EnginePlayer::failure() const {
  const std::lock_guard lock(state_->mutex);
  return state_->failure;
}
std::int64_t EnginePlayer::position() const {
  const std::lock_guard lock(state_->mutex);
  return state_->position;
}
std::int64_t EnginePlayer::frames() const {
  const std::lock_guard lock(state_->mutex);
  return state_->frames;
}
double EnginePlayer::frameRate() const {
  const std::lock_guard lock(state_->mutex);
  return state_->frameRate;
}

}  // namespace kvo::engine
