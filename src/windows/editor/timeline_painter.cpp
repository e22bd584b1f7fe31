#include "windows/editor/timeline_painter.h"

#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/saying_plate.h"
#include "windows/editor/timeline_blocks_painter.h"
#include "windows/editor/timeline_ink.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>

namespace kvo {
namespace {

constexpr double kPastTheEnd = 0.05;  // seconds that music may go on behind the video unsaid

QString said(const char* text) { return QCoreApplication::translate("kvo::TimelineView", text); }

}  // namespace

TimelinePainter::TimelinePainter(const TimelineState& state, TimelineSketches& sketches, QPainter& painter)
    : state_(state),
      sketches_(sketches),
      painter_(painter),
      bands_(bandsOf(state.sight, state.blocks.lanes)) {}

void TimelinePainter::draw(bool hasFocus) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.fillRect(QRectF(0, 0, state_.sight.width, state_.sight.height), ink::colour(token("ink0")));
  if (state_.blocks.empty()) return drawEmpty();
  drawLanes();
  TimelineBlocksPainter blocks(state_, sketches_, painter_);
  blocks.drawClips();
  blocks.drawMusic();
  drawOverrun();
  blocks.drawInHand(hasFocus);
  drawRuler();
  drawRange();
  drawDrag();
  drawPlayhead();
  if (state_.drop) drawDropPlace(state_.drop->line);
  drawSaying();
}

void TimelinePainter::drawEmpty() {
  if (state_.isComing) return drawLanes();
  const QRectF box(kLanesLeft, 18, state_.sight.width - kLanesLeft - kLanesRight, state_.sight.height - 52);
  painter_.setPen(QPen(ink::colour(state_.drop ? token("amber") : token("line2")), 1, Qt::CustomDashLine));
  auto pen = painter_.pen();
  pen.setDashPattern({7, 6});
  painter_.setPen(pen);
  painter_.setBrush(ink::colour(token("plate")));
  painter_.drawRoundedRect(onPixels(box), 8, 8);
  painter_.setPen(ink::colour(token("text1")));
  painter_.setFont(ink::text(15, QFont::DemiBold));
  ink::line(painter_, {box.left() + 8, box.center().y() - 24, box.width() - 16, 20},
            said("Nothing to Preview"), Qt::AlignCenter);
  painter_.setPen(ink::colour(token("text2")));
  painter_.setFont(ink::text(12, QFont::Normal));
  ink::line(painter_, {box.left() + 8, box.center().y() + 2, box.width() - 16, 18},
            said("Drop clips, stills and music here, or add them in the main window"), Qt::AlignCenter);
}

void TimelinePainter::drawLanes() {
  painter_.fillRect(ink::rect(bands_.clips), ink::colour(token("plate")));
  painter_.fillRect(ink::rect(bands_.music), ink::colour(token("plate")));
  drawHead(bands_.clips, "film", said("Clips"));
  drawHead(bands_.music, "music", said("Overlay"));
  const auto& blocks = state_.blocks;
  if (blocks.clips.empty())
    drawLaneHint(bands_.clips, said("Drop clips or stills here: a movie needs a picture"));
  if (blocks.music.empty() && blocks.leftOut == 0)
    drawLaneHint(bands_.music, said("Drop music here to lay it under the clips"));
  if (blocks.leftOut == 0) return;
  const double x = std::max(state_.sight.xOf(blocks.musicEnd), kLanesLeft) + 8;
  painter_.setFont(ink::text(10));
  painter_.setPen(ink::colour(token("text3")));
  ink::line(
      painter_, {x, bands_.music.y, state_.sight.width - x - 8, bands_.music.height},
      QCoreApplication::translate("kvo::TimelineView", "%n more are not heard", nullptr, blocks.leftOut));
}

void TimelinePainter::drawLaneHint(const TimelineBox& band, const QString& text) {
  painter_.setFont(ink::text(11));
  painter_.setPen(ink::colour(token("text3")));
  ink::line(painter_, {kLanesLeft + 8, band.y, state_.sight.width - kLanesLeft - kLanesRight, band.height},
            text);
}

