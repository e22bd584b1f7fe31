// The boxes of a work on many files: what each of them would tell on its own is told in one box at the end.
#pragma once

#include "ports/message_boxes.h"

#include <functional>
#include <vector>

namespace kvo {

class GatheredBoxes : public MessageBoxes {
 public:
  explicit GatheredBoxes(MessageBoxes& boxes) : boxes_(boxes) {}

  /// Does the work; boxes that only tell something wait for its end. Those of one caption become one: the
  /// lines that all begin with, and then what differs of each.
  void together(const std::function<void()>& work);

  /// While a work is done, Ok at once for a box that asks nothing.
  Answer show(const Box& box) override;
  StyledAnswer showStyled(const StyledBox& box) override { return boxes_.showStyled(box); }

 private:
  MessageBoxes& boxes_;
  bool gathers_ = false;
  std::vector<Box> waiting_;
};

}  // namespace kvo
