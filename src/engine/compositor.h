// The picture of a timeline, frame by frame.
#pragma once

#include "base/result.h"
#include "engine/active_set.h"
#include "engine/timeline.h"
#include "media/picture.h"
#include "media/scaler.h"
#include "media/video_reader.h"

#include <cstdint>
#include <map>
#include <utility>

namespace kvo::engine {

class Compositor {
 public:
  /// `timeline` outlives the compositor and has video.
  explicit Compositor(const Timeline& timeline);

  /// Frame `number` of the timeline, counted from 0; black where there is no clip. The picture's sides are
  /// the timeline's, rounded up to even. Forward is cheap. Files are open only while their clips are shown.
  Result<media::Picture> frame(std::int64_t number);

 private:
  struct Source {
    media::VideoReader reader;
    media::Scaler scaler;
    media::SharedFrame shown;  // what `picture` was made from
    media::Picture picture;
  };
  struct Layer {
    std::size_t clip = 0;
    const Transition* transition = nullptr;  // none: covers what lies below
    double progress = 1;
  };

  [[nodiscard]] std::vector<Layer> layersAt(double time, const std::vector<std::size_t>& active) const;
  void closeUnused(const std::vector<std::size_t>& active);
  Result<Source*> source(std::size_t clip);
  const PaintTransition& painter(const Layer& layer);
  Result<media::Picture> pictureOf(std::size_t clip, double time);

  const Timeline& timeline_;
  int width_;
  int height_;
  ActiveSet clips_;
  std::map<std::size_t, Source> open_;
  std::map<std::pair<std::size_t, const Transition*>, PaintTransition> painters_;  // of clips that are open
};

}  // namespace kvo::engine
