// A display of ten lights with a title and a value, which fades by itself: Frm_Rate and Frm_AudioLev.
#pragma once

#include "playback/positions/position_state.h"
#include "windows/position/floating.h"

#include <functional>

class QLabel;
class QPropertyAnimation;

namespace kvo {

class LevelLights;

class FadingWindow final : public Floating {
 public:
  /// `set` is told of the light that was clicked, 1 to 10, or a tick of the wheel up or down from there; an
  /// empty one makes it a display alone.
  FadingWindow(const FadingDisplay& state, std::function<void(int lights)> set);

  /// Brings it in line with the state; it appears over this part of `owner`.
  void draw(QWidget* owner, const QPointF& part);

 protected:
  void layOut() override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  const FadingDisplay& state_;
  std::function<void(int)> set_;
  QLabel* title_;
  QLabel* value_;
  LevelLights* lights_;
  QPropertyAnimation* fade_;
};

}  // namespace kvo
