// Boxes as modal windows.
#pragma once

#include "ports/message_boxes.h"

class QDialog;

namespace kvo {

class QtBoxes : public MessageBoxes {
 public:
  Answer show(const Box& box) override;
  StyledAnswer showStyled(const StyledBox& box) override;
  void answerOpenBox() override;

 private:
  QDialog* open_ = nullptr;  // the box that is up, while its call lasts
};

}  // namespace kvo
