// How a timeline becomes a file: which frames and samples, in which segments, by how many threads and
// encoders. Plain data, decided ahead of any file.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "engine/run/segments.h"
#include "media/hardware.h"
#include "media/movie_writer.h"
#include "vocabulary/encode_profiles.h"
#include "vocabulary/movie_presets.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kvo::engine {

/// A part of the timeline, in seconds.
struct Slice {
  double from = 0;
  double to = 0;
};

/// Each process of several that make a movie together sees to the segments `number`, `number + of`, ...
struct SegmentShare {
  std::size_t number = 0;
  std::size_t of = 1;
};

/// Where finished segments are kept until the movie stands.
struct Work {
  std::string folder;
  std::string identity;                 ///< what a segment depends on beside the plan and the sources
  std::optional<SegmentShare> share{};  ///< only these segments are made, and no movie
};

struct RenderJob {
  std::string output;                      ///< its extension says the kind
  std::optional<Slice> slice{};            ///< without it the whole timeline
  std::optional<VideoCodec> codec{};       ///< one that the kind takes; its own without one
  std::optional<EncodeProfile> profile{};  ///< of a WMV or WMA; the engine's own quality without one
  std::optional<Work> work{};              ///< of a movie with pictures
  const MoviePreset* preset = nullptr;     ///< of the kind that it says
  int quality = 0;       ///< on the codec's own scale; 0 for that of the preset, or the usual
  std::string effort{};  ///< one of effortWords(); empty as above
  double megabytes =
      0;  ///< of 1,000,000 bytes, that an MP4 is not to exceed; 0 for that of the preset, or none
  std::string scratch{};  ///< folder for the notes between two passes, where there are any
  /// Encodes H.264 in place of the software, but for a movie that keeps within a size and for a share, which
  /// may be in company of other machines; null for none. It outlives the render.
  media::Hardware* hardware = nullptr;
  bool needsHardware = false;  ///< where that fails so does the render; else it begins anew in software
};

/// What the movie is not to exceed, of 1,000,000 bytes; 0 for no limit.
double mostMegabytes(const RenderJob& job);

/// Who makes the pictures.
struct Crew {
  int workers = 1;         ///< threads that each make a segment at a time
  int decoderThreads = 1;  ///< of each decoder
};

/// A render goes step by step: a frame of a movie, or a tenth of a second of a sound file.
struct RenderPlan {
  media::MovieFormat format;
  FrameRate steps{};
  std::int64_t first = 0;  ///< steps: frames of the timeline, or counted from the start of a sound file
  std::int64_t stop = 0;
  std::int64_t firstSample = 0;  ///< of the timeline
  std::int64_t stopSample = 0;

  std::vector<Segment> segments{};  ///< of a movie; all its frames
  Crew crew{};
  bool encodesInSegments = false;  ///< each segment by an encoder of its own; else one behind them all
  std::uint64_t mostBytes = 0;     ///< of the file, which takes two passes to meet; 0 for no limit

  [[nodiscard]] double seconds() const;
  /// The timeline's sample that a step begins with.
  [[nodiscard]] std::int64_t sampleOf(std::int64_t step) const;
};

/// The timeline in the frames that the movie is to have: those of the profile or the preset, where it tells a
/// rate or a limit of it.
Timeline inRateOf(const Timeline& timeline, const RenderJob& job);

/// Plans for a machine of so many cores; `timeline` is in the movie's frames. The segments do not depend on
/// it, and so neither do the bytes of the movie. Fails with a line for an output of another kind, one for
/// which there is no picture or sound, and a slice outside of the timeline.
Result<RenderPlan> planRender(const Timeline& timeline, const RenderJob& job, int cores);

/// The plan in a few lines, to be read.
std::string toText(const RenderPlan& plan);

}  // namespace kvo::engine
