// The offer on the picture to go on where its clip was left: a key as a chip, at the foot of the picture.
#pragma once

#include "program/main_window_state.h"

#include <QAbstractButton>
#include <functional>

namespace kvo {

class ResumeChip : public QAbstractButton {
 public:
  /// Stands on `picture`; `take` is what a press does.
  ResumeChip(const ResumeState& state, std::function<void()> take, QWidget* picture);

  /// Brings it in line with the state, at `size` times its own.
  void draw(double size);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const ResumeState& state_;
};

}  // namespace kvo
