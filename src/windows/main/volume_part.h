// The volume knob: its arc and pointer over the picture of its face.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/face_scale.h"

#include <QAbstractSlider>
#include <QCoreApplication>
#include <functional>
#include <optional>

namespace kvo {

class VolumePart : public QAbstractSlider {
  Q_DECLARE_TR_FUNCTIONS(kvo::VolumePart)

 public:
  /// `set` is told of each per cent that the user turns it to.
  VolumePart(const DisplayState& state, std::function<void(int percent)> set, QWidget* parent);

  /// `corner` in pixels of the face, where the picture of the knob's face is drawn.
  void layOut(const FaceScale& scale, const QPoint& corner);
  void draw();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void turnTo(int percent);
  [[nodiscard]] std::optional<int> percentAt(const QPointF& pointer) const;

  const DisplayState& state_;
  std::function<void(int)> set_;
  QPointF pressedAt_;
  int pressedVolume_ = 0;
  FaceScale scale_;
};

}  // namespace kvo
