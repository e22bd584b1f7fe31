// What the painters of the timeline draw with.
#pragma once

#include "editor/timeline/timeline_sight.h"
#include "ui/tokens.h"

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;
class QString;

namespace kvo::ink {

inline QRectF rect(const TimelineBox& box) { return {box.x, box.y, box.width, box.height}; }

/// A token, so far opaque.
QColor colour(Rgb rgb, double opacity = 1);
/// `part` of one over another.
QColor mixed(Rgb over, Rgb under, double part);

/// The text face at whole pixels.
QFont text(int pixels, int weight = QFont::Medium);

/// A line of text within `box`, elided at the right; nothing in a box that is too narrow for any.
void line(QPainter& painter, const QRectF& box, const QString& text,
          Qt::Alignment side = Qt::AlignLeft | Qt::AlignVCenter);

/// An icon with its middle at a place, `side` pixels wide and high.
void icon(QPainter& painter, const QString& name, Rgb rgb, const QPointF& middle, int side);

}  // namespace kvo::ink
