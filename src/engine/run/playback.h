// Plays a timeline step by step: which frame is due, and the sound ahead of it. It has no thread and no
// clock; whoever drives it tells the time.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "engine/picture/compositor.h"
#include "engine/run/seen_frames.h"
#include "engine/sound/mixer.h"
#include "ports/sound_output.h"
#include "ports/timeline_player.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace kvo::engine {

class Playback {
 public:
  /// `sound` may be null: a player without loudspeakers; so may `files`, which lends the clips' files. Both
  /// outlive the playback.
  Playback(Timeline timeline, SoundOutput* sound, OpenFiles* files = nullptr);
  Playback(const Playback&) = delete;
  Playback& operator=(const Playback&) = delete;
  /// The sound falls silent.
  ~Playback();

  /// Times are seconds of a clock that runs steadily.
  void play(double now);
  void pause(double now);
  void stop();
  void seek(std::int64_t frame, double now);

  /// Makes the frame that a seek to `frame` shows, or that playing would begin with, so that the clock need
  /// not run before it is there. What fails is told when it is due.
  void makeReady(std::optional<std::int64_t> frame = std::nullopt);

  /// The sound is made ready on other threads, from `frame` on, where playing begins, or goes on when it
  /// plays.
  void expectSound(std::optional<std::int64_t> frame = std::nullopt);

  struct Shown {
    std::int64_t frame = 0;
    media::Picture picture{};
  };

  /// A stretch of the way to a frame that a seek will show, which may take long where key frames are far
  /// apart. Gives the seconds of film to go, 0 when it is there or cannot be had.
  double approach(std::int64_t frame);
  /// That frame as far as it has been decoded by now; no picture where nothing can be shown.
  Shown roughly(std::int64_t frame);

  /// Does what is due: gives the frame to show, or nothing while the one that is shown still stands. Frames
  /// that are late are left out. Fails when a clip cannot be shown.
  Result<std::optional<Shown>> step(double now);

  /// Fills the loudspeakers up, makes the next frame that is not at hand yet, and has the files of later
  /// ones made ready, so that nothing waits when it is due. False when no frame is to be made ahead; what
  /// fails is told when it is due.
  bool workAhead();

  /// When something will be due, in seconds from `now`; a long time when it stands.
  [[nodiscard]] double dueIn(double now) const;

  [[nodiscard]] PlayState state() const { return state_; }
  [[nodiscard]] std::int64_t position() const { return shown_; }
  [[nodiscard]] std::int64_t frames() const { return frames_; }
  [[nodiscard]] double frameRate() const { return timeline_.frameRate.perSecond(); }

 private:
  [[nodiscard]] double heardUpTo(double now) const;
  [[nodiscard]] std::int64_t dueFrame(double now) const;
  void mixFrom(std::int64_t frame);
  Outcome queueSound();
  void silence();
  void standAt(std::int64_t frame);
  [[nodiscard]] std::int64_t held(std::int64_t frame) const;
  [[nodiscard]] std::int64_t startOfPlay() const;
  [[nodiscard]] double early() const;
  Result<std::optional<Shown>> due(double now);
  Result<std::optional<Shown>> show(std::int64_t frame);
  Result<media::Picture> picture(std::int64_t frame);

  Timeline timeline_;
  SoundOutput* sound_;
  std::int64_t frames_;
  std::optional<Compositor> compositor_;
  std::optional<Mixer> mixer_;
  std::optional<std::int64_t> unread_;  // the frame that the mixer begins at, while nothing was read of it
  SeenFrames seen_;
  double seenAt_ = 0;  // the clock when a frame was shown
  PlayState state_ = PlayState::Stopped;
  std::int64_t shown_ = -1;  // nothing yet
  std::int64_t wanted_ = 0;  // where it stands, or began to play
  double began_ = 0;         // the clock when it began to play
  std::int64_t queued_ = 0;  // samples queued since then
};

}  // namespace kvo::engine
