// The finished segments of a render, kept in a folder until the movie stands: a render that was cut off goes
// on from there, and several processes make a movie together.
#pragma once

#include "base/result.h"
#include "engine/run/render_plan.h"
#include "media/segment_file.h"
#include "ports/files.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kvo::engine {

/// The names of the segments' files, in order. They change with everything that the bytes of a segment depend
/// on: plan, `job.work->identity`, encoders, and size and time of each source. Empty for a sound file.
std::vector<std::string> segmentFiles(const Timeline& timeline, const RenderPlan& plan, const RenderJob& job,
                                      const Files& files);

class WorkFolder {
 public:
  /// Makes the folder where it is missing. What is in there of another render is removed, but by a share,
  /// which may be in company. `files` outlives it.
  static Result<WorkFolder> open(const Timeline& timeline, const RenderPlan& plan, const RenderJob& job,
                                 Files& files);

  /// Whether this process is to see to a segment.
  [[nodiscard]] bool wants(std::size_t number) const;

  /// A finished segment; fails where there is none.
  [[nodiscard]] Result<media::SegmentReader> read(std::size_t number) const;

  /// The file of a segment, of which nothing is seen until it is committed.
  [[nodiscard]] Result<std::unique_ptr<Replacement>> begin(std::size_t number) const;
  /// What its writer and reader know it by.
  [[nodiscard]] std::uint64_t key() const { return key_; }

  /// The name for what this process begins and never finishes.
  [[nodiscard]] std::string draft() const;

  /// Removes all that renders have left there, and the folder where it holds nothing else.
  void sweep() const;

 private:
  WorkFolder(Files& files, const Work& work, std::vector<std::string> names);
  void removeThose(const std::function<bool(const std::string& name)>& which) const;
  void sweepOthers() const;

  Files* files_;
  std::string folder_;
  std::optional<SegmentShare> share_;
  std::vector<std::string> names_;
  std::uint64_t key_;
};

}  // namespace kvo::engine
