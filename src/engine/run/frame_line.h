// Makes the frames of a movie, several segments side by side, and hands them out in order.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "engine/run/render_plan.h"
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

/// A frame of the movie: encoded, in the order of the file, or as a picture where the encoding is left to
/// whoever takes it.
struct MadeFrame {
  media::Picture picture{};
  media::EncodedFrame encoded{};
};

class FrameLine {
 public:
  /// An encoder for a segment; none leaves the pictures as they are.
  using NewEncoder = std::function<Result<media::VideoEncoder>()>;

  /// Begins at once. `timeline` outlives the line, and so does `damage`, which is told what cannot be
  /// decoded.
  FrameLine(const Timeline& timeline, std::vector<Segment> segments, NewEncoder newEncoder, const Crew& crew,
            media::DamageList* damage = nullptr);
  FrameLine(const FrameLine&) = delete;
  FrameLine& operator=(const FrameLine&) = delete;
  ~FrameLine();

  /// The next frame in order; waits for it. Fails with the line of the segment that failed.
  Result<MadeFrame> next();

  /// How many frames have been made, in whatever order.
  [[nodiscard]] std::int64_t made() const { return made_; }

 private:
  // What is ready of a segment.
  struct Lane {
    std::deque<MadeFrame> frames{};
    bool done = false;
  };

  void work();
  Outcome makeSegment(std::size_t number);
  bool put(std::size_t lane, MadeFrame frame);
  Result<bool> putAll(std::size_t lane, Result<media::EncodedFrames> frames);
  void fail(const Error& error);

  const Timeline& timeline_;
  const std::vector<Segment> segments_;
  const NewEncoder newEncoder_;
  const Crew crew_;
  media::DamageList* const damage_;
  std::atomic<std::int64_t> made_ = 0;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<Lane> lanes_;    // one for each segment
  std::size_t handedOut_ = 0;  // the lane that frames are taken from
  std::size_t taken_ = 0;      // segments that a thread has begun
  std::size_t heldBytes_ = 0;  // in all lanes
  bool stopped_ = false;
  std::optional<Error> failed_;
  std::vector<std::thread> threads_;
};

}  // namespace kvo::engine
