#include "engine/run/size_aim.h"

#include "engine/run/frame_line.h"

#include <algorithm>

namespace kvo::engine {
namespace {

constexpr double kAim = 0.985;  // of the limit: encoders miss by a hundredth
constexpr double kNearEnough = 0.97;
constexpr double kLongFrom = 30;      // seconds
constexpr int kMostTries = 5;         // of which the last is for a file that is too large only
constexpr double kMorePerTry = 0.01;  // that later tries aim lower

}  // namespace

Outcome takeNotes(const Timeline& timeline, const RenderPlan& plan, const std::string& name,
                  const std::function<void(std::int64_t made)>& told) {
  auto format = *plan.format.video;
  format.pass = media::Pass::First;
  auto encoder = media::VideoEncoder::open(format, true, name);
  if (!encoder) return encoder.error();
  FrameLine line(timeline, plan.segments, nullptr, plan.crew);
  for (auto step = plan.first; step < plan.stop; ++step) {
    const auto frame = line.next();
    if (!frame) return frame.error();
    const auto encoded = encoder->encode(frame->picture, step - plan.first);
    if (!encoded) return encoded.error();
    told(step + 1 - plan.first);
  }
  const auto rest = encoder->finish();
  return rest ? Outcome() : rest.error();
}

SizeAim::SizeAim(const RenderPlan& plan)
    : most_(static_cast<double>(plan.mostBytes)),
      isLong_(plan.seconds() >= kLongFrom),
      bitRate_(static_cast<int>(plan.format.video->bitRate * kAim)) {}

Fits SizeAim::judge(std::uint64_t bytes, std::uint64_t pictureBytes, bool isFinest) {
  const auto size = static_cast<double>(bytes);
  const auto picture = static_cast<double>(pictureBytes);
  const bool isOver = size > most_;
  ++tries_;
  // What was given more and has not taken it is as good as it gets.
  const bool isFull = isFinest || (raisedFrom_ > 0 && size < raisedFrom_ * 1.01);
  if (!isOver) {
    if (!isLong_ || size >= most_ * kNearEnough || isFull || tries_ >= kMostTries - 1) return Fits::Good;
    fitting_ = std::max(fitting_, bitRate_);
  }
  const double room = most_ * (kAim - kMorePerTry * (isOver ? tries_ - 1 : 0)) - (size - picture);
  if (tries_ == kMostTries || room <= 0 || picture <= 0) return Fits::Never;
  raisedFrom_ = isOver ? 0 : size;
  bitRate_ = static_cast<int>(std::clamp(bitRate_ * (room / picture), 1000.0, 2e9));
  // What has kept within the size once does so again: better too small than no movie.
  if (tries_ == kMostTries - 1 && fitting_ > 0) bitRate_ = fitting_;
  return Fits::TryAgain;
}

}  // namespace kvo::engine
