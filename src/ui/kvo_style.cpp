#include "ui/kvo_style.h"

#include "ui/menu_rows.h"
#include "ui/painting.h"
#include "ui/theme.h"

#include <QFocusFrame>
#include <QPainterPath>
#include <QStyleOption>
#include <QTabBar>
#include <algorithm>

namespace kvo {
namespace {

constexpr int kMark = 16;
constexpr int kSmallMark = 14;  // in a dense list
constexpr int kRoom = 4;        // about a mark or a handle, for the ring
constexpr int kLeastHit = 24;
constexpr int kHandle = 12;
constexpr int kSlot = 4;
constexpr int kMenuMarginH = 5;
constexpr int kMenuMarginV = 6;
constexpr int kRingRoom = 5;  // from a key to the outer edge of its ring
constexpr double kRingRadius = 9;
constexpr int kToolTipDelay = 600;  // milliseconds

bool isEnabled(const QStyleOption& option) { return option.state.testFlag(QStyle::State_Enabled); }
bool isOn(const QStyleOption& option) { return option.state.testFlag(QStyle::State_On); }
bool hasKeyboard(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_HasFocus) &&
         option.state.testFlag(QStyle::State_KeyboardFocusChange);
}

// A widget may say by properties that the key it is or stands for is smaller than itself, or round.
const QWidget* ringed(const QWidget* frame) {
  const auto* ring = qobject_cast<const QFocusFrame*>(frame);
  return ring == nullptr ? nullptr : ring->widget();
}

QPoint ringInset(const QWidget* frame) {
  const auto* widget = ringed(frame);
  return widget == nullptr ? QPoint() : widget->property("ringInset").toPoint();
}

bool isRound(const QWidget* frame) {
  const auto* widget = ringed(frame);
  return widget != nullptr && widget->property("ringRound").toBool();
}

// Of a key at the window's edge the ring comes closer, so that it is whole.
QRectF inWindow(const QWidget& frame, const QRectF& ring) {
  return ring & QRectF(frame.window()->rect().translated(-frame.mapTo(frame.window(), QPoint())));
}

void drawTick(QPainter& painter, const QRectF& mark, const QColor& colour) {
  painter.setPen(QPen(colour, themed(2), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  const auto at = [&](double x, double y) {
    return mark.topLeft() + QPointF(x * mark.width(), y * mark.height()) / kMark;
  };
  painter.drawPolyline(QPolygonF{at(3.9, 8.3), at(6.9, 11.3), at(12.3, 5.1)});
}

void drawDot(QPainter& painter, const QPointF& centre, const QColor& colour) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(centre, themed(4), themed(4));
}

QColor rimOf(const QStyleOption& option) {
  if (!isEnabled(option)) return toColour(token("line2"));
  if (isOn(option)) return toColour(token("teal"));
  return toColour(option.state.testFlag(QStyle::State_MouseOver) ? token("text2") : token("line3"));
}

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
  const Painting kept(painter);
  painter.setPen(rimOf(option));
  painter.setBrush(toColour(isOn(option) && isEnabled(option) ? token("teal") : token("ink0")));
  painter.drawRoundedRect(onPixels(option.rect), themed(4), themed(4));
  if (isOn(option)) {
    drawTick(painter, option.rect, toColour(isEnabled(option) ? token("onTeal") : token("textOff")));
  }
}

void drawOption(QPainter& painter, const QStyleOption& option) {
  const Painting kept(painter);
  painter.setPen(rimOf(option));
  painter.setBrush(toColour(token("ink0")));
  painter.drawEllipse(onPixels(option.rect));
  if (isOn(option)) {
    drawDot(painter, QRectF(option.rect).center(),
            toColour(isEnabled(option) ? token("teal") : token("textOff")));
  }
}

void drawHandle(QPainter& painter, const QRectF& handle, bool enabled) {
  QLinearGradient body(handle.topLeft(), handle.bottomLeft());
  body.setColorAt(0, toColour(token("handleTop")));
  body.setColorAt(1, toColour(token("handleFoot")));
  painter.setPen(Qt::NoPen);
  painter.setBrush(enabled ? QBrush(body) : QBrush(toColour(token("ink4"))));
  painter.drawRoundedRect(handle, themed(4), themed(4));
  painter.setBrush(toColour(token("handleLine")));
  painter.drawRect(
      QRectF(handle.center().x() - themed(1) / 2.0, handle.y() + themed(4), themed(1), themed(8)));
}

// A slider may stand for a colour.
QColor fillOf(const QWidget* slider) {
  const auto own = slider == nullptr ? QVariant() : slider->property("fill");
  return own.isValid() ? own.value<QColor>() : toColour(token("teal"));
}

void drawSlider(QPainter& painter, const QStyleOptionSlider& option, const QRectF& handleCell,
                const QColor& fill) {
  const Painting kept(painter);
  const bool lies = option.orientation == Qt::Horizontal;
  const QRectF all = option.rect;
  const QPointF centre = handleCell.center();
  const double wide = themed(kSlot);
  const double round = wide / 2;
  QRectF slot(all.x() + round, all.center().y() - round, all.width() - wide, wide);
  if (!lies) slot = QRectF(all.center().x() - round, all.y() + round, wide, all.height() - wide);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(token("void")));
  painter.drawRoundedRect(slot, round, round);
  const bool hasPart = option.sliderPosition > option.minimum;
  // The part from the least value to the handle; `upsideDown` tells at which end that is.
  if (lies) {
    option.upsideDown ? slot.setLeft(centre.x()) : slot.setRight(centre.x());
  } else {
    option.upsideDown ? slot.setTop(centre.y()) : slot.setBottom(centre.y());
  }
  painter.setBrush(isEnabled(option) ? fill : toColour(token("line2")));
  if (hasPart) painter.drawRoundedRect(slot, round, round);
  const QSizeF size(themed(kHandle), themed(kMark));
  const QRectF handle(centre - QPointF(size.width() / 2, size.height() / 2), size);
  drawHandle(painter, handle, isEnabled(option));
  const int room = themed(kRoom);
  if (hasKeyboard(option)) drawFocusRing(painter, handle.adjusted(-room, -room, room, room), themed(7));
}

}  // namespace

