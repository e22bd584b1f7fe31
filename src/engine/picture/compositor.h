// The picture of a timeline, frame by frame.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "engine/picture/frame_plan.h"
#include "engine/picture/stack.h"
#include "media/damage.h"
#include "media/picture.h"

#include <cstdint>

namespace kvo::engine {

class Compositor {
 public:
  /// How it works on files: each decoder with so many threads, and how many of the files that are not needed
  /// now stay open, for one who goes to and fro. What cannot be decoded is told to `damage`; files are taken
  /// from `files`, where that is not null, and given back to it. Both outlive the compositor.
  struct Habits {
    int decoderThreads = 1;
    std::size_t keptOpen = 0;
    media::DamageList* damage = nullptr;
    OpenFiles* files = nullptr;
  };

  /// `timeline` outlives the compositor and has video.
  explicit Compositor(const Timeline& timeline, const Habits& habits);
  explicit Compositor(const Timeline& timeline) : Compositor(timeline, Habits{}) {}

  /// Frame `number` of the timeline, counted from 0; black where there is no clip. The picture's sides are
  /// the timeline's, rounded up to even. Forward is cheap. Files are open only while their clips are shown.
  Result<media::Picture> frame(std::int64_t number);

  /// A stretch of the way to a frame that is not the next one: about `most` seconds of each file. Gives the
  /// seconds to go, 0 when frame(number) has nothing left to decode.
  Result<double> approach(std::int64_t number, double most);
  /// Frame `number` of what has been decoded on the way there.
  Result<media::Picture> roughFrame(std::int64_t number);

  /// A frame will be wanted before long: files that it needs and that are not open are made ready beside.
  void expect(std::int64_t number);

 private:
  Result<media::Picture> onBlack(Result<media::Picture> seen) const;

  FrameSize size_;
  FramePlanner planner_;
  FramePlanner scout_;  // ahead of it
  Stack stack_;
};

}  // namespace kvo::engine
