#include "media/deinterlace.h"

namespace kvo::media {
namespace {

// One picture a frame, whichever field comes first; what is whole already is left alone.
constexpr const char* kFilter = "bwdif=mode=send_frame:parity=auto:deint=interlaced";
constexpr int kLeastSide = 4;  // pixels; the filter takes no less

}  // namespace

Outcome Deinterlacer::push(TimedFrame frame) {
  if (frame.frame->width < kLeastSide || frame.frame->height < kLeastSide) {
    ready_.push_back(std::move(frame));
    return {};
  }
  if (!graph_ || !graph_->fits(*frame.frame)) {
    if (graph_) {
      if (auto done = end(); !done) return done;
    }
    auto made = FilterChain::make(kFilter, *frame.frame, threads_);
    if (!made) return made.error();
    graph_ = std::move(*made);
  }
  times_.push_back(frame.seconds);
  // The filter wants stamps that rise; the times are kept here.
  frame.frame->pts = static_cast<std::int64_t>(frame.seconds * 1e6);
  if (auto done = graph_->push(frame.frame); !done) return done;
  return drain();
}

Outcome Deinterlacer::end() {
  if (!graph_) return {};
  if (auto done = graph_->push(nullptr); !done) return done;
  if (auto done = drain(); !done) return done;
  graph_.reset();
  times_.clear();
  return {};
}

Outcome Deinterlacer::drain() {
  for (;;) {
    auto made = graph_->pull();
    if (!made) return made.error();
    if (!*made || times_.empty()) return {};
    (*made)->interlaced_frame = 0;
    ready_.push_back({std::move(*made), times_.front()});
    times_.pop_front();
  }
}

TimedFrame Deinterlacer::pull() {
  if (ready_.empty()) return {};
  auto next = std::move(ready_.front());
  ready_.pop_front();
  return next;
}

}  // namespace kvo::media
