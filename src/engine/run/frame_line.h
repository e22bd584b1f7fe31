// Makes the frames of a movie, several stretches side by side, and hands them out in order.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "engine/run/stretches.h"
#include "media/damage.h"
#include "media/picture.h"
#include "media/video_encoder.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace kvo::engine {

/// A frame of the movie: encoded, or as a picture where the encoding is left to whoever takes it.
struct MadeFrame {
  media::Picture picture{};
  media::EncodedFrame encoded{};
};

class FrameLine {
 public:
  /// An encoder for a stretch; none leaves the pictures as they are.
  using NewEncoder = std::function<Result<media::VideoEncoder>()>;

  /// Who works: threads that each make a stretch at a time, and the threads of each of their decoders. What
  /// they cannot decode they tell to `damage`, which outlives the line.
  struct Crew {
    int workers = 1;
    int decoderThreads = 1;
    media::DamageList* damage = nullptr;
  };

  /// `timeline` outlives the line. Begins at once.
  FrameLine(const Timeline& timeline, std::vector<Stretch> stretches, NewEncoder newEncoder,
            const Crew& crew);
  FrameLine(const FrameLine&) = delete;
  FrameLine& operator=(const FrameLine&) = delete;
  ~FrameLine();

  /// The next frame in order; waits for it. Fails with the line of the stretch that failed.
  Result<MadeFrame> next();

  /// How many frames have been made, in whatever order.
  [[nodiscard]] std::int64_t made() const { return made_; }

 private:
  // What is ready of a stretch.
  struct Lane {
    std::deque<MadeFrame> frames{};
    bool done = false;
  };

  void work();
  Outcome makeStretch(std::size_t number);
  bool put(std::size_t lane, MadeFrame frame);
  void fail(const Error& error);

  const Timeline& timeline_;
  const std::vector<Stretch> stretches_;
  const NewEncoder newEncoder_;
  const Crew crew_;
  std::atomic<std::int64_t> made_ = 0;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<Lane> lanes_;    // one for each stretch
  std::size_t handedOut_ = 0;  // the lane that frames are taken from
  std::size_t taken_ = 0;      // stretches that a thread has begun
  std::size_t heldBytes_ = 0;  // in all lanes
  bool stopped_ = false;
  std::optional<Error> failed_;
  std::vector<std::thread> threads_;
};

}  // namespace kvo::engine
