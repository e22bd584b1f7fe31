// The program's boxes: each is a card in a window of its own, which waits for its answer, a key or a line
// that is typed.
#pragma once

#include "ports/message_boxes.h"
#include "ports/text_questions.h"

#include <functional>
#include <utility>

namespace kvo {

class FrmMessageBoxes : public MessageBoxes, public TextQuestions {
 public:
  /// `ahead` is done before each box: the window below it is to be seen as it is.
  explicit FrmMessageBoxes(std::function<void()> ahead = [] {}) : ahead_(std::move(ahead)) {}

  Answer show(const Box& box) override;
  StyledAnswer showStyled(const StyledBox& box) override;
  std::optional<std::string> ask(const std::string& title, const std::string& prompt,
                                 const std::string& text) override;

 private:
  std::function<void()> ahead_;
};

}  // namespace kvo
