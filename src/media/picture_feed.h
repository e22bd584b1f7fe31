// The pictures of a file in the order of showing, each whole and with its time: decoding, deinterlacing, and
// what is left out because it is damaged. For this room only; VideoReader decides which of them are wanted.
#pragma once

#include "media/damage.h"
#include "media/deinterlace.h"
#include "media/frame_clock.h"
#include "media/orientation.h"
#include "media/source.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace kvo::media {

class PictureFeed {
 public:
  /// Stands at the first picture. Fails with a line that names the file: missing, no picture in it, no
  /// decoder, 0 x 0 or too large. `threads` of the decoder; 0 lets it choose.
  static Result<PictureFeed> open(const std::string& path, int threads);

  /// The next picture that can be decoded; none at the end. What lies well ahead of `wanted` (seconds) and
  /// is not needed for others may be left out.
  Result<TimedFrame> next(double wanted);

  /// The first picture comes next.
  Outcome toStart();
  /// A picture at `seconds` or some time ahead of it comes next, if the container finds one: false when it
  /// cannot, and then nothing has changed. Where it counts by bytes, what comes may lie behind `seconds`.
  bool seek(double seconds);
  /// Whether a seek to `seconds` is known to begin at a key frame behind `from`, so that it spares what lies
  /// between.
  [[nodiscard]] bool keyLiesBetween(double from, double seconds) const;
  /// Whether the pictures can only be counted on from the first.
  [[nodiscard]] bool onlyForward() const { return clock_.kind() == FrameClock::Kind::Count; }

  /// What could not be decoded since the last seek, and the caller has not taken out.
  std::vector<Damage>& holes() { return holes_; }
  /// Where the last picture that was given ends, seconds.
  [[nodiscard]] double end() const { return end_; }
  /// Where the pictures end that were read, whether they could be decoded or not.
  [[nodiscard]] double readEnd() const { return std::max(end_, packetsEnd_); }
  /// The container's time of the first picture, seconds.
  [[nodiscard]] double origin() const { return origin_; }
  /// Seconds that a picture usually stands.
  [[nodiscard]] double frameLength() const { return clock_.frameLength(); }
  [[nodiscard]] const Source& source() const { return source_; }

 private:
  PictureFeed() = default;

  Outcome findStart();
  void mark(AVPacket& packet, double wanted);
  Outcome decodeGood(TimedFrame& good, double wanted);
  [[nodiscard]] bool followsAGap(double seconds, double wanted) const;
  std::optional<double> timeOfGood(const AVFrame& frame, double wanted);
  Outcome accept(TimedFrame good);
  Outcome finish();
  void complete(AVFrame& frame) const;
  void loseFrom(double seconds);
  void loseWhatIsRead() { loseFrom(std::max(packetTime_, end_)); }
  void closeHole(double seconds);
  [[nodiscard]] double lengthOf(const AVFrame& frame) const;
  [[nodiscard]] double promisedEnd() const;
  [[nodiscard]] bool isLeftOut(const AVPacket& packet, double wanted) const;
  void forget();

  Source source_;
  FrameClock clock_;
  int threads_ = 1;
  Orientation turn_;  // of a still, as its file tells
  double origin_ = 0;
  std::optional<Deinterlacer> deinterlacer_;  // from the first interlaced frame on
  TimedFrame ready_;                          // where nothing is deinterlaced
  bool finished_ = false;                     // the decoder has given everything back
  bool needsKey_ = false;                     // behind a seek: what comes ahead of a key frame is no picture
  double packetTime_ = 0;                     // of the packet that was sent last; 0 when it has none
  double end_ = 0;
  double packetsEnd_ = 0;          // where the last packet ends that was read, whole or not
  std::optional<double> faultAt_;  // what is shown from here on cannot be decoded
  std::vector<Damage> holes_;
};

}  // namespace kvo::media
