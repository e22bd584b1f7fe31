// Holds a mix within full scale: turns it down ahead of a peak and up again behind it. What stays within full
// scale passes unchanged.
#pragma once

#include <cstddef>
#include <deque>
#include <span>
#include <utility>
#include <vector>

namespace kvo::engine {

class Limiter {
 public:
  /// Stereo samples by which a peak is seen ahead, and by which the output lags: 5.8 ms at 44.1 kHz.
  static constexpr std::size_t kLookAhead = 256;

  Limiter();

  /// Takes in stereo samples (left, right, ...), and appends what is due to `out`: as many, but for the first
  /// kLookAhead - 1 that are held back.
  void process(std::span<const float> samples, std::vector<float>& out);

 private:
  // The gain for the sample that leaves when one with this peak comes in.
  double nextGain(float peak);

  std::deque<float> waiting_;
  std::deque<std::pair<std::size_t, float>> lowest_;  // gains wanted in the window, each below all behind it
  std::vector<float> held_;                           // the last kLookAhead gains, a ring
  double sum_ = kLookAhead;                           // of held_
  float gain_ = 1;
  std::size_t position_ = 0;
};

}  // namespace kvo::engine