void TimelinePainter::drawHead(const TimelineBox& band, const char* icon, const QString& name) {
  painter_.fillRect(QRectF(0, band.y, kLaneHeads, band.height), ink::colour(token("ink1")));
  const double middle = band.y + band.height / 2;
  ink::icon(painter_, icon, token("text3"), {20, middle}, 14);
  painter_.setFont(ink::text(11));
  painter_.setPen(ink::colour(token("text3")));
  ink::line(painter_, {32, middle - 9, kLaneHeads - 32, 18}, name);
}

void TimelinePainter::drawRuler() {
  painter_.fillRect(QRectF(0, 0, state_.sight.width, kRulerHeight), ink::colour(token("ink1")));
  painter_.fillRect(QRectF(0, kRulerHeight - 0.5, state_.sight.width, 0.5), ink::colour(token("void")));
  painter_.setFont(numberFont(10));
  const Painting kept(painter_);
  painter_.setClipRect(QRectF(kLaneHeads, 0, state_.sight.width - kLaneHeads, kRulerHeight),
                       Qt::IntersectClip);
  for (const auto& tick : rulerTicks(state_.sight)) {
    const double x = std::round(tick.x);
    const bool isLarge = !tick.text.empty();
    painter_.fillRect(QRectF(x, isLarge ? 8 : 15, 1, isLarge ? 14 : 7),
                      ink::colour(isLarge ? token("tipRim") : token("line1")));
    if (!isLarge) continue;
    painter_.setPen(ink::colour(token("text3")));
    painter_.drawText(QPointF(x + 5, 13.5), shown(tick.text));
  }
}

void TimelinePainter::drawRange() {
  auto range = state_.marks.range;
  if (const auto* dragged = std::get_if<RangeGesture>(&state_.reading.gesture)) range = dragged->range;
  if (!range) return;
  const Painting kept(painter_);
  painter_.setClipRect(QRectF(kLaneHeads, 0, state_.sight.width - kLaneHeads, state_.sight.height),
                       Qt::IntersectClip);
  const double from = state_.sight.xOf(range->from);
  const double to = state_.sight.xOf(range->to);
  painter_.fillRect(QRectF(from, kRulerHeight - 4, to - from, 3), ink::colour(token("teal"), 0.8));
  for (const double x : {from, to}) {
    painter_.setPen(ink::colour(token("glass")));
    painter_.setBrush(ink::colour(token("tealHi")));
    painter_.drawRoundedRect(QRectF(x - 3, kRulerHeight - 11, 6, 11), 2, 2);
  }
}

void TimelinePainter::drawOverrun() {
  const auto& blocks = state_.blocks;
  const double over = blocks.musicEnd - blocks.videoEnd;
  if (blocks.clips.empty() || over <= kPastTheEnd) return;
  const double x = std::max(state_.sight.xOf(blocks.videoEnd), kLaneHeads + 2);
  if (x >= state_.sight.width) return;
  const double to = std::min(state_.sight.xOf(blocks.musicEnd), state_.sight.width);
  painter_.fillRect(QRectF(x, bands_.music.y, to - x, bands_.music.height),
                    ink::colour(token("redLo"), 0.72));
  painter_.fillRect(QRectF(x - 0.75, bands_.clips.y, 1.5, bands_.music.bottom() - bands_.clips.y),
                    ink::colour(token("red")));
  painter_.setFont(ink::text(11));
  painter_.setPen(ink::colour(token("dangerText")));
  ink::line(painter_, {x + 10, bands_.music.y, to - x - 14, kMusicHeight},
            said("Past the last clip by %1 s").arg(shown(FormatMask(over, "0.0"))));
}

void TimelinePainter::drawDrag() {
  if (!state_.drag) return;
  const auto* block = state_.blocks.of(state_.drag->hit.clip);
  if (block == nullptr) return;
  const auto& gesture = state_.reading.gesture;
  const Painting kept(painter_);
  painter_.setClipRect(QRectF(kLaneHeads, 0, state_.sight.width - kLaneHeads, state_.sight.height),
                       Qt::IntersectClip);
  if (std::holds_alternative<MoveGesture>(gesture)) drawMoving(*block);
  if (std::holds_alternative<MarkGesture>(gesture)) drawMark(*block);
  if (std::holds_alternative<TransInGesture>(gesture)) drawOverlap(*block);
}

