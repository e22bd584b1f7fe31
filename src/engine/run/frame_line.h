// Makes the frames of a movie, several segments side by side, and hands them out in order.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "engine/run/render_plan.h"
#include "engine/run/work_folder.h"
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
  /// decoded. With a work folder, which outlives it too, segments go through their files there, and finished
  /// ones are not made again.
  FrameLine(const Timeline& timeline, std::vector<Segment> segments, NewEncoder newEncoder, const Crew& crew,
            media::DamageList* damage = nullptr, const WorkFolder* kept = nullptr);
  FrameLine(const FrameLine&) = delete;
  FrameLine& operator=(const FrameLine&) = delete;
  ~FrameLine();

  /// The next frame in order; waits for it, and calls `told` where others are made meanwhile. Fails with the
  /// line of the segment that failed.
  Result<MadeFrame> next(const std::function<void()>& told = {});

  /// Waits until all segments of the work folder's share stand there; `told` is called as frames are made.
  Outcome finish(const std::function<void()>& told);

  /// How many frames have been made, in whatever order.
  [[nodiscard]] std::int64_t made() const { return made_; }
  /// How many of them stood in the work folder already.
  [[nodiscard]] std::int64_t kept() const { return kept_; }

 private:
  // What is ready of a segment.
  struct Lane {
    std::deque<MadeFrame> frames{};
    bool done = false;
  };

  void work();
  // Takes a frame that has been made; false when nobody wants more.
  using Taker = std::function<Result<bool>(MadeFrame)>;
  Outcome makeSegment(std::size_t number);
  static Result<bool> takeAll(Result<media::EncodedFrames> frames, const Taker& taker);
  Outcome makeFrames(std::size_t number, media::DamageList* damage, const Taker& taker);
  Outcome keepSegment(std::size_t number);
  Result<MadeFrame> keptFrame();
  bool put(std::size_t lane, MadeFrame frame);
  bool isStopped();
  void waitFor(std::unique_lock<std::mutex>& lock, const std::function<bool()>& ready,
               const std::function<void()>& told);
  void fail(const Error& error);

  const Timeline& timeline_;
  const std::vector<Segment> segments_;
  const NewEncoder newEncoder_;
  const Crew crew_;
  media::DamageList* const damage_;
  const WorkFolder* const work_;
  std::optional<media::SegmentReader> reader_;  // of the lane that is handed out
  std::atomic<std::int64_t> made_ = 0;
  std::atomic<std::int64_t> kept_ = 0;

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
