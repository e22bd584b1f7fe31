// FFmpeg's encoders of sound, given the movie's own samples. For this room only.
#pragma once

#include "media/ffmpeg.h"
#include "media/sound_shape.h"
#include "vocabulary/movie_files.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kvo::media {

class SoundEncoder {
 public:
  struct Wish {
    SoundCodec codec = SoundCodec::Pcm;
    int sampleRate = 44100;
    int channels = 2;
    int bitRate = 0;  ///< a second; of no matter to sound that loses nothing
    bool headerInFile = false;
  };

  /// Fails where FFmpeg has no such encoder, or none for such sound. `name` is for error lines.
  static Result<SoundEncoder> open(const Wish& wish, const std::string& name);

  [[nodiscard]] const AVCodecContext& context() const { return *encoder_; }

  /// Is given each packet; its times are in units of context().time_base. It may keep what is in there.
  using Take = std::function<Outcome(AVPacket&)>;

  /// The next samples at 44.1 kHz, left and right in turn; full scale is 1. Fails as `take` does.
  Outcome write(std::span<const float> samples, const Take& take);
  /// What is held back.
  Outcome finish(const Take& take);

 private:
  SoundEncoder(CodecHandle encoder, SoundShape shape, std::string name)
      : encoder_(std::move(encoder)), shape_(std::move(shape)), name_(std::move(name)) {}
  [[nodiscard]] std::size_t channels() const {
    return static_cast<std::size_t>(encoder_->ch_layout.nb_channels);
  }
  [[nodiscard]] std::size_t chunk() const;
  Outcome encode(const AVFrame* frame, const Take& take);
  Outcome writeFrame(std::span<const float> part, const Take& take);

  CodecHandle encoder_;
  SoundShape shape_;
  std::string name_;
  std::int64_t at_ = 0;      // time of the next sample
  std::vector<float> held_;  // samples that do not fill an encoder's frame yet
};

}  // namespace kvo::media
