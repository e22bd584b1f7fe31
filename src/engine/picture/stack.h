// Layers drawn over one another, frame by frame, as they are planned.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "engine/picture/frame_plan.h"
#include "engine/picture/open_files.h"
#include "media/damage.h"
#include "media/picture.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace kvo::engine {

class Stack {
 public:
  struct Setting {
    FrameSize size{};
    int decoderThreads = 1;               ///< of each file
    std::size_t keptOpen = 0;             ///< files that stay open though their clips are not shown now
    media::DamageList* damage = nullptr;  ///< is told what cannot be decoded; outlives the stack
    OpenFiles* files = nullptr;           ///< where files come from and go to; null: opened and closed
  };

  /// `layers`, bottom to top, outlive the stack.
  Stack(const std::vector<Layer>& layers, const Setting& setting);
  Stack(Stack&&) noexcept;
  Stack& operator=(Stack&&) = delete;
  ~Stack();

  /// What is seen of a frame, by the plan of these layers: with alpha where not all is covered, empty where
  /// there is nothing. Forward is cheap. Files are open only while their clips are planned, but for those
  /// that the setting keeps.
  Result<media::Picture> draw(const FramePlan& plan);

  /// A stretch of the way to a plan whose files stand elsewhere: about `most` seconds of each. Gives the
  /// seconds to go, 0 when nothing is left but to draw it.
  Result<double> approach(const FramePlan& plan, double most);
  /// A plan as far as its files have come; empty where there is nothing.
  Result<media::Picture> drawAsItStands(const FramePlan& plan);

  /// The files of a plan that will be drawn before long are made ready.
  void expect(const FramePlan& plan);

 private:
  struct Open;

  void closeUnused(const FramePlan& plan);
  Result<Open*> opened(std::size_t layer);
  Result<media::Picture> source(const PlannedLayer& planned, Open& open, bool& same);
  Result<media::Picture> picture(const PlannedLayer& planned);
  Result<media::Picture> over(const media::Picture& below, const PlannedLayer& planned,
                              const media::Picture& above);

  const std::vector<Layer>& layers_;
  Setting setting_;
  std::int64_t asked_ = 0;  // frames, so far
  bool asItStands_ = false;
  std::map<std::size_t, std::unique_ptr<Open>> open_;
  std::set<std::size_t> expected_;  // layers whose files are being made ready
};

/// Premultiplied `above` over `below`, of one size; without alpha if `below` has none. Throws
/// std::bad_alloc when memory is short.
media::Picture layOver(const media::Picture& below, const media::Picture& above);

}  // namespace kvo::engine
