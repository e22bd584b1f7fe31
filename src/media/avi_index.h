// Puts right what a reader of AVI has lost count of behind a damaged part: it numbers chunks by counting
// them, the index by their place in the file. For this room only.
#pragma once

#include "media/ffmpeg.h"

#include <cstdint>

namespace kvo::media {

class AviIndex {
 public:
  /// Gives a packet of `stream` the time that the index has for it. Those that are parts of one chunk keep
  /// their distance to its first. Without an index nothing changes.
  void correct(AVPacket& packet, AVStream& stream);

 private:
  int place_ = -1;          // in the index, of the packet before
  std::int64_t unit_ = 0;   // of the index's times, in those of the packets; 0 until it is known
  std::int64_t shift_ = 0;  // between the index and the count
};

}  // namespace kvo::media
