// What both engines stand on: their files, which are made once and used again, the one that is opened ahead,
// and the output of which one is in front.
#pragma once

#include "adapters/mpv/mpv_file.h"
#include "adapters/mpv/mpv_video_output.h"

#include <memory>
#include <string>
#include <vector>

namespace kvo {

class MpvStage {
 public:
  /// Both outlive the stage, and the stage all that is made on it. From here on LC_NUMERIC is "C" for the
  /// whole process, as cores ask for: a stage is made ahead of the first thread that reads numbers.
  MpvStage(EventLoop& loop, MediaContents& facts, const MpvLimits& limits = {});
  ~MpvStage();

  [[nodiscard]] VideoOutput& output() { return output_; }

  // Of this room.
  /// Gets a file ready in the background, standing at `seconds`; empty closes the one that was.
  void openAhead(const std::string& file, double seconds);
  /// A file or address that is open or on its way, in front: the one that was opened ahead, if it is this.
  std::unique_ptr<MpvFile> take(const std::string& fileOrAddress);
  /// Closes it, for the next use.
  void giveBack(std::unique_ptr<MpvFile> file);

 private:
  std::unique_ptr<MpvFile> atRest();

  EventLoop& loop_;
  MediaContents& facts_;
  MpvLimits limits_;
  MpvVideoOutput output_;
  std::vector<std::unique_ptr<MpvFile>> resting_;
  std::unique_ptr<MpvFile> ahead_;
};

}  // namespace kvo
