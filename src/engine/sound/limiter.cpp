#include "engine/sound/limiter.h"

#include <algorithm>
#include <cmath>

namespace kvo::engine {
namespace {

constexpr float kRelease = 0.0003F;  // of the way back to 1, a sample: some 75 ms
constexpr float kNearlyOne = 0.9999F;

}  // namespace

Limiter::Limiter() : held_(kLookAhead, 1.0F) {}

double Limiter::nextGain(float peak) {
  const float wanted = peak > 1 ? 1 / peak : 1;
  while (!lowest_.empty() && lowest_.back().second >= wanted) lowest_.pop_back();
  lowest_.emplace_back(position_, wanted);
  if (lowest_.front().first + kLookAhead <= position_) lowest_.pop_front();

  // Down at once, up slowly; the mean over the window makes the way down a ramp that ends at the peak.
  const float lowest = lowest_.front().second;
  gain_ = std::min(lowest, gain_ + (1 - gain_) * kRelease);
  if (lowest >= 1 && gain_ > kNearlyOne) gain_ = 1;
  auto& slot = held_[position_ % kLookAhead];
  sum_ += static_cast<double>(gain_) - static_cast<double>(slot);
  slot = gain_;
  ++position_;
  return std::min(sum_ / kLookAhead, 1.0);
}

void Limiter::process(std::span<const float> samples, std::vector<float>& out) {
  for (std::size_t i = 0; i + 1 < samples.size(); i += 2) {
    waiting_.push_back(samples[i]);
    waiting_.push_back(samples[i + 1]);
    const double gain = nextGain(std::max(std::fabs(samples[i]), std::fabs(samples[i + 1])));
    if (waiting_.size() < 2 * kLookAhead) continue;
    for (int channel = 0; channel < 2; ++channel) {
      out.push_back(static_cast<float>(waiting_.front() * gain));
      waiting_.pop_front();
    }
  }
}

}  // namespace kvo::engine
