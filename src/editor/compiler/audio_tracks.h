// The audio group: the clips' own sound under their pictures, and the music of the collection.
#pragma once

#include "editor/compiler/compile_options.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/timeline_clips.h"

#include <optional>
#include <string>
#include <string_view>

namespace kvo {

inline constexpr std::string_view kAudioRate = "44100";  ///< samples a second of every movie

/// The opening tag of the audio group, with its line end.
std::string audioGroupTag(std::string_view rate);

/// A track for each clip with a picture whose sound is wanted, behind a line end. The clips have been placed:
/// the sound lies where the picture lies.
std::string clipAudioTracks(const CompileOptions& options, TimelineClips& clips);

/// Where the video ends, in seconds, for music that is trimmed to it.
struct VideoEnd {
  double stop = 0;         ///< of the last clip
  double largestStop = 0;  ///< of them all
};

struct OverlayTracks {
  std::string tracks;           ///< behind a line end
  double stop = 0;              ///< seconds: where the last one stops, or with the video
  bool stopsWithVideo = false;  ///< trimmed music, however short, counts to the video's stop
};

/// A track for each clip of music that is to be heard; places them. They are trimmed to `video`.
OverlayTracks overlayTracks(const CompileOptions& options, TimelineClips& clips,
                            const std::optional<VideoEnd>& video);

/// The number of clips that count as audio by their Resolution text.
int GetNumAudioTracks(const TimelineClips& clips);

}  // namespace kvo
