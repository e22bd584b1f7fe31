// The small picture and its time over the slider, where the pointer is. The mouse goes through it, and it is
// nothing to a screen reader: the handles tell their places.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/face_scale.h"

#include <QPixmap>
#include <QWidget>

namespace kvo {

class HoverPart : public QWidget {
 public:
  HoverPart(const HoverState& state, QWidget* face);

  void layOut(const FaceScale& scale);
  /// Brings it in line with the state; it stands over this point of the face, or below it.
  void drawOver(const QPoint& point);
  void drawBelow(const QPoint& point);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// False while there is nothing to be shown.
  bool take();
  void placeAt(int middle, int top);

  const HoverState& state_;
  FaceScale scale_;
  std::shared_ptr<const FramePicture> shown_;
  QPixmap picture_;
  std::string time_;
};

}  // namespace kvo
