// The program's boxes: each is a card in a window of its own, which waits for its answer.
#pragma once

#include "ports/message_boxes.h"

namespace kvo {

class FrmMessageBoxes : public MessageBoxes {
 public:
  Answer show(const Box& box) override;
  StyledAnswer showStyled(const StyledBox& box) override;
};

}  // namespace kvo
