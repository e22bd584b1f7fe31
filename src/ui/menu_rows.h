// Menus: their panel, and rows 26 pixels high with a mark at the left and the shortcut at the right.
#pragma once

#include <QRect>
#include <QSize>

class QPainter;
class QStyleOptionMenuItem;

namespace kvo {

/// The size of a row whose text takes `text`, without its shortcut.
QSize menuRowSize(const QStyleOptionMenuItem& row, const QSize& text);

void drawMenuRow(QPainter& painter, const QStyleOptionMenuItem& row);

/// What the rows stand on; its corners are round.
void drawMenuPanel(QPainter& painter, const QRect& panel);

}  // namespace kvo
