// What is told of the clip in hand.
#pragma once

#include "program/main_window_state.h"

#include <QLabel>

namespace kvo {

class DetailsPart : public QLabel {
 public:
  DetailsPart(const DetailsState& state, QWidget* parent);

  void draw();

 private:
  const DetailsState& state_;
};

}  // namespace kvo
