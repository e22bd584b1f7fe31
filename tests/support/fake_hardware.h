// A device that encodes as the software does, until it is told to fail.
#pragma once

#include "media/hardware.h"

#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

namespace kvo::test {

class FakeHardware : public media::Hardware {
 public:
  std::string refusal;            // why it opens nothing
  std::int64_t failsBehind = -1;  // so many pictures; below 0 never
  bool givesFrames = true;
  std::vector<media::VideoFormat> asked;
  std::atomic<std::int64_t> pictures = 0;

  [[nodiscard]] std::string_view name() const override { return "h264_fake"; }
  Result<std::unique_ptr<media::DeviceEncoder>> open(const media::VideoFormat& format,
                                                     bool headerInFile) override {
    {
      const std::lock_guard lock(mutex_);
      asked.push_back(format);
    }
    if (!refusal.empty()) return Error{refusal};
    auto software = format;
    software.hardware = nullptr;
    auto encoder = media::VideoEncoder::open(software, headerInFile, "fake");
    if (!encoder) return encoder.error();
    return std::unique_ptr<media::DeviceEncoder>(std::make_unique<Encoder>(*this, std::move(*encoder)));
  }

 private:
  class Encoder : public media::DeviceEncoder {
   public:
    Encoder(FakeHardware& device, media::VideoEncoder encoder)
        : device_(device), encoder_(std::move(encoder)) {}
    Result<media::EncodedFrames> encode(const media::Picture& picture, std::int64_t number) override {
      if (device_.pictures++ == device_.failsBehind) return Error{"the device is gone"};
      return device_.givesFrames ? encoder_.encode(picture, number) : media::EncodedFrames();
    }
    Result<media::EncodedFrames> finish() override {
      return device_.givesFrames ? encoder_.finish() : media::EncodedFrames();
    }
    [[nodiscard]] Outcome describe(AVCodecParameters& parameters) const override {
      return encoder_.describe(parameters);
    }

   private:
    FakeHardware& device_;
    media::VideoEncoder encoder_;
  };

  std::mutex mutex_;
};

}  // namespace kvo::test