void drawFocusRing(QPainter& painter, const QRectF& outer, double radius) {
  const Painting kept(painter);
  const double half = themed(2) / 2.0;
  const auto line = outer.adjusted(half, half, -half, -half);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(toColour(token("void")), themed(4)));
  painter.drawRoundedRect(line, radius, radius);
  painter.setPen(QPen(toColour(token("focus")), themed(2)));
  painter.drawRoundedRect(line, radius, radius);
}

int KvoStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return themed(widget != nullptr && widget->property("small").toBool() ? kSmallMark : kMark);
    case PM_MenuHMargin:
      return themed(kMenuMarginH);
    case PM_MenuVMargin:
      return themed(kMenuMarginV);
    case PM_MenuPanelWidth:
      return 0;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return themed(8);
    case PM_SliderThickness:
    case PM_SliderControlThickness:
      return themed(kLeastHit);
    case PM_SliderLength:
      return themed(kHandle + 2 * kRoom);
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
      return themed(kRingRoom);
    default: {
      const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
      return pixels > 1 ? themed(pixels) : pixels;  // -1 stands for what is not limited
    }
  }
}

int KvoStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                        QStyleHintReturn* returned) const {
  switch (hint) {
    case SH_FocusFrame_AboveWidget:
    case SH_Menu_Scrollable:  // one that is higher than the screen
      return 1;
    case SH_FocusFrame_Mask:
    case SH_DialogButtonBox_ButtonsHaveIcons:
      return 0;
    case SH_ToolTip_WakeUpDelay:
      return kToolTipDelay;
    default:
      return QProxyStyle::styleHint(hint, option, widget, returned);
  }
}

QRect KvoStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
  const auto rect = QProxyStyle::subElementRect(element, option, widget);
  switch (element) {
    case SE_CheckBoxIndicator:
    case SE_RadioButtonIndicator:
      return rect.translated(option->direction == Qt::RightToLeft ? -themed(kRoom) : themed(kRoom), 0);
    case SE_CheckBoxContents:
    case SE_RadioButtonContents:
      return option->direction == Qt::RightToLeft ? rect.adjusted(0, 0, -themed(kRoom), 0)
                                                  : rect.adjusted(themed(kRoom), 0, 0, 0);
    default:
      return rect;
  }
}

