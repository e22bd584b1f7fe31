// The <transition> element behind a clip, and the end of the clip's track.
#pragma once

#include "editor/compiler/compile_options.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/timeline_clips.h"

#include <string>

namespace kvo {

struct TransitionOptions {
  double Start = 0;           ///< timeline seconds
  Stamp Stop{};               ///< timeline seconds
  std::string Name{};         ///< friendly name
  double Duration = 0;        ///< seconds, TransIn / 10
  int BorderWidth = 0;        ///< held to 0 to 255
  std::string BorderColor{};  ///< as the record has it
  Single BorderSoftness = 0;  ///< held to 0 to 255
  int ReplicateX = 1;         ///< held to 1 to 255
  int ReplicateY = 1;         ///< held to 1 to 255
  std::string MaskName{};     ///< a picture as the mask; empty for none
  ParticleOptions Particles{};
};

/// What the clip's record says of the transition into it, between the two timeline times.
TransitionOptions recordedTransition(const TimelineClip& clip, const CompileOptions& options, double start,
                                     Stamp stop);

/// The element and `</track>`; only `</track>` where the options leave transitions out. Brings the clip's
/// TransIn within its limits.
std::string AddTransition(const CompileOptions& options, TimelineClips& clips, int clipNo,
                          TransitionOptions transition);

}  // namespace kvo
