#include "engine/run/watched_hardware.h"

#include <utility>

namespace kvo::engine {

class WatchedHardware::Encoder : public media::DeviceEncoder {
 public:
  Encoder(WatchedHardware& watch, std::unique_ptr<media::DeviceEncoder> encoder)
      : watch_(watch), encoder_(std::move(encoder)) {}

  Result<media::EncodedFrames> encode(const media::Picture& picture, std::int64_t number) override {
    return watched(encoder_->encode(picture, number));
  }
  Result<media::EncodedFrames> finish() override { return watched(encoder_->finish()); }
  [[nodiscard]] Outcome describe(AVCodecParameters& parameters) const override {
    auto done = encoder_->describe(parameters);
    if (!done) watch_.note(done.error());
    return done;
  }

 private:
  Result<media::EncodedFrames> watched(Result<media::EncodedFrames> frames) {
    if (!frames) watch_.note(frames.error());
    return frames;
  }

  WatchedHardware& watch_;
  std::unique_ptr<media::DeviceEncoder> encoder_;
};

Result<std::unique_ptr<media::DeviceEncoder>> WatchedHardware::open(const media::VideoFormat& format,
                                                                    bool headerInFile) {
  auto opened = hardware_.open(format, headerInFile);
  if (opened)
    return std::unique_ptr<media::DeviceEncoder>(std::make_unique<Encoder>(*this, std::move(*opened)));
  note(opened.error());
  return opened;
}

void WatchedHardware::note(const Error& error) {
  const std::lock_guard lock(mutex_);
  if (!failure_) failure_ = error;
}

std::optional<Error> WatchedHardware::failure() const {
  const std::lock_guard lock(mutex_);
  return failure_;
}

}  // namespace kvo::engine
