// What the sheet cannot draw: the marks of check boxes, options and menus, sliders, the ring of focus.
#pragma once

#include <QProxyStyle>

class QStyleOptionButton;

namespace kvo {

class KvoStyle : public QProxyStyle {
 public:
  KvoStyle() : QProxyStyle("Fusion") {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                                   const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;

 private:
  // A check box or an option: mark, ring and text.
  void drawMarked(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget,
                  bool isBox) const;
};

/// The ring of focus, 2 px wide, its outer edge along `outer`, with a dark pixel on both of its sides.
void drawFocusRing(QPainter& painter, const QRectF& outer, double radius);

}  // namespace kvo
