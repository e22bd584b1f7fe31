// The dark plates on the skin that every text of the window stands on, and the labels on them.
#pragma once

#include "ui/tokens.h"
#include "windows/main/face_scale.h"

#include <QColor>
#include <QLabel>
#include <QWidget>

class QPainter;

namespace kvo {

/// Where `units` of the face lie in `parent`, a widget that is placed on it.
QRect placedIn(const QWidget& parent, const FaceScale& scale, const QRectF& units);

/// A plate over `rect` in pixels with its rim about it: dark inside, light at the foot outside.
void drawPlate(QPainter& painter, const QRectF& rect, double radius, const FaceScale& scale,
               const QColor& ground);

/// The ground of plates: nine tenths dark, so that the skin is still felt.
QColor plateColour();

class Plate : public QWidget {
 public:
  /// `units` on the face; `radius` in pixels at size 1.
  Plate(const QRectF& units, double radius, QWidget* parent);

  /// Takes its place, with the rim about it.
  void layOut(const FaceScale& scale);
  void setGround(const QColor& ground);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRectF units_;
  double radius_;
  FaceScale scale_;
  QColor ground_;
};

/// How a label is written.
struct LabelLook {
  double pixels = 12;  ///< at size 1
  QFont::Weight weight = QFont::Normal;
  Rgb colour = token("text1");
  Qt::Alignment side = Qt::AlignLeft;
  Qt::TextElideMode elide = Qt::ElideRight;
  bool isNumber = false;
};

/// One line of text. What is too long is cut, and its tool tip shows the whole.
class FaceLabel : public QLabel {
 public:
  FaceLabel(const QRectF& units, const LabelLook& look, QWidget* parent);

  void layOut(const FaceScale& scale);
  void setColour(Rgb colour);
  [[nodiscard]] bool isCut() const { return cut() != text(); }
  /// As setText; nothing is drawn anew when it is the same.
  void write(const QString& text);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QString cut() const;

  QRectF units_;
  LabelLook look_;
  QFont face_;
};

}  // namespace kvo
