// The picture of the clip in hand, as the window draws it.
#pragma once

#include "ports/media_contents.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kvo {

/// A picture that is wanted.
struct PictureWish {
  std::string path;    ///< full path; empty for none
  double seconds = 0;  ///< from the file's first picture on
  int width = 0;       ///< pixels
  int height = 0;
  bool operator==(const PictureWish&) const = default;
};

/// What has come.
struct ClipPictureState {
  PictureWish wish;                             ///< that it answers
  std::shared_ptr<const FramePicture> picture;  ///< null where there is none
  std::string fault;                            ///< why there is none
  std::uint64_t revision = 0;                   ///< higher after each change
};

}  // namespace kvo
