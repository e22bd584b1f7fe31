// The wheel that moves in the clip: dragged, turned by the mouse's own wheel, or stepped by the arrows.
#pragma once

#include <QWidget>
#include <functional>

namespace kvo {

class JogWheel final : public QWidget {
 public:
  explicit JogWheel(const QString& name, QWidget* parent);

  /// The wheel has gone on by so many frames; below 0 back.
  std::function<void(int frames)> turned;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void turn(double frames);

  double angle_ = 0;      // frames that the wheel has gone, for its drawing
  double rest_ = 0;       // of a drag: less than a frame
  double draggedAt_ = 0;  // pixels
  bool dragging_ = false;
};

}  // namespace kvo
