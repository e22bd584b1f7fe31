// The port to the boxes a user answers. With no display the adapter prints the box on standard error and
// gives the default answer.
#pragma once

#include <string>

namespace kvo {

enum class Answer { Ok, Cancel, Yes, No };
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class BoxIcon { Information, Question, Warning, Critical };

struct Box {
  std::string caption;
  std::string text;  ///< lines joined by CR LF
  BoxButtons buttons = BoxButtons::Ok;
  BoxIcon icon = BoxIcon::Information;
};

class MessageBoxes {
 public:
  MessageBoxes() = default;
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;
  virtual ~MessageBoxes() = default;

  virtual Answer show(const Box& box) = 0;
};

}  // namespace kvo
