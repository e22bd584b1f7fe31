#include "engine/engine_player.h"

#include "engine/document_reader.h"
#include "engine/playback.h"
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

double nowSeconds() { return std::chrono::duration<double>(Clock::now().time_since_epoch()).count(); }

std::shared_ptr<const Bitmap> bitmapOf(const media::Picture& picture, int width, int height) {
  auto bitmap = std::make_shared<Bitmap>(Bitmap{width, height, {}});
  if (!picture) return bitmap;
  // A picture's sides are even; the timeline's may be one less.
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
  std::unique_ptr<SoundOutput> sound;
  ShowFrame show;

  std::mutex mutex;
  std::condition_variable changed;
  std::vector<std::function<void(Playback&, double now)>> commands;
  std::optional<Timeline> toLoad;
  bool ends = false;
  // What the playback said last, for whoever asks.
  PlayState state = PlayState::Empty;
  std::string failure;
  std::int64_t position = 0;
  std::int64_t frames = 0;
  double frameRate = 0;

  std::thread thread;

  void tell(const Playback& playback) {
    state = playback.state();
    position = std::max<std::int64_t>(playback.position(), 0);
    frames = playback.frames();
    frameRate = playback.frameRate();
  }

  void command(std::function<void(Playback&, double now)> what) {
    const std::lock_guard lock(mutex);
    if (state == PlayState::Empty) return;
    commands.push_back(std::move(what));
    changed.notify_all();
  }

  void run() {
    std::unique_ptr<Playback> playback;
    int width = 0;
    int height = 0;
    std::unique_lock lock(mutex);
    while (!ends) {
      if (toLoad) {
        width = toLoad->width;
        height = toLoad->height;
        playback.reset();  // the sound is free again
        playback = std::make_unique<Playback>(std::move(*toLoad), sound.get());
        toLoad.reset();
      }
      if (!playback) {
        changed.wait(lock);
        continue;
      }
      for (const auto& what : std::exchange(commands, {})) what(*playback, nowSeconds());
      tell(*playback);
      lock.unlock();
      auto shown = playback->step(nowSeconds());
      if (shown && *shown) show((*shown)->frame, bitmapOf((*shown)->picture, width, height));
      const double wait = playback->dueIn(nowSeconds());
      lock.lock();
      if (toLoad) continue;
      tell(*playback);
      if (!shown) failure = shown.error().text;
      if (wait > 0 && commands.empty() && !ends) changed.wait_for(lock, std::chrono::duration<double>(wait));
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
  auto timeline = readDocument(std::move(document));
  if (!timeline) return timeline.error();
  const std::lock_guard lock(state_->mutex);
  state_->commands.clear();
  state_->failure.clear();
  state_->state = PlayState::Stopped;
  state_->position = 0;
  state_->toLoad = std::move(*timeline);
  state_->changed.notify_all();
  return {};
}

void EnginePlayer::play() {
  state_->command([](Playback& playback, double now) { playback.play(now); });
}
void EnginePlayer::pause() {
  state_->command([](Playback& playback, double now) { playback.pause(now); });
}
void EnginePlayer::stop() {
  state_->command([](Playback& playback, double /*now*/) { playback.stop(); });
}
void EnginePlayer::seek(std::int64_t frame) {
  state_->command([frame](Playback& playback, double now) { playback.seek(frame, now); });
}

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
