// Makes one whole picture of the two half pictures of an interlaced frame, by what moves in the frames before
// and behind it. For this room only.
#pragma once

#include "media/filter_chain.h"

#include <deque>
#include <optional>

namespace kvo::media {

/// A picture and when it is shown.
struct TimedFrame {
  SharedFrame frame;
  double seconds = 0;
};

class Deinterlacer {
 public:
  explicit Deinterlacer(int threads) : threads_(threads) {}

  /// Frames in the order of showing; those that are not interlaced pass through as they are.
  Outcome push(TimedFrame frame);
  /// No more frames come.
  Outcome end();
  /// The next picture, with the time of its frame; null while the frame behind it is missing.
  TimedFrame pull();

 private:
  int threads_;
  std::optional<FilterChain> graph_;
  std::deque<double> times_;  // of the frames that are in the graph
  std::deque<TimedFrame> ready_;

  Outcome drain();
};

}  // namespace kvo::media
