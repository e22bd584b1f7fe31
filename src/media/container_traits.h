// What is known of the kinds of media files beyond what they say of themselves. For this room only.
#pragma once

#include "media/ffmpeg.h"

#include <string_view>

namespace kvo::media {

/// What readers have to mind with a kind of file. The defaults hold for kinds without a row of their own.
struct ContainerTraits {
  std::string_view name;  ///< FFmpeg's name of its demuxer, up to the first comma

  bool isStill = false;         ///< one picture, which has no time
  bool refersToOthers = false;  ///< a list of files, and no clip

  /// The chunks of a stream carry their number in the order of decoding in place of a time.
  bool numbersChunks = false;
  /// The times of sound are guessed from its bit rate: right for uncompressed sound only.
  bool guessesSoundTimes = false;
  /// It has no times and no length: only counting its pictures tells how long it is.
  bool hasNoTimes = false;
  /// It tells the length of each of its streams, and not that of the file for each.
  bool tellsLengthOfEach = false;
  /// A recording may begin inside a group of pictures, of which the first cannot be decoded: only decoding
  /// tells when the first one is shown.
  bool beginsAnywhere = false;
  /// The size of its pictures may be told first behind many seconds.
  bool tellsSizeLate = false;
};

const ContainerTraits& traitsOf(const AVFormatContext& format);

/// Somebody's rights hold it shut: an ASF with a protection object, or a track that is enciphered.
bool isProtected(const AVFormatContext& format);

}  // namespace kvo::media
