// A handle on the slider's line, moved by the mouse and by keys. It holds a place on the line and knows
// nothing of times.
#pragma once

#include <QAbstractSlider>
#include <QPixmap>
#include <functional>

namespace kvo {

class SliderHandle : public QAbstractSlider {
 public:
  /// Steps from one end of the line to the other: a thousandth each.
  static constexpr int kSteps = 1000;

  SliderHandle(const QString& name, QWidget* parent);

  void setPicture(const QPixmap& picture);
  [[nodiscard]] const QPixmap& picture() const { return picture_; }

  /// The part of the line where the pointer is; below 0 or above 1 beyond its ends.
  std::function<double(const QPoint& global)> partAt;
  /// The mouse takes hold of it. False: it stays where it is.
  std::function<bool()> taken;
  /// It is moved by the mouse and not let go yet.
  std::function<void(double part)> moving;
  /// The mouse lets go of it.
  std::function<void()> letGo;
  /// A key has put it there.
  std::function<void(double part)> put;
  /// The right key of the mouse.
  std::function<void()> reset;

  /// Where it stands. Not while it is being dragged.
  void setPart(double part);
  [[nodiscard]] double part() const { return part_; }
  [[nodiscard]] bool isDragged() const { return isSliderDown(); }

  /// The mouse takes it, moves it and lets go of it, by whatever widget has the mouse.
  void take();
  void dragTo(double part);
  void drop();

  /// Where the picture is drawn in the widget.
  QPoint pictureAt;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void move(double part);

  QPixmap picture_;
  double part_ = 0;
  double grip_ = 0;  // from the pointer that has taken it to where it stood
};

}  // namespace kvo
