#include "editor/timeline/timeline_writes.h"

#include "editor/compiler/timeline_clips.h"
#include "vocabulary/transitions.h"

namespace kvo {

void writeMark(Movie& clip, const MarkGesture& mark) {
  if (mark.edge == ClipEdge::In) {
    clip.LoopStart(Value(mark.seconds));
    clip.LoopStartFrames(mark.frame);
    return;
  }
  if (clip.IsStill()) {
    clip.LoopStart(Value(0));
    clip.LoopEnd(Value(mark.seconds));
    return;
  }
  const auto length = clip.DurationTime().wholeNumber();
  const bool isWhole = length && mark.seconds >= *length;
  clip.LoopEnd(isWhole ? clip.DurationTime() : Value(mark.seconds));
  const auto frame = isWhole ? toLongClamped(clip.DurationFrames().number()) : mark.frame;
  if (frame > 0) clip.LoopEndFrames(frame);
}

void writeTransIn(Movie& clip, const TransInGesture& transition) {
  if (transition.tenths == 0) {
    clip.TransType("CUT");
  } else if (isCut(clip.TransType())) {
    clip.TransType(std::string(kFirstTransition));
  }
  clip.TransIn(static_cast<Single>(transition.tenths));
}

void writeFade(Movie& clip, const FadeGesture& fade) {
  const auto seconds = static_cast<Single>(fade.tenths / 10.0);
  clip.RenderAudio(true);
  fade.edge == ClipEdge::In ? clip.AudioFadeInTime(seconds) : clip.AudioFadeOutTime(seconds);
  clip.HasAudioFade(true);
}

}  // namespace kvo
