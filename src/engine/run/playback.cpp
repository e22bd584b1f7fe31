#include "engine/run/playback.h"

#include "base/guarded.h"
#include "media/audio_reader.h"

#include <algorithm>
#include <vector>

namespace kvo::engine {
namespace {

constexpr double kSoundAhead = 0.4;  // seconds that are queued ahead of what is heard
constexpr double kSoundFirst = 0.2;  // that are enough to begin with
constexpr double kSoundLow = 0.15;   // that must not wait for a better moment
constexpr double kSoundStep = 0.05;  // seconds queued at a time
constexpr double kStands = 3600;     // nothing is due
constexpr double kMadeAhead = 0.3;   // seconds of frames that are made before they are due
constexpr double kFilesAhead = 1.5;  // seconds that the file of a clip is made ready ahead of it
// A frame may be seen this much ahead of its sound: it has a way to go to the screen, and the thread may be
// woken late.
constexpr double kEarly = 0.008;
constexpr double kSeenFor = 10;   // seconds that all frames stay at hand where it stands
constexpr double kStretch = 0.4;  // seconds of film on the way to a place, between two looks for other wishes
// Bytes of frames at hand: ten seconds of 720 lines, and what stays of them behind that time.
constexpr std::size_t kMostSeen = 384ULL << 20U;
constexpr std::size_t kSeenAtRest = 48ULL << 20U;

// A seek has to decode from the key frame on, and goes to and fro between clips.
Compositor::Habits habitsOf(OpenFiles* files) {
  const std::size_t kept = files != nullptr ? 1 : 4;
  return {.decoderThreads = 4, .keptOpen = kept, .files = files};
}

}  // namespace

Playback::Playback(Timeline timeline, SoundOutput* sound, OpenFiles* files)
    : timeline_(std::move(timeline)),
      sound_(timeline_.audio.empty() ? nullptr : sound),
      frames_(std::max<std::int64_t>(1, timeline_.frames())),
      seen_(kMostSeen) {
  if (timeline_.hasVideo && !timeline_.video.empty()) compositor_.emplace(timeline_, habitsOf(files));
  if (sound_ != nullptr && !sound_->open()) sound_ = nullptr;
}

Playback::~Playback() { silence(); }

void Playback::silence() {
  if (sound_ == nullptr) return;
  sound_->hold();
  sound_->clear();
}

std::int64_t Playback::held(std::int64_t frame) const {
  return std::clamp<std::int64_t>(frame, 0, frames_ - 1);
}

std::int64_t Playback::startOfPlay() const { return state_ == PlayState::Ended ? 0 : wanted_; }

void Playback::makeReady(std::optional<std::int64_t> frame) {
  if (state_ == PlayState::Failed) return;
  static_cast<void>(guarded([&] { return picture(held(frame.value_or(startOfPlay()))); }));
}

void Playback::expectSound(std::optional<std::int64_t> frame) {
  if (state_ == PlayState::Failed || sound_ == nullptr) return;
  if (frame && state_ != PlayState::Playing) return;
  mixFrom(held(frame.value_or(startOfPlay())));
  mixer_->expect(0);
}

void Playback::mixFrom(std::int64_t frame) {
  if (unread_ == frame) return;
  mixer_.emplace(timeline_, timeline_.frameRate.unitsAt(frame, media::kSampleRate));
  unread_ = frame;
}

double Playback::approach(std::int64_t frame) {
  if (state_ == PlayState::Failed || !compositor_ || seen_.holds(held(frame))) return 0;
  const auto left = guarded([&] { return compositor_->approach(held(frame), kStretch); });
  return left ? *left : 0;
}

Playback::Shown Playback::roughly(std::int64_t frame) {
  auto picture = guarded([&] { return compositor_->roughFrame(held(frame)); });
  return {held(frame), picture ? std::move(*picture) : media::Picture()};
}

void Playback::standAt(std::int64_t frame) {
  wanted_ = held(frame);
  if (unread_ != wanted_) {
    mixer_.reset();
    unread_.reset();
  }
  queued_ = 0;
  silence();
}

void Playback::play(double now) {
  if (state_ == PlayState::Playing || state_ == PlayState::Failed) return;
  standAt(state_ == PlayState::Ended ? 0 : wanted_);
  began_ = now;
  state_ = PlayState::Playing;
}

void Playback::pause(double now) {
  if (state_ != PlayState::Playing) return;
  standAt(dueFrame(now));
  state_ = PlayState::Paused;
}

void Playback::stop() {
  if (state_ == PlayState::Failed) return;
  standAt(0);
  state_ = PlayState::Stopped;
}

void Playback::seek(std::int64_t frame, double now) {
  if (state_ == PlayState::Failed) return;
  standAt(frame);
  began_ = now;
  if (state_ != PlayState::Playing) state_ = wanted_ == 0 ? PlayState::Stopped : PlayState::Paused;
}

// Seconds of the timeline: by what has been heard where there is sound, else by the clock.
double Playback::heardUpTo(double now) const {
  const double from = timeline_.frameRate.secondsAt(wanted_);
  if (sound_ == nullptr) return from + (now - began_);
  const double heard = static_cast<double>(queued_) / media::kSampleRate - sound_->waiting();
  return from + std::max(heard, 0.0);
}

double Playback::early() const { return std::min(kEarly, timeline_.frameRate.secondsAt(1) / 2); }

std::int64_t Playback::dueFrame(double now) const {
  const auto due = timeline_.frameRate.frameAt(heardUpTo(now) + early());
  return std::clamp(due, wanted_, frames_ - 1);
}

Outcome Playback::queueSound() {
  if (sound_ == nullptr) return {};
  const bool begins = queued_ == 0;
  if (begins) mixFrom(wanted_);
  unread_.reset();
  std::vector<float> samples(static_cast<std::size_t>(kSoundStep * media::kSampleRate) * media::kChannels);
  while (sound_->waiting() < (begins ? kSoundFirst : kSoundAhead)) {
    if (auto done = mixer_->read(samples); !done) return done;
    sound_->queue(samples);
    queued_ += static_cast<std::int64_t>(samples.size()) / media::kChannels;
  }
  if (begins) sound_->run();
  mixer_->expect(static_cast<std::int64_t>(kFilesAhead * media::kSampleRate));
  return {};
}

Result<media::Picture> Playback::picture(std::int64_t frame) {
  if (!compositor_) return media::Picture();
  if (auto seen = seen_.find(frame)) return seen;
  auto made = compositor_->frame(frame);
  if (made) seen_.put(frame, *made);
  return made;
}

Result<std::optional<Playback::Shown>> Playback::show(std::int64_t frame) {
  if (frame == shown_) return std::optional<Shown>();
  auto seen = picture(frame);
  if (!seen) return seen.error();
  shown_ = frame;
  return std::optional(Shown{frame, std::move(*seen)});
}

bool Playback::workAhead() {
  if (state_ != PlayState::Playing) return false;
  if (queued_ > 0 && sound_->waiting() < kSoundAhead - kSoundStep)
    static_cast<void>(guarded([&] { return queueSound(); }));
  if (!compositor_ || shown_ < 0) return false;
  const auto last = frames_ - 1;
  const auto ahead = std::max<std::int64_t>(timeline_.frameRate.frameAt(kMadeAhead), 2);
  compositor_->expect(
      std::min(shown_ + std::max<std::int64_t>(timeline_.frameRate.frameAt(kFilesAhead), 1), last));
  for (auto frame = shown_ + 1; frame <= std::min(shown_ + ahead, last); ++frame) {
    if (seen_.holds(frame)) continue;
    return bool(guarded([&] { return picture(frame); }));
  }
  return false;
}

Result<std::optional<Playback::Shown>> Playback::step(double now) {
  if (state_ == PlayState::Failed) return std::optional<Shown>();
  auto shown = guarded([&] { return due(now); });
  if (!shown) {
    standAt(wanted_);
    state_ = PlayState::Failed;
  } else if (*shown) {
    seenAt_ = now;
  } else if (now - seenAt_ >= kSeenFor && state_ != PlayState::Playing) {
    seen_.shrink(kSeenAtRest);
  }
  return shown;
}

Result<std::optional<Playback::Shown>> Playback::due(double now) {
  if (state_ != PlayState::Playing) return show(state_ == PlayState::Ended ? frames_ - 1 : wanted_);
  const bool mayWait = queued_ > 0 && sound_->waiting() > kSoundLow;
  if (auto done = mayWait ? Outcome() : queueSound(); !done) return done.error();
  if (timeline_.frameRate.frameAt(heardUpTo(now)) < frames_) return show(dueFrame(now));
  standAt(frames_ - 1);
  state_ = PlayState::Ended;
  return show(frames_ - 1);
}

double Playback::dueIn(double now) const {
  if (state_ != PlayState::Playing) {
    const auto stands = state_ == PlayState::Ended ? frames_ - 1 : wanted_;
    if (state_ != PlayState::Failed && shown_ != stands) return 0;
    return seen_.bytes() > kSeenAtRest ? std::max(0.1, seenAt_ + kSeenFor - now) : kStands;
  }
  const auto after = std::max(shown_, wanted_) + 1;
  const double next = timeline_.frameRate.secondsAt(after) - (after < frames_ ? early() : 0) - heardUpTo(now);
  // The sound must not run dry between two frames of a slow rate.
  return std::clamp(next, 0.0, sound_ != nullptr ? kSoundAhead / 4 : kStands);
}

}  // namespace kvo::engine