void TimelinePainter::drawMoving(const TimelineBlock& block) {
  const bool isMusic = state_.drag->hit.part == TimelinePart::Music;
  const auto& lane = isMusic ? bands_.music : bands_.clips;
  const double x = state_.sight.xOf(block.start);
  painter_.fillRect(QRectF(x, lane.y, block.length() * state_.sight.scale, lane.height),
                    ink::colour(token("plate"), 0.6));
  if (state_.reading.line) drawDropPlace(*state_.reading.line);
  TimelineBlocksPainter(state_, sketches_, painter_).drawCarried(block, state_.drag->to, isMusic);
}

void TimelinePainter::drawMark(const TimelineBlock& block) {
  const bool in = state_.drag->hit.part == TimelinePart::MarkIn;
  const double edge = state_.sight.xOf(in ? block.start : block.stop);
  const double line = state_.sight.xOf(state_.reading.line.value_or(block.start));
  const bool isMusic = &block >= state_.blocks.music.data() &&
                       &block < state_.blocks.music.data() + state_.blocks.music.size();
  const auto& lane = isMusic ? bands_.music : bands_.clips;
  painter_.fillRect(
      QRectF(QPointF(std::min(edge, line), lane.y), QPointF(std::max(edge, line), lane.bottom())),
      ink::colour(token("teal"), 0.22));
  painter_.fillRect(QRectF(line - 1, lane.y - 4, 2, lane.height + 8), ink::colour(token("tealHi")));
  const double y = lane.y + lane.height * 0.62;
  painter_.setPen(QPen(ink::colour(token("focus")), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter_.setBrush(Qt::NoBrush);
  for (const double side : {-1.0, 1.0})
    painter_.drawPolyline(
        QPolygonF({{line + side * 5, y - 5}, {line + side * 11, y}, {line + side * 5, y + 5}}));
}

// A front that is pushed over the clip ahead.
void TimelinePainter::drawOverlap(const TimelineBlock& block) {
  const double line = state_.sight.xOf(state_.reading.line.value_or(block.start));
  const double front = state_.sight.xOf(block.start);
  if (line < front) {
    painter_.fillRect(QRectF(line, bands_.clips.y, front - line, bands_.pictures.bottom() - bands_.clips.y),
                      ink::colour(token("teal"), 0.34));
  }
  painter_.fillRect(QRectF(line - 1, bands_.clips.y - 4, 2, bands_.clips.height + 8),
                    ink::colour(token("tealHi")));
}

void TimelinePainter::drawPlayhead() {
  const double x = state_.sight.xOf(state_.marks.playhead);
  if (x < kLaneHeads || x > state_.sight.width) return;
  painter_.fillRect(QRectF(x - 0.75, 10, 1.5, bands_.music.bottom() - 10), ink::colour(token("amber")));
  painter_.setPen(ink::colour(token("glass")));
  painter_.setBrush(ink::colour(token("amber")));
  painter_.drawPolygon(QPolygonF({{x - 6, 3}, {x + 6, 3}, {x + 6, 11}, {x, 18}, {x - 6, 11}}));
}

void TimelinePainter::drawDropPlace(double seconds) {
  const double x = state_.sight.xOf(seconds);
  const bool isMusic = state_.drag && state_.drag->hit.part == TimelinePart::Music;
  const auto& lane = isMusic ? bands_.music : bands_.clips;
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ink::colour(token("amber")));
  painter_.drawRoundedRect(QRectF(x - 1.5, lane.y - 6, 3, lane.height + 12), 1.5, 1.5);
  painter_.drawEllipse(QPointF(x, lane.y - 6), 5, 5);
}

void TimelinePainter::drawSaying() {
  if (!state_.saying || (state_.saying->text.empty() && !state_.drag)) return;
  const auto& saying = *state_.saying;
  SayingPlate({saying.at.x, saying.at.y}, {state_.sight.width, state_.sight.height}, shown(saying.text),
              shown(saying.reason))
      .draw(painter_);
}

}  // namespace kvo
