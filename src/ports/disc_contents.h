// The port to the table of contents of an audio CD.
#pragma once

#include "base/result.h"

#include <string>
#include <vector>

namespace kvo {

/// Sectors of 1/75 second from the start of the disc.
struct DiscTrack {
  int TrackOffSet = 0;
  bool isSound = true;
};

struct DiscTable {
  std::vector<DiscTrack> tracks;  ///< in their order, from track 1
  int end = 0;                    ///< where the last one ends
};

class DiscContents {
 public:
  DiscContents() = default;
  DiscContents(const DiscContents&) = delete;
  DiscContents& operator=(const DiscContents&) = delete;
  virtual ~DiscContents() = default;

  /// Of the disc that is mounted at `folder`. Fails when there is no such disc, or none with sound.
  virtual Result<DiscTable> read(const std::string& folder) = 0;
};

}  // namespace kvo
