// Hardware that is watched: whether it has failed tells whether a movie may be made again without it.
#pragma once

#include "media/hardware.h"

#include <mutex>
#include <optional>

namespace kvo::engine {

class WatchedHardware : public media::Hardware {
 public:
  /// Hands all on to `hardware`, which outlives the object; so does this what is opened by it.
  explicit WatchedHardware(media::Hardware& hardware) : hardware_(hardware) {}

  [[nodiscard]] std::string_view name() const override { return hardware_.name(); }
  Result<std::unique_ptr<media::DeviceEncoder>> open(const media::VideoFormat& format,
                                                     bool headerInFile) override;

  /// Its first failure; nothing while there has been none.
  [[nodiscard]] std::optional<Error> failure() const;

 private:
  class Encoder;
  void note(const Error& error);

  media::Hardware& hardware_;
  mutable std::mutex mutex_;
  std::optional<Error> failure_;
};

}  // namespace kvo::engine
