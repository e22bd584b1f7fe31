// Draws the blocks of the timeline: clips with pictures and sound, transitions, music.
#pragma once

#include "editor/timeline/timeline_hand.h"
#include "ui/tokens.h"
#include "windows/editor/timeline_sketches.h"

class QPainter;
class QRectF;

namespace kvo {

class TimelineBlocksPainter {
 public:
  /// All outlive it.
  TimelineBlocksPainter(const TimelineState& state, TimelineSketches& sketches, QPainter& painter);

  void drawClips();
  void drawMusic();
  /// The clip in hand on what is drawn of it: its outline, grips and handles.
  void drawInHand(bool hasFocus);
  /// A clip on its way.
  void drawCarried(const TimelineBlock& block, const TimelinePoint& at, bool isMusic);

 private:
  [[nodiscard]] bool isInHand(const SeenBlock& seen) const { return seen.block->clip == state_.marks.clip; }
  [[nodiscard]] TimelineBlock asDragged(const TimelineBlock& block) const;
  void drawClip(const SeenBlock& seen);
  void drawTitle(const SeenBlock& seen);
  void drawPictures(const SeenBlock& seen, const QRectF& band);
  void drawMissing(const QRectF& band);
  void drawSound(const SeenBlock& seen, const QRectF& band);
  void drawWave(const TimelineBlock& block, const QRectF& band, Rgb rgb);
  void drawWedge(const SeenBlock& seen);
  void drawBadge(const TimelineBox& box, const char* name, int count, bool isCounted);
  void drawSong(const SeenBlock& seen);
  void drawFades(const SeenBlock& seen, const TimelineBlock& block, double foot);
  void drawGrip(double x, const QRectF& band, bool isChosen);

  const TimelineState& state_;
  TimelineSketches& sketches_;
  QPainter& painter_;
  TimelineBands bands_;
  double left_;  // pixels that are seen
  double right_;
};

}  // namespace kvo
