#include "windows/editor/timeline_blocks_painter.h"

#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/timeline_ink.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kBlockRadius = 4.5;
constexpr double kWaveStep = 2.4;  // pixels from bar to bar
constexpr double kWaveWidth = 1.3;
constexpr double kUsualShape = 16.0 / 9;
constexpr double kLeastSource = 0.25;  // seconds between two pictures of a file
constexpr double kDiscFrom = 20;       // pixels of a wedge
constexpr double kGripWidth = 8;
constexpr double kNarrow = 3;  // pixels: less of a clip is a bar
constexpr Rgb kOnAmber = token("onTeal");
constexpr std::array<const char*, kTimelineBadges> kBadgeIcons = {"fx", "key", "color", "overlay"};
constexpr std::size_t kCountedBadges = 2;  // the others are there or not

}  // namespace

TimelineBlocksPainter::TimelineBlocksPainter(const TimelineState& state, TimelineSketches& sketches,
                                             QPainter& painter)
    : state_(state),
      sketches_(sketches),
      painter_(painter),
      bands_(bandsOf(state.sight, state.blocks.lanes)),
      left_(kLaneHeads + 2),
      right_(state.sight.width) {}

void TimelineBlocksPainter::drawClips() {
  const auto inSight = clipsInSight(state_.blocks, state_.sight);
  for (const auto& seen : inSight) drawClip(seen);
  for (const auto& seen : inSight) {
    if (seen.wedge.width >= kNarrow) drawWedge(seen);
  }
}

void TimelineBlocksPainter::drawClip(const SeenBlock& seen) {
  const auto box = ink::rect(seen.box);
  if (box.width() < kNarrow)
    return painter_.fillRect(box, ink::mixed(token("teal"), token("ink3"), isInHand(seen) ? 0.8 : 0.25));
  const Painting kept(painter_);
  painter_.setClipRect(box.intersected(QRectF(left_, box.top(), right_ - left_, box.height())),
                       Qt::IntersectClip);
  painter_.fillRect(box, ink::colour(isInHand(seen) ? token("tealBg") : token("ink2")));
  drawPictures(seen, {box.left(), bands_.pictures.y, box.width(), bands_.pictures.height});
  if (bands_.sound.height > 0)
    drawSound(seen, {box.left(), bands_.sound.y, box.width(), bands_.sound.height});
  drawTitle(seen);
  painter_.setPen(ink::colour(token("glass")));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRoundedRect(onPixels(box), kBlockRadius, kBlockRadius);
}

void TimelineBlocksPainter::drawTitle(const SeenBlock& seen) {
  const auto& box = seen.box;
  const bool inHand = isInHand(seen);
  painter_.fillRect(QRectF(box.x, box.y, box.width, kTitleHeight),
                    inHand ? ink::mixed(token("tealLo"), token("tealBg"), 0.75) : ink::colour(token("ink4")));
  double right = seen.openTo - 4;
  for (const auto& badge : seen.badges) {
    if (badge.width > 0) right = badge.x - 4;
  }
  // What begins out of sight is named where it comes in.
  const double left = std::max(box.x + seen.wedge.width, left_) + 7;
  painter_.setFont(ink::text(11, inHand ? QFont::DemiBold : QFont::Medium));
  painter_.setPen(ink::colour(inHand ? token("text1") : token("text2")));
  ink::line(painter_, {left, box.y, right - left, kTitleHeight},
            QString::number(seen.block->clip) + "  " + shown(seen.block->name));
  for (std::size_t i = 0; i < kTimelineBadges; ++i)
    drawBadge(seen.badges[i], kBadgeIcons[i], seen.block->badges[i], i < kCountedBadges);
}

void TimelineBlocksPainter::drawBadge(const TimelineBox& box, const char* name, int count, bool isCounted) {
  if (box.width <= 0) return;
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ink::colour(token("amber")));
  painter_.drawRoundedRect(ink::rect(box), 3, 3);
  ink::icon(painter_, name, kOnAmber, {box.x + (isCounted ? 6.5 : box.width / 2), box.y + box.height / 2},
            isCounted ? 10 : 11);
  if (!isCounted) return;
  painter_.setFont(ink::text(9, QFont::Bold));
  painter_.setPen(ink::colour(kOnAmber));
  painter_.drawText(QRectF(box.x + 11, box.y, box.width - 12, box.height), Qt::AlignCenter,
                    count > 9 ? "+" : QString::number(count));
}

