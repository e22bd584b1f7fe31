// What gestures write into records: the same that the lists' own controls write.
#pragma once

#include "core/records/movie.h"
#include "editor/timeline/timeline_gestures.h"

namespace kvo {

/// The place in seconds and in pictures; a mark at the file's end is the end that the record has. Of a still
/// it is how long it lasts.
void writeMark(Movie& clip, const MarkGesture& mark);

/// How long the transition lasts: the one that the clip has, else kFirstTransition; 0 makes it a cut.
void writeTransIn(Movie& clip, const TransInGesture& transition);

/// How long the sound comes or goes, which is thereby heard.
void writeFade(Movie& clip, const FadeGesture& fade);

}  // namespace kvo
