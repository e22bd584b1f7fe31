// Encoders that sit in a device of the machine, a graphics card mostly. Whether one of them works is known
// only behind a trial, and a driver may hang in it: a process that can be done without makes the trial.
#pragma once

#include "base/result.h"
#include "media/video_encoder.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

struct AVCodecParameters;

namespace kvo::media {

/// An encoder that is open in a device. It is one thread's at a time.
class DeviceEncoder {
 public:
  DeviceEncoder() = default;
  DeviceEncoder(const DeviceEncoder&) = delete;
  DeviceEncoder& operator=(const DeviceEncoder&) = delete;
  virtual ~DeviceEncoder() = default;

  /// These three as VideoEncoder has them, but the picture has the movie's size and weights already.
  virtual Result<EncodedFrames> encode(const Picture& picture, std::int64_t number) = 0;
  virtual Result<EncodedFrames> finish() = 0;
  [[nodiscard]] virtual Outcome describe(AVCodecParameters& parameters) const = 0;
};

/// One kind of encoder of a device.
class Hardware {
 public:
  Hardware() = default;
  Hardware(const Hardware&) = delete;
  Hardware& operator=(const Hardware&) = delete;
  virtual ~Hardware() = default;

  /// What FFmpeg calls it: "h264_vaapi".
  [[nodiscard]] virtual std::string_view name() const = 0;

  /// Opens one more, for pictures of H.264 in even sizes. From several threads at a time. Fails where there
  /// is no such device, or it does not take such pictures, or no more encoders.
  virtual Result<std::unique_ptr<DeviceEncoder>> open(const VideoFormat& format, bool headerInFile) = 0;
};

/// The names that there are, in the order in which they are worth a trial.
std::span<const std::string_view> hardwareNames();

/// Null for another name.
std::unique_ptr<Hardware> hardwareNamed(std::string_view name);

/// Has it encode a small picture, which takes up to a second where there is such a device. Fails where no
/// frame comes of it, or nothing describes the stream.
Outcome tryHardware(Hardware& hardware);

}  // namespace kvo::media
