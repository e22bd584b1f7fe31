// What a compile is asked to make, as plain data: the preferences that it follows, read in one place.
#pragma once

#include "core/records/settings.h"

#include <string>

namespace kvo {

enum class OverlayOrder {
  InSequence = 0,  ///< one track after the other
  Stacked = 1,     ///< all from the start of the movie
};

/// The picture of the movie, as the video group's tag tells it.
struct OutputForm {
  int depth = 24;  ///< bits
  int width = 0;   ///< pixels
  int height = 0;
  Single rate = 25;          ///< frames a second
  std::string buffering;     ///< frames, as text
  bool previewMode = false;  ///< the tag says that it is a preview
};

/// The particles of a transition where its own are not wanted.
struct ParticleOptions {
  bool useDefaults = true;
  Integer maxParticles = 64;
  Integer motionSpeed = 35;
  Integer spinSpeed = 10;
  Single progressDuration = 0.9F;
  Single progressScale = 0.25F;
};

struct CompileOptions {
  OutputForm output;
  Single movieRate = 25;  ///< frames a second of the movie, in which keyframes count
  bool effects = true;
  bool transitions = true;
  bool sourceFiles = false;     ///< SrcPath + SrcName where set, in place of Path + MovieName
  bool clipAudio = true;        ///< the clips' own sound goes into the movie
  bool alwaysHasAudio = false;  ///< the clips' own sound and the audio tracks, whatever clipAudio says
  bool overlays = false;        ///< the music of the collection as well; so it is anyway where there is some
  bool trimOverlays = true;     ///< to the video's end
  OverlayOrder overlayOrder = OverlayOrder::InSequence;
  Single trackFade = 10;     ///< tenths of a second
  Single stillDuration = 7;  ///< seconds of a still that has no length
  ParticleOptions particles;
  std::string silence;  ///< the file that stands for a sound that is not there
};

/// What a preview of a given power is reduced to.
struct PreviewParams {
  double Scale = 1;  ///< the output size is divided by it
  int Depth = 24;    ///< bits
  Single Rate = 25;  ///< frames a second
  bool Effects = true;
  bool Transitions = true;
};

/// Power values of 10 and above compile at full size and rate, as for a render.
inline constexpr int kRenderMode = 10;

/// A render of the whole movie as the preferences have it. `silence` is the path of a file without sound.
CompileOptions renderOptions(const KVO2& settings, std::string silence);

/// The same as a preview of `power` (1 to 10).
CompileOptions previewOptions(CompileOptions render, const PreviewParams& params, int power);

/// The picture reduced for a preview.
OutputForm reducedOutput(OutputForm output, const PreviewParams& params);

/// A height or width that was asked for; one below 0 or above 3000 is 320 or 240.
int heldHeight(int height);
int heldWidth(int width);

}  // namespace kvo
