// The probe as a program of its own, run through a batch file for the shell; its answer comes in a file.
#pragma once

#include "ports/clock.h"
#include "ports/event_loop.h"
#include "ports/files.h"
#include "ports/processes.h"
#include "ports/stream_probe.h"
#include "ports/temporary_folders.h"

#include <optional>
#include <string>
#include <string_view>

namespace kvo {

/// A name as one word for the shell, whatever is in it.
std::string shellWord(std::string_view name);

/// Writes `batch` in `folder`: it runs `command`, and then makes the file `sentinel` there. What bore the two
/// names before is gone. Lines end in LF.
Outcome BuildBat(Files& files, std::string_view command, std::string_view sentinel, std::string_view batch,
                 const std::string& folder);

class BatchProbe : public StreamProbe {
 public:
  struct Parts {
    Files& files;
    Processes& processes;
    EventLoop& loop;
    const Clock& clock;
    TemporaryFolders& folders;
    std::string program;  ///< path of KVOprop
  };
  /// All outlive the probe.
  explicit BatchProbe(Parts parts) : parts_(std::move(parts)) {}

  /// Waits 250 ms and then up to `tries` times 150 ms, while the loop goes on; then whatever the report holds
  /// counts, and the probe is ended. Nothing without a report. Probes may run inside one another: each has a
  /// folder of its own, of which nothing is left.
  std::optional<std::string> report(const std::string& path, int tries) override;

 private:
  void pass(int milliseconds);
  std::optional<std::string> take(const std::string& file);

  Parts parts_;
};

}  // namespace kvo
