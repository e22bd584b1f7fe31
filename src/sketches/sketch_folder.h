// The folder that sketches are kept in, a file for each media file. What is in it may go at any time: it is
// made again. Several processes may use one folder.
#pragma once

#include "ports/files.h"
#include "sketches/sketch_file.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace kvo {

class SketchFolder {
 public:
  static constexpr std::uint64_t kMostBytes = 256ULL << 20U;  ///< of all sketches together
  static constexpr int kSweepEvery = 32;  ///< writes; between two sweeps there may be more

  /// An empty `path` keeps nothing. `files` outlives the object.
  SketchFolder(Files& files, std::string path, std::uint64_t mostBytes = kMostBytes)
      : files_(files), path_(std::move(path)), mostBytes_(mostBytes) {}

  /// What is kept of a media file in its present state: nothing of it yet where there is no sketch, or one
  /// that is damaged or of an earlier state. None where the media file is not there.
  [[nodiscard]] std::optional<SketchFile> find(const std::string& media) const;

  /// Adds what is in `more` to what is kept of that media file in that state, in one step: at each moment the
  /// folder has the old sketch or the new one, whole. Where all grow too large the oldest go.
  Outcome keep(const SketchFile& more);

  /// The sketch of a media file.
  [[nodiscard]] std::string fileOf(const std::string& media) const;

 private:
  [[nodiscard]] std::optional<SketchFile> kept(const SketchFile::Key& key) const;
  void sweep();

  Files& files_;
  std::string path_;
  std::uint64_t mostBytes_;
  int writes_ = 0;
};

/// Where they are kept: kvo5/sketches in `$XDG_CACHE_HOME`, by default `~/.cache`; empty without a home.
/// `environment` gives a variable's text, empty when unset.
std::string sketchesFolder(const std::function<std::string(const char*)>& environment);

}  // namespace kvo
