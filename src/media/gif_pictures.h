// Brings pictures to 256 colours, which are chosen anew for every few seconds of a movie. For this room only.
#pragma once

#include "base/result.h"
#include "media/picture.h"

#include <cstddef>
#include <vector>

namespace kvo::media {

class GifPictures {
 public:
  /// Colours are chosen for `group` pictures at a time.
  explicit GifPictures(std::size_t group) : group_(group) {}

  /// Takes a frame with its time; what is ready comes out, with the times they came with.
  Result<std::vector<SharedFrame>> put(SharedFrame frame);
  /// All that is left.
  Result<std::vector<SharedFrame>> finish();

 private:
  std::size_t group_;
  std::vector<SharedFrame> held_;
};

}  // namespace kvo::media