// Pictures side by side, each of what the file shows where its left edge stands, on a grid that stays the
// same while the timeline is zoomed a little.
void TimelineBlocksPainter::drawPictures(const SeenBlock& seen, const QRectF& band) {
  const auto& block = *seen.block;
  if (band.height() < 8) return;
  if (block.isMissing) return drawMissing(band);
  if (!sketches_.mayHavePicture(block.file)) {
    ink::icon(painter_, block.isStill ? "still" : "film", token("text3"), band.center(), 16);
    return;
  }
  const auto first = sketches_.picture(block.file, block.markIn);
  const double width = first.isNull() ? band.height() * kUsualShape : first.deviceIndependentSize().width();
  const double apart = width / state_.sight.scale * block.speed;
  const double grid = std::max(kLeastSource, std::exp2(std::floor(std::log2(apart))));
  const auto begin = std::max(0.0, std::floor((left_ - band.left()) / width));
  for (double n = begin; band.left() + n * width < std::min(band.right(), right_); ++n) {
    const double x = std::round(band.left() + n * width);
    const double seconds = std::floor((block.markIn + n * apart) / grid) * grid;
    const bool isFirst = n == 0 || block.isStill || seconds <= block.markIn;
    const auto picture = isFirst ? first : sketches_.picture(block.file, std::min(seconds, block.markOut));
    if (!picture.isNull()) painter_.drawPixmap(QPointF(x, band.top()), picture);
    if (n > 0) painter_.fillRect(QRectF(x, band.top(), 1, band.height()), ink::colour(token("void"), 0.6));
  }
}

// In the place of pictures that there are none of any more.
void TimelineBlocksPainter::drawMissing(const QRectF& band) {
  painter_.fillRect(band, ink::colour(token("redLo"), 0.55));
  painter_.setPen(QPen(ink::colour(token("red")), 1, Qt::DashLine));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(onPixels(band));
  const double left = std::max(band.left(), left_);
  const double right = std::min(band.right(), right_);
  const int side = band.height() < 24 ? 12 : 16;
  if (right - left > side)
    ink::icon(painter_, "warn", token("red"), {(left + right) / 2, band.center().y()}, side);
}

void TimelineBlocksPainter::drawSound(const SeenBlock& seen, const QRectF& band) {
  const auto& block = *seen.block;
  if (!block.isHeard) {
    painter_.fillRect(band, ink::colour(token("ink1")));
    painter_.setFont(ink::text(10));
    painter_.setPen(ink::colour(token("text3")));
    const auto words = QCoreApplication::translate("kvo::TimelineView", "no sound");
    const double left = std::max(band.left(), left_);
    const QRectF seenBand(left, band.top(), std::min(seen.openTo, right_) - left, band.height());
    if (QFontMetricsF(painter_.font()).horizontalAdvance(words) < seenBand.width())
      ink::line(painter_, seenBand, words, Qt::AlignCenter);
    return;
  }
  const auto rgb = isInHand(seen) ? token("teal") : token("green");
  painter_.fillRect(band, ink::mixed(rgb, token("ink0"), 0.14));
  drawWave(block, band, rgb);
  if (block.fadeIn > 0 || block.fadeOut > 0 || isInHand(seen))
    drawFades(seen, asDragged(block), band.bottom());
}

void TimelineBlocksPainter::drawWave(const TimelineBlock& block, const QRectF& band, Rgb rgb) {
  const double perBar = kWaveStep / state_.sight.scale * block.speed;  // seconds of the file
  const auto [peaks, rate] = sketches_.peaks(block.file, 1 / perBar);
  if (peaks == nullptr || peaks->empty()) return;
  const double half = band.height() / 2 - 2;
  const double middle = band.center().y();
  const double from = std::max(band.left(), left_);
  const double to = std::min(band.right(), right_);
  QVector<QRectF> bars;
  for (double n = std::floor((from - band.left()) / kWaveStep); band.left() + n * kWaveStep < to; ++n) {
    const double seconds = block.markIn + n * perBar;
    const auto first = static_cast<std::size_t>(std::max(0.0, seconds * rate));
    const auto last = static_cast<std::size_t>(std::max(0.0, (seconds + perBar) * rate));
    if (first >= peaks->size()) break;
    std::uint8_t loudest = 0;
    for (auto i = first; i <= last && i < peaks->size(); ++i) loudest = std::max(loudest, (*peaks)[i]);
    // By the root, as what is a tenth as loud is by far not a tenth to the ear.
    const double height = std::max(0.6, std::sqrt(loudest / 255.0) * half);
    bars.append(QRectF(band.left() + n * kWaveStep + 0.6, middle - height, kWaveWidth, 2 * height));
  }
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ink::colour(rgb, 0.85));
  painter_.drawRects(bars);
}

