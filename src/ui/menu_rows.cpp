#include "ui/menu_rows.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QStyleOptionMenuItem>

namespace kvo {
namespace {

constexpr int kRowHeight = 26;
constexpr int kSeparatorHeight = 9;
constexpr int kMarkMiddle = 15;  // from the row's left
constexpr int kTextFrom = 31;
constexpr int kRightRoom = 9;
constexpr int kShortcutGap = 24;
constexpr int kArrow = 14;
constexpr int kBarWidth = 3;
constexpr double kPanelRadius = 9;

// A tick, or a dot where one of several is chosen.
void drawRowMark(QPainter& painter, const QStyleOptionMenuItem& row, const QColor& colour) {
  const QPointF middle(row.rect.left() + themed(kMarkMiddle), row.rect.top() + row.rect.height() / 2.0);
  if (row.checkType == QStyleOptionMenuItem::Exclusive) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    return painter.drawEllipse(middle, themed(4), themed(4));
  }
  painter.setPen(QPen(colour, themed(2), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  const double s = themeSize();
  painter.drawPolyline(QPolygonF{middle + QPointF(-4.1, 0.3) * s, middle + QPointF(-1.1, 3.3) * s,
                                 middle + QPointF(4.3, -2.9) * s});
}

void drawChosenGround(QPainter& painter, const QRect& row) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(token("tealBg")));
  painter.drawRoundedRect(row, themed(5), themed(5));
  painter.setBrush(toColour(token("teal")));
  painter.drawRoundedRect(
      QRectF(row.left(), row.top() + themed(5), themed(kBarWidth), row.height() - themed(10)), 1.5, 1.5);
}

}  // namespace

QSize menuRowSize(const QStyleOptionMenuItem& row, const QSize& text) {
  if (row.menuItemType == QStyleOptionMenuItem::Separator) return {text.width(), themed(kSeparatorHeight)};
  return {themed(kTextFrom) + text.width() + themed(kShortcutGap) + themed(kRightRoom) + themed(kArrow),
          themed(kRowHeight)};
}

void drawMenuRow(QPainter& painter, const QStyleOptionMenuItem& row) {
  const Painting kept(painter);
  if (row.menuItemType == QStyleOptionMenuItem::Separator) {
    return painter.fillRect(row.rect.left() + themed(6), row.rect.center().y(), row.rect.width() - themed(12),
                            themed(1), toColour(token("line1")));
  }
  const bool enabled = row.state.testFlag(QStyle::State_Enabled);
  if (enabled && row.state.testFlag(QStyle::State_Selected)) drawChosenGround(painter, row.rect);
  if (row.checked) drawRowMark(painter, row, toColour(enabled ? token("teal") : token("textOff")));
  const auto parts = row.text.split('\t');
  painter.setFont(row.font);
  painter.setPen(toColour(enabled ? token("text1") : token("textOff")));
  painter.drawText(row.rect.adjusted(themed(kTextFrom), 0, 0, 0),
                   Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic | Qt::TextSingleLine, parts[0]);
  const bool isHead = row.menuItemType == QStyleOptionMenuItem::SubMenu;
  if (isHead) {
    const auto ink = enabled ? token("text3") : token("textOff");
    painter.drawPixmap(row.rect.right() - themed(6 + kArrow), row.rect.center().y() - themed(kArrow) / 2 + 1,
                       iconPicture("chevr", ink, themed(kArrow), painter.device()->devicePixelRatio()));
  } else if (parts.size() > 1) {
    painter.setPen(toColour(enabled ? token("text3") : token("textOff")));
    painter.drawText(row.rect.adjusted(0, 0, -themed(kRightRoom), 0),
                     Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine, parts[1]);
  }
}

void drawMenuPanel(QPainter& painter, const QRect& panel) {
  const Painting kept(painter);
  painter.setPen(toColour(token("line2")));
  painter.setBrush(toColour(token("menu")));
  painter.drawRoundedRect(onPixels(panel), themed(kPanelRadius), themed(kPanelRadius));
}

}  // namespace kvo
