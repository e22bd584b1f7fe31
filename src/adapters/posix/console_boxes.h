// Boxes where there is no display: printed on standard error, answered with the default.
#pragma once

#include "ports/message_boxes.h"

namespace kvo {

class ConsoleBoxes : public MessageBoxes {
 public:
  Answer show(const Box& box) override;
  StyledAnswer showStyled(const StyledBox& box) override;
};

}  // namespace kvo
