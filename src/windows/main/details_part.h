// What is told of the clip in hand below the picture: nine pairs of caption and value.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <array>

namespace kvo {

class DetailsPart : public Plate {
 public:
  DetailsPart(const DetailsState& state, QWidget* parent);

  void layOut(const FaceScale& scale);
  /// `colour` is that of values.
  void draw(Rgb colour);

 private:
  struct Pair {
    FaceLabel* caption;
    FaceLabel* value;
  };

  const DetailsState& state_;
  std::array<Pair, 9> pairs_;
};

}  // namespace kvo
