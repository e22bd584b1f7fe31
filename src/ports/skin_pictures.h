// The port to the pictures of the main window: the one that is its face, and the mask of its outline.
#pragma once

#include "base/result.h"

#include <optional>
#include <string>

namespace kvo {

class SkinPictures {
 public:
  SkinPictures() = default;
  SkinPictures(const SkinPictures&) = delete;
  SkinPictures& operator=(const SkinPictures&) = delete;
  virtual ~SkinPictures() = default;

  /// The file of that name, which may differ from it in the case of letters, or by "\" for "/". Nothing where
  /// there is none.
  [[nodiscard]] virtual std::optional<std::string> find(const std::string& path) const = 0;

  /// Reads the picture and holds it, stretched to the window, for the next painting. Fails with a line for
  /// the log that names the file: what is no picture, gone, or would take more than 256 MB; what was held
  /// stays.
  virtual Outcome load(const std::string& path) = 0;

  /// Reads the picture that gives the window its outline by what in it is not black. Fails as `load` does,
  /// and where all is black; the window is a rectangle then.
  virtual Outcome loadMask(const std::string& path) = 0;
};

}  // namespace kvo
