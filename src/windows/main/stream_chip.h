// How a stream comes in, on the picture of a face that has no labels for it. The mouse goes through it.
#pragma once

#include "program/main_window_state.h"

#include <QWidget>

namespace kvo {

class StreamChip : public QWidget {
 public:
  /// Stands on `picture`, at its foot.
  StreamChip(const MainWindowState& state, QWidget* picture);

  /// Brings it in line with the state.
  void draw();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const MainWindowState& state_;
  QString text_;
  bool lit_ = false;
};

}  // namespace kvo
