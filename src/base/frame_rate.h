// Frames a second as a ratio of whole numbers, and the one rule by which seconds and frames go together.
#pragma once

#include <cstdint>
#include <optional>

namespace kvo {

class FrameRate {
 public:
  /// So many frames in so many seconds; both are 1 or more.
  constexpr FrameRate(std::int32_t frames = 25,
                      std::int32_t seconds = 1)  // NOLINT(google-explicit-constructor)
      : frames_(frames), seconds_(seconds) {}

  /// The rate that a number of few decimals means: 25, 12.5, and for what lies within a hundredth of one of
  /// the rates of television that one, so 23.976 and 23.98 are 24000/1001. Nothing for what is no number or
  /// not within 0.001 to 60000.
  static std::optional<FrameRate> fromDecimal(double framesPerSecond);

  [[nodiscard]] constexpr std::int32_t numerator() const { return frames_; }
  [[nodiscard]] constexpr std::int32_t denominator() const { return seconds_; }
  [[nodiscard]] constexpr double perSecond() const { return static_cast<double>(frames_) / seconds_; }

  /// When a frame begins, counted from 0.
  [[nodiscard]] constexpr double secondsAt(std::int64_t frame) const {
    return static_cast<double>(frame) * seconds_ / frames_;
  }
  /// The same in units of which there are so many in a second (samples), to the nearest.
  [[nodiscard]] std::int64_t unitsAt(std::int64_t frame, std::int32_t unitsPerSecond) const;

  /// The first frame that begins at `seconds` or later: a range of time has the frames from that of its start
  /// up to that of its end. Times of a document are rounded to a few decimals, so a frame that begins up to a
  /// hundredth of its length earlier still counts.
  [[nodiscard]] std::int64_t frameFrom(double seconds) const;
  /// The frame that is seen at `seconds`: the last that has begun, by the same measure.
  [[nodiscard]] std::int64_t frameAt(double seconds) const;

  bool operator==(const FrameRate&) const = default;

 private:
  std::int32_t frames_;
  std::int32_t seconds_;
};

}  // namespace kvo
