// Renders a timeline into a movie or sound file.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "engine/run/render_plan.h"
#include "media/damage.h"
#include "ports/files.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace kvo::engine {

struct RenderReport {
  std::int64_t frames = 0;              ///< 0 for a sound file
  double seconds = 0;                   ///< length of what was rendered
  std::uint64_t bytes = 0;              ///< size of the file
  std::vector<media::Damage> damage{};  ///< what could not be decoded of the clips
  std::vector<std::string> notes{};     ///< a line each: where the movie is not as the profile asks
};

struct RenderStep {
  double done = 0;  ///< seconds of the movie whose pictures are made, in whatever order
  double total = 0;
  std::uint64_t bytes = 0;  ///< of the file so far
  double written = 0;       ///< seconds of the movie that these hold
  double kept = 0;          ///< seconds of `done` that stood in the work folder already
};

/// Hears after each frame how far it is.
using RenderWatch = std::function<void(const RenderStep& step)>;

/// Writes `job.output` in one durable step. Fails with one line that names the file or the clip at fault, and
/// then nothing has changed under the output's name: a source that is missing or cannot be read, an output
/// that is one of the sources, a slice outside of the timeline, a disk that is full.
Result<RenderReport> render(const Timeline& timeline, const RenderJob& job, Files& files,
                            const RenderWatch& watch);

}  // namespace kvo::engine
