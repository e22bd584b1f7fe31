// Makes sketches, and keeps them: what has been made of a file in its present state is not made again.
#pragma once

#include "ports/jpeg.h"
#include "ports/sound_peaks.h"
#include "sketches/sketch_folder.h"
#include "sketches/sketches.h"

#include <functional>
#include <optional>
#include <string>

namespace kvo {

class SketchMaker {
 public:
  struct Parts {
    SketchFolder& folder;
    MediaContents& frames;
    SoundPeaks& sounds;
    const Jpeg& jpeg;
  };
  /// All outlive the object, which flushes at its end.
  explicit SketchMaker(const Parts& parts) : parts_(parts) {}
  SketchMaker(const SketchMaker&) = delete;
  SketchMaker& operator=(const SketchMaker&) = delete;
  ~SketchMaker() { flush(); }

  /// The picture as JPEG; empty where there is none.
  std::string picture(const std::string& path, std::uint32_t milliseconds);

  /// A byte for each of kKeptPeaks a second; empty without sound. `alive` as in SoundPeaks.
  std::string peaks(const std::string& path, const std::function<void()>& alive);

  /// What has been made and not yet kept goes to the folder. So does, without a call, what was made of a file
  /// when another one comes.
  void flush();

 private:
  bool open(const std::string& path);
  [[nodiscard]] std::string draw(const std::string& path, double seconds) const;

  Parts parts_;
  std::optional<SketchFile> inHand_;
  bool isNew_ = false;  // something in it has not been kept
};

}  // namespace kvo
