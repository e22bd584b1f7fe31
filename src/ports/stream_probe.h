// The port to the probe that tells what a Windows Media file holds, as a text for reading by substrings.
#pragma once

#include <optional>
#include <string>

namespace kvo {

class StreamProbe {
 public:
  StreamProbe() = default;
  StreamProbe(const StreamProbe&) = delete;
  StreamProbe& operator=(const StreamProbe&) = delete;
  virtual ~StreamProbe() = default;

  /// The report on a file; nothing while there is no probe, or when it did not answer within `tries` times
  /// 150 ms.
  virtual std::optional<std::string> report(const std::string& path, int tries) = 0;
};

/// Stands where no probe is installed.
class NoStreamProbe : public StreamProbe {
 public:
  std::optional<std::string> report(const std::string& /*path*/, int /*tries*/) override { return {}; }
};

}  // namespace kvo
