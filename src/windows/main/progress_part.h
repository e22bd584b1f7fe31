// How far long work is, and the key that stops it.
#pragma once

#include "program/main_window_state.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace kvo {

class ProgressPart : public QWidget {
 public:
  ProgressPart(ProgressState& state, QWidget* parent);

  void draw();

 private:
  ProgressState& state_;
  QLabel* status_;
  QPushButton* abort_;
};

}  // namespace kvo
