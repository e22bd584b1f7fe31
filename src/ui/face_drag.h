// Moves a window without a frame by its face: by every place on it where no control takes the mouse.
#pragma once

#include <QObject>
#include <QPoint>
#include <optional>

class QMouseEvent;
class QWidget;

namespace kvo {

class FaceDrag : public QObject {
 public:
  /// Becomes the window's child.
  explicit FaceDrag(QWidget& window);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool press(const QMouseEvent& event);
  void move(const QPoint& pointer);

  QWidget& window_;
  std::optional<QPoint> pressed_;  // on the screen, until the pointer has gone far enough
  std::optional<QPoint> grip_;  // from the window's corner to the pointer, while the window is moved by hand
};

}  // namespace kvo
