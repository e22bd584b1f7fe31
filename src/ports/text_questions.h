// The port to the box in which the user types one line.
#pragma once

#include <optional>
#include <string>

namespace kvo {

class TextQuestions {
 public:
  TextQuestions() = default;
  TextQuestions(const TextQuestions&) = delete;
  TextQuestions& operator=(const TextQuestions&) = delete;
  virtual ~TextQuestions() = default;

  /// What was typed, without blanks at its ends; nothing on Cancel. The field begins with `text`, chosen as a
  /// whole.
  virtual std::optional<std::string> ask(const std::string& title, const std::string& prompt,
                                         const std::string& text) = 0;
};

}  // namespace kvo