QSize KvoStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                 const QWidget* widget) const {
  const auto* row = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (type == CT_MenuItem && row != nullptr) return menuRowSize(*row, contents);
  auto size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type == CT_CheckBox || type == CT_RadioButton) {
    size.rwidth() += themed(kRoom);
    size.setHeight(std::max(size.height(), themed(kLeastHit)));
  }
  return size;
}

// What file dialogs show where the desktop has none of its own.
QIcon KvoStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
  switch (icon) {
    case SP_ArrowBack:
      return themeIcon("back");
    case SP_ArrowForward:
      return themeIcon("forward");
    case SP_FileDialogToParent:
      return themeIcon("up");
    case SP_FileDialogNewFolder:
      return themeIcon("add");
    case SP_FileDialogListView:
      return themeIcon("tiles");
    case SP_FileDialogDetailedView:
      return themeIcon("menu");
    case SP_DirIcon:
    case SP_DirOpenIcon:
    case SP_DirHomeIcon:
      return themeIcon("folder");
    default:
      return QProxyStyle::standardIcon(icon, option, widget);
  }
}

void KvoStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  switch (element) {
    case PE_IndicatorCheckBox:
      return drawCheckBox(*painter, *option);
    case PE_IndicatorRadioButton:
      return drawOption(*painter, *option);
    case PE_PanelMenu:
      return drawMenuPanel(*painter, option->rect);
    case PE_FrameMenu:
      return;  // the panel has it
    case PE_FrameFocusRect:
      // Of a tab, by the line of its text. All others have a ring about them or about their mark.
      if (hasKeyboard(*option) && qobject_cast<const QTabBar*>(widget) != nullptr) {
        drawFocusRing(*painter, QRectF(option->rect).adjusted(-themed(8), -themed(7), themed(8), themed(7)),
                      themed(6));
      }
      return;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void KvoStyle::drawMarked(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget,
                          bool isBox) const {
  auto part = option;
  part.rect = subElementRect(isBox ? SE_CheckBoxIndicator : SE_RadioButtonIndicator, &option, widget);
  drawPrimitive(isBox ? PE_IndicatorCheckBox : PE_IndicatorRadioButton, &part, &painter, widget);
  if (hasKeyboard(option)) {
    const int room = themed(kRoom);
    const auto outer = QRectF(part.rect).adjusted(-room, -room, room, room);
    drawFocusRing(painter, outer, isBox ? themed(7) : outer.width() / 2 - 1);
  }
  part.rect = subElementRect(isBox ? SE_CheckBoxContents : SE_RadioButtonContents, &option, widget);
  QProxyStyle::drawControl(isBox ? CE_CheckBoxLabel : CE_RadioButtonLabel, &part, &painter, widget);
}

void KvoStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const {
  if (element == CE_FocusFrame) {
    const auto inset = ringInset(widget) + QPoint(themed(1), themed(1));
    const auto outer =
        inWindow(*widget, QRectF(option->rect).adjusted(inset.x(), inset.y(), -inset.x(), -inset.y()));
    return drawFocusRing(*painter, outer, isRound(widget) ? outer.width() / 2 - 1 : themed(kRingRadius));
  }
  const auto* row = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (row != nullptr && element == CE_MenuItem) return drawMenuRow(*painter, *row);
  if (element == CE_MenuEmptyArea) return;
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (button != nullptr && (element == CE_CheckBox || element == CE_RadioButton)) {
    return drawMarked(*button, *painter, widget, element == CE_CheckBox);
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void KvoStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                  QPainter* painter, const QWidget* widget) const {
  const auto* slider = control == CC_Slider ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
  if (slider != nullptr) {
    return drawSlider(*painter, *slider, subControlRect(CC_Slider, slider, SC_SliderHandle, widget),
                      fillOf(widget));
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

}  // namespace kvo
