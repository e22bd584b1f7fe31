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
                     const Crew& crew, media::DamageList* damage, const WorkFolder* kept)
    : timeline_(timeline),
      segments_(std::move(segments)),
      newEncoder_(std::move(newEncoder)),
      crew_(crew),
      damage_(damage),
      work_(kept),
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
  if (work_ != nullptr) return keepSegment(number);
  return makeFrames(number, damage_, [&](MadeFrame frame) { return put(number, std::move(frame)); });
}

Outcome FrameLine::keepSegment(std::size_t number) {
  if (!work_->wants(number)) return {};
  if (const auto kept = work_->read(number)) {
    const auto frames = segments_[number].stop - segments_[number].first;
    made_ += frames;
    kept_ += frames;
    return {};
  }
  auto target = work_->begin(number);
  if (!target) return target.error();
  media::SegmentWriter writer(**target, work_->key());
  media::DamageList damage;
  auto done = makeFrames(number, &damage, [&](const MadeFrame& frame) -> Result<bool> {
    if (auto written = writer.write(frame.encoded); !written) return written.error();
    return !isStopped();
  });
  if (!done || isStopped()) return done;
  if (done = writer.finish(damage.all()); !done) return done;
  return (*target)->commit();
}

Outcome FrameLine::makeFrames(std::size_t number, media::DamageList* damage, const Taker& taker) {
  const auto& segment = segments_[number];
  Compositor compositor(timeline_, {.decoderThreads = crew_.decoderThreads, .damage = damage});
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
      const auto wanted = taker({std::move(*picture), {}});
      if (!wanted || !*wanted) return wanted ? Outcome() : wanted.error();
      continue;
    }
    const auto wanted = takeAll(encoder->encode(*picture, frame - segments_.front().first), taker);
    if (!wanted || !*wanted) return wanted ? Outcome() : wanted.error();
  }
  if (!encoder) return {};
  const auto wanted = takeAll(encoder->finish(), taker);
  return wanted ? Outcome() : wanted.error();
}

Result<bool> FrameLine::takeAll(Result<media::EncodedFrames> frames, const Taker& taker) {
  if (!frames) return frames.error();
  for (auto& frame : *frames) {
    auto wanted = taker({{}, std::move(frame)});
    if (!wanted || !*wanted) return wanted;
  }
  return true;
}

bool FrameLine::isStopped() {
  const std::lock_guard lock(mutex_);
  changed_.notify_all();
  return stopped_;
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

void FrameLine::waitFor(std::unique_lock<std::mutex>& lock, const std::function<bool()>& ready,
                        const std::function<void()>& told) {
  while (!failed_ && !ready()) {
    changed_.wait(lock);
    if (!told) continue;
    lock.unlock();
    told();
    lock.lock();
  }
}

Outcome FrameLine::finish(const std::function<void()>& told) {
  std::unique_lock lock(mutex_);
  const auto allDone = [&] {
    return std::all_of(lanes_.begin(), lanes_.end(), [](const Lane& lane) { return lane.done; });
  };
  waitFor(lock, allDone, told);
  return failed_ ? Outcome(*failed_) : Outcome();
}

// The next frame of the lane that is handed out, whose file stands; an empty one behind the last.
Result<MadeFrame> FrameLine::keptFrame() {
  if (!reader_) {
    auto opened = work_->read(handedOut_);
    if (!opened) return opened.error();
    reader_.emplace(std::move(*opened));
    if (damage_ != nullptr) {
      for (const auto& hole : reader_->damage()) damage_->add(hole);
    }
  }
  auto frame = reader_->next();
  if (!frame) return frame.error();
  if (!*frame) reader_.reset();
  return MadeFrame{{}, std::move(*frame)};
}

Result<MadeFrame> FrameLine::next(const std::function<void()>& told) {
  std::unique_lock lock(mutex_);
  while (handedOut_ < lanes_.size()) {
    waitFor(
        lock, [&] { return !lanes_[handedOut_].frames.empty() || lanes_[handedOut_].done; }, told);
    if (failed_) return *failed_;
    auto& lane = lanes_[handedOut_];
    if (work_ != nullptr) {
      lock.unlock();
      auto frame = keptFrame();
      if (!frame || frame->encoded) return frame;
      lock.lock();
    } else if (!lane.frames.empty()) {
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
