// What is told of the clip in hand below the picture: nine pairs of caption and value.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <array>
#include <functional>
#include <vector>

namespace kvo {

class KeyLabel;

class DetailsPart : public Plate {
 public:
  /// `showCodec` is called when the user clicks on a codec that more is known of.
  DetailsPart(const DetailsState& state, std::function<void()> showCodec, QWidget* parent);

  void layOut(const FaceScale& scale);
  /// `colour` is that of values.
  void draw(Rgb colour);
  /// What takes the keyboard, in the order of Tab.
  [[nodiscard]] std::vector<QWidget*> tabOrder() const;

 private:
  struct Pair {
    FaceLabel* caption;
    FaceLabel* value;
  };

  const DetailsState& state_;
  std::array<Pair, 9> pairs_;
  KeyLabel* codecKey_;
};

}  // namespace kvo
