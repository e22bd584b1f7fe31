// What the small windows over the main one have in common: no frame, rounded, above the window that they
// belong to.
#pragma once

#include "ui/face_drag.h"
#include "ui/made.h"

#include <QWidget>

namespace kvo {

class WindowPlace;

class Floating : public QWidget {
 public:
  /// `corner` is the width and height of the ellipse of each corner, pixels at size 1.
  Floating(const QSize& size, const QSize& corner, Qt::WindowFlags flags);

  /// The size of the interface: all pixels are multiplied with it.
  void setScale(double size);
  [[nodiscard]] double scale() const { return scale_; }
  [[nodiscard]] QRect at(double x, double y, double width, double height) const;

  /// Shows it above `owner`, which may be null: where it was `kept`, or else with its middle on this part of
  /// the owner; 0.5, 0.5 is the middle.
  void showOver(QWidget* owner, const QPointF& part, const WindowPlace* kept = nullptr);

 protected:
  /// Places what is in it anew.
  virtual void layOut() {}
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QSize size_;
  QSize corner_;
  double scale_ = 1;
};

}  // namespace kvo
