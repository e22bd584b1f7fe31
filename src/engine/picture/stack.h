// Layers drawn over one another, frame by frame.
#pragma once

#include "base/result.h"
#include "engine/document/active_set.h"
#include "engine/document/timeline.h"
#include "engine/effects/registry.h"
#include "engine/transitions/registry.h"
#include "media/damage.h"
#include "media/picture.h"
#include "media/scaler.h"
#include "media/video_reader.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace kvo::engine {

class Stack {
 public:
  struct Setting {
    int width = 0;  ///< pixels, even
    int height = 0;
    FrameRate frameRate{};
    int decoderThreads = 1;               ///< of each file
    std::size_t keptOpen = 0;             ///< files that stay open though their clips are not shown now
    media::DamageList* damage = nullptr;  ///< is told what cannot be decoded; outlives the stack
  };

  /// `layers`, bottom to top, outlive the stack.
  Stack(const std::vector<Layer>& layers, const Setting& setting);
  Stack(Stack&&) noexcept;
  Stack& operator=(Stack&&) = delete;
  ~Stack();

  /// What is seen at frame `number` of the timeline, counted from 0: with alpha where not all is covered,
  /// empty where there is nothing. Forward is cheap. Files are open only while
  /// their clips are shown, but for those that the setting keeps.
  Result<media::Picture> frame(std::int64_t number);

 private:
  struct Open;
  // A layer as it takes part in a frame.
  struct Part {
    std::size_t layer = 0;
    const Transition* transition = nullptr;  // none: it is simply over what lies below
    double progress = 1;
  };

  void closeUnused(const std::vector<std::size_t>& active);
  [[nodiscard]] Part partOf(std::size_t layer, double time) const;
  Result<Open*> opened(std::size_t layer);
  Result<media::Picture> source(std::size_t layer, Open& open, std::int64_t number, bool& same);
  Result<media::Picture> picture(std::size_t layer, std::int64_t number);
  Result<media::Picture> over(const media::Picture& below, const Part& part, const media::Picture& above,
                              double time);

  const std::vector<Layer>& layers_;
  Setting setting_;
  ActiveSet active_;
  std::int64_t asked_ = 0;
  std::map<std::size_t, std::unique_ptr<Open>> open_;
};

/// Premultiplied `above` over `below`, of one size; without alpha if `below` has none. Empty when memory is
/// short.
media::Picture layOver(const media::Picture& below, const media::Picture& above);

}  // namespace kvo::engine