// What is dragged has already the fade that it would get.
TimelineBlock TimelineBlocksPainter::asDragged(const TimelineBlock& block) const {
  auto out = block;
  const auto* fade = std::get_if<FadeGesture>(&state_.reading.gesture);
  if (fade != nullptr && fade->clip == block.clip)
    (fade->edge == ClipEdge::In ? out.fadeIn : out.fadeOut) = fade->tenths / 10.0;
  return out;
}

void TimelineBlocksPainter::drawFades(const SeenBlock& seen, const TimelineBlock& block, double foot) {
  const auto& box = seen.box;
  const double full = seen.fullLevel;
  const double in = state_.sight.xOf(block.start + block.fadeIn);
  const double out = state_.sight.xOf(block.stop - block.fadeOut);
  painter_.setPen(QPen(ink::colour(token("text1"), 0.75), 1.2));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawPolyline(QPolygonF({{box.x, block.fadeIn > 0 ? foot : full},
                                   {in, full},
                                   {out, full},
                                   {box.right(), block.fadeOut > 0 ? foot : full}}));
  if (!isInHand(seen)) return;
  auto held = seen;
  held.block = &block;
  for (const auto edge : {ClipEdge::In, ClipEdge::Out}) {
    const auto handle = fadeHandle(held, state_.sight, edge);
    painter_.setPen(ink::colour(token("glass")));
    painter_.setBrush(ink::colour(token("text1")));
    painter_.drawEllipse(QPointF(handle.x, handle.y), 3.5, 3.5);
  }
}

// While the end of a transition is dragged its wedge goes with it.
void TimelineBlocksPainter::drawWedge(const SeenBlock& seen) {
  auto box = ink::rect(seen.wedge);
  const auto* made = std::get_if<TransInGesture>(&state_.reading.gesture);
  if (made != nullptr && made->clip == seen.block->clip && state_.reading.line) {
    const double line = state_.sight.xOf(*state_.reading.line);
    if (line > box.left()) box.setRight(line);
  }
  const Painting kept(painter_);
  painter_.setClipRect(QRectF(left_, box.top(), right_ - left_, box.height()), Qt::IntersectClip);
  painter_.fillRect(box, ink::colour(token("glass"), 0.35));
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ink::colour(token("teal"), 0.34));
  painter_.drawPolygon(QPolygonF({box.bottomLeft(), box.topRight(), box.bottomRight()}));
  painter_.setPen(QPen(ink::colour(token("tealHi")), 1.6));
  painter_.drawLine(box.bottomLeft(), box.topRight());
  painter_.setPen(ink::colour(token("tealHi"), 0.55));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(onPixels(box));
  if (box.width() < kDiscFrom) return;
  painter_.setPen(ink::colour(token("tealHi")));
  painter_.setBrush(ink::colour(token("onTeal")));
  const QPointF middle(box.center().x(), bands_.pictures.y + bands_.pictures.height / 2);
  painter_.drawEllipse(middle, 9, 9);
  ink::icon(painter_, "trans", token("tealHi"), middle, 11);
  painter_.setFont(ink::text(10));
  painter_.setPen(ink::colour(token("text1")));
  const auto name = shown(seen.block->transition);
  if (QFontMetricsF(painter_.font()).horizontalAdvance(name) < box.width() - 10)
    ink::line(painter_, {box.left() + 4, middle.y() + 10, box.width() - 8, 16}, name, Qt::AlignCenter);
}

void TimelineBlocksPainter::drawMusic() {
  for (const auto& seen : musicInSight(state_.blocks, state_.sight)) drawSong(seen);
}

