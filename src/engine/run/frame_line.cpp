#include "engine/run/frame_line.h"

#include "base/guarded.h"
#include "engine/picture/compositor.h"

#include <algorithm>

namespace kvo::engine {
namespace {

constexpr std::size_t kRoom = 8;              // frames that wait in the lane that is handed out
constexpr std::size_t kMaxHeld = 48U << 20U;  // bytes that wait in the others

std::size_t bytesOf(const MadeFrame& frame) {
  if (frame.encoded) return frame.encoded.bytes();
  const auto& p = frame.picture;
  return static_cast<std::size_t>(p.stride(0)) * static_cast<std::size_t>(p.height()) * 3 / 2;
}

}  // namespace

FrameLine::FrameLine(const Timeline& timeline, std::vector<Segment> segments, NewEncoder newEncoder,
                     const Crew& crew, media::DamageList* damage)
    : timeline_(timeline),
      segments_(std::move(segments)),
      newEncoder_(std::move(newEncoder)),
      crew_(crew),
      damage_(damage),
      lanes_(segments_.size()) {
  const auto workers = std::min(static_cast<std::size_t>(std::max(crew.workers, 1)), segments_.size());
  const auto begun = guarded([&]() -> Outcome {
    threads_.reserve(workers);
    for (std::size_t i = 0; i < workers; ++i) threads_.emplace_back([this] { work(); });
    return {};
  });
  // Fewer threads than wanted do the same work.
  if (!begun && threads_.empty()) fail(begun.error());
}

FrameLine::~FrameLine() {
  {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
  }
  changed_.notify_all();
  for (auto& thread : threads_) thread.join();
}

void FrameLine::fail(const Error& error) {
  const std::lock_guard lock(mutex_);
  if (!failed_) failed_ = error;
  stopped_ = true;
  changed_.notify_all();
}

void FrameLine::work() {
  for (;;) {
    std::size_t number = 0;
    {
      const std::lock_guard lock(mutex_);
      if (stopped_ || taken_ == segments_.size()) return;
      number = taken_++;
    }
    if (auto done = guarded([&] { return makeSegment(number); }); !done) return fail(done.error());
    const std::lock_guard lock(mutex_);
    lanes_[number].done = true;
    changed_.notify_all();
  }
}

Outcome FrameLine::makeSegment(std::size_t number) {
  const auto& segment = segments_[number];
  Compositor compositor(timeline_, {.decoderThreads = crew_.decoderThreads, .damage = damage_});
  std::optional<media::VideoEncoder> encoder;
  if (newEncoder_) {
    auto made = newEncoder_();
    if (!made) return made.error();
    encoder.emplace(std::move(*made));
  }
  for (auto frame = segment.first; frame < segment.stop; ++frame) {
    auto picture = compositor.frame(frame);
    if (!picture) return picture.error();
    ++made_;
    if (!encoder) {
      if (!put(number, {std::move(*picture), {}})) return {};
      continue;
    }
    auto wanted = putAll(number, encoder->encode(*picture, frame - segments_.front().first));
    if (!wanted || !*wanted) return wanted ? Outcome() : wanted.error();
  }
  if (!encoder) return {};
  const auto wanted = putAll(number, encoder->finish());
  return wanted ? Outcome() : wanted.error();
}

Result<bool> FrameLine::putAll(std::size_t lane, Result<media::EncodedFrames> frames) {
  if (!frames) return frames.error();
  for (auto& frame : *frames) {
    if (!put(lane, {{}, std::move(frame)})) return false;
  }
  return true;
}

// False when nobody wants more.
bool FrameLine::put(std::size_t lane, MadeFrame frame) {
  const auto bytes = bytesOf(frame);
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] {
    return stopped_ || lanes_[lane].frames.size() < kRoom || (lane != handedOut_ && heldBytes_ < kMaxHeld);
  });
  if (stopped_) return false;
  heldBytes_ += bytes;
  lanes_[lane].frames.push_back(std::move(frame));
  changed_.notify_all();
  return true;
}

Result<MadeFrame> FrameLine::next() {
  std::unique_lock lock(mutex_);
  while (handedOut_ < lanes_.size()) {
    changed_.wait(lock,
                  [&] { return failed_ || !lanes_[handedOut_].frames.empty() || lanes_[handedOut_].done; });
    if (failed_) return *failed_;
    auto& lane = lanes_[handedOut_];
    if (!lane.frames.empty()) {
      MadeFrame frame = std::move(lane.frames.front());
      lane.frames.pop_front();
      heldBytes_ -= bytesOf(frame);
      changed_.notify_all();
      return frame;
    }
    ++handedOut_;
    changed_.notify_all();
  }
  return Error{"there are no more frames"};
}

}  // namespace kvo::engine
