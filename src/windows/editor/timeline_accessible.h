// What a screen reader is told of the timeline: a list whose items are the clips and the music of the movie.
#pragma once

namespace kvo {

class TimelineView;

/// Makes timelines known to assistive programs. More than once does nothing more.
void installTimelineAccessibility();

/// Tells them that another clip is in hand, or that the keyboard has come to it.
void tellClipInHand(TimelineView& view);

}  // namespace kvo