void TimelineBlocksPainter::drawSong(const SeenBlock& seen) {
  const auto box = ink::rect(seen.box);
  const auto& block = *seen.block;
  const Painting kept(painter_);
  const double left = std::max(box.left(), left_);
  const double right = std::min(box.right(), right_);
  painter_.setClipRect(QRectF(left_, box.top() - 2, right_ - left_, box.height() + 4), Qt::IntersectClip);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ink::colour(token("violetLo")));
  painter_.drawRoundedRect(box, kBlockRadius, kBlockRadius);
  if (block.isMissing) {
    drawMissing(box.adjusted(2, 13, -2, -2));
  } else {
    drawWave(block, box.adjusted(0, 10, 0, 0), token("violet"));
  }
  drawFades(seen, asDragged(block), box.bottom() - 1);
  painter_.setFont(ink::text(10));
  painter_.setPen(ink::colour(token("text1"), 0.9));
  const auto trimmed = QCoreApplication::translate("kvo::TimelineView", "Auto Trim");
  const double note =
      block.isTrimmed && right - left > 160 ? QFontMetricsF(painter_.font()).horizontalAdvance(trimmed) : 0;
  ink::line(painter_, {left + 8, box.top() + 1, right - left - 24 - note, 12},
            QString::number(block.clip) + "  " + shown(block.name));
  painter_.setPen(ink::colour(token("violet")));
  if (note > 0) ink::line(painter_, {right - 8 - note, box.top() + 1, note + 1, 12}, trimmed);
  painter_.setPen(ink::colour(token("violet"), 0.5));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRoundedRect(onPixels(box), kBlockRadius, kBlockRadius);
}

void TimelineBlocksPainter::drawInHand(bool hasFocus) {
  const auto draw = [&](const SeenBlock& seen, const QRectF& band) {
    const auto box = ink::rect(seen.box);
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(ink::colour(token("teal")), 2));
    painter_.drawRoundedRect(box, 5, 5);
    if (hasFocus) {
      painter_.setPen(QPen(ink::colour(token("focus")), 2));
      painter_.drawRoundedRect(box.adjusted(-3, -3, 3, 3), 7, 7);
    }
    if (box.width() < 3 * kGripWidth) return;
    drawGrip(box.left(), band, state_.edge == ClipEdge::In);
    drawGrip(box.right() - kGripWidth, band, state_.edge == ClipEdge::Out);
  };
  const Painting kept(painter_);
  painter_.setClipRect(QRectF(left_, 0, right_ - left_, state_.sight.height), Qt::IntersectClip);
  for (const auto& seen : clipsInSight(state_.blocks, state_.sight)) {
    if (isInHand(seen)) draw(seen, {0, bands_.pictures.y, 0, bands_.pictures.height});
  }
  for (const auto& seen : musicInSight(state_.blocks, state_.sight)) {
    if (isInHand(seen)) draw(seen, {0, seen.box.y + 15, 0, seen.box.height - 15});
  }
}

void TimelineBlocksPainter::drawGrip(double x, const QRectF& band, bool isChosen) {
  painter_.setPen(ink::colour(isChosen ? token("onTeal") : token("glass")));
  painter_.setBrush(ink::colour(isChosen ? token("amber") : token("text1")));
  painter_.drawRoundedRect(QRectF(x, band.top(), kGripWidth, band.height()).adjusted(0.5, 0.5, -0.5, -0.5), 3,
                           3);
  const double middle = band.center().y();
  const double half = std::min(8.0, band.height() / 4);
  for (const double line : {2.4, 4.6}) {
    painter_.fillRect(QRectF(x + line, middle - half, 1, 2 * half), ink::colour(token("line3")));
  }
}

void TimelineBlocksPainter::drawCarried(const TimelineBlock& block, const TimelinePoint& at, bool isMusic) {
  const Painting kept(painter_);
  painter_.setOpacity(0.92);
  const double picture = isMusic ? 0 : std::min(68.0, bands_.pictures.height);
  const QRectF box(at.x - 60, at.y - (picture + kTitleHeight) / 2, 121, picture + kTitleHeight);
  painter_.fillRect(box, ink::colour(token("tealBg")));
  if (!isMusic) {
    const auto first = sketches_.picture(block.file, block.markIn);
    painter_.setClipRect(box.adjusted(0, kTitleHeight, 0, 0));
    if (!first.isNull()) painter_.drawPixmap(box.topLeft() + QPointF(0, kTitleHeight), first);
    painter_.setClipping(false);
  }
  painter_.fillRect(QRectF(box.topLeft(), QSizeF(box.width(), kTitleHeight)),
                    ink::mixed(token("tealLo"), token("tealBg"), 0.75));
  painter_.setFont(ink::text(11, QFont::DemiBold));
  painter_.setPen(ink::colour(token("text1")));
  ink::line(painter_, {box.left() + 7, box.top(), box.width() - 14, kTitleHeight},
            QString::number(block.clip) + "  " + shown(block.name));
  painter_.setPen(QPen(ink::colour(token("teal")), 2));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRoundedRect(box, 5, 5);
}

}  // namespace kvo
