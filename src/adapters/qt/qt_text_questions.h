// The line that a user types, by Qt.
#pragma once

#include "ports/text_questions.h"

namespace kvo {

class QtTextQuestions : public TextQuestions {
 public:
  std::optional<std::string> ask(const std::string& title, const std::string& prompt) override;
};

}  // namespace kvo
