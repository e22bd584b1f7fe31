// Draws the timeline: ruler, lanes, blocks, and what the hand does there.
#pragma once

#include "editor/timeline/timeline_hand.h"
#include "windows/editor/timeline_sketches.h"

class QPainter;
class QString;

namespace kvo {

class TimelinePainter {
 public:
  /// All outlive it. `painter` is in pixels of the sight.
  TimelinePainter(const TimelineState& state, TimelineSketches& sketches, QPainter& painter);

  void draw(bool hasFocus);

 private:
  void drawEmpty();
  void drawLanes();
  void drawRuler();
  void drawRange();
  void drawLaneHint(const TimelineBox& band, const QString& text);
  void drawHead(const TimelineBox& band, const char* icon, const QString& name);
  void drawOverrun();
  void drawDrag();
  void drawMoving(const TimelineBlock& block);
  void drawMark(const TimelineBlock& block);
  void drawOverlap(const TimelineBlock& block);
  void drawPlayhead();
  void drawDropPlace(double seconds);
  void drawSaying();

  const TimelineState& state_;
  TimelineSketches& sketches_;
  QPainter& painter_;
  TimelineBands bands_;
};

}  // namespace kvo
