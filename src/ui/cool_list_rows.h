// How one row of the list control looks.
#pragma once

#include "ui/cool_list.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QRect>
#include <QString>

namespace kvo {

/// What a row is drawn from. Rectangles in pixels of the painter.
struct CoolListRow {
  QRect row;
  QRect text;
  QString shown;
  QString trailing;  ///< at the right, in the face of numbers
  QPixmap icon;
  int iconLeft = 0;
  bool selected = false;
  Qt::TextElideMode elide = Qt::ElideRight;
};

QRect toRect(const CoolList::Rect& rect);

/// Where wrapped text stands.
Qt::Alignment sideOf(const CoolListProperties& properties);

/// A colour of the control with those of the desktop taken from `palette`.
QColor resolved(ControlColour colour, const QPalette& palette);

/// Ground, icon and text. A selected row by its style:
///   0 filled; 1 filled as others, then combined by AND; 2 and 3 a gradient, downward and to the right; 4 a
///   box with round corners; 5 underlined text; 6 `picture` stretched, or as 0 without one
void drawRow(QPainter& painter, const CoolListRow& row, const CoolListProperties& properties,
             const QPalette& palette, const QPixmap& picture);

/// True when the row does not show the whole of its text.
bool isCut(const CoolListRow& row, const CoolListProperties& properties, const QFont& font);

}  // namespace kvo
