#include "platform/posix/console_boxes.h"

#include "base/text.h"

#include <cstdio>

namespace kvo {

Answer ConsoleBoxes::show(const Box& box) {
  const auto text = replaced(box.text, kCrLf, " ");
  std::fprintf(stderr, "%s: %s\n", box.caption.c_str(), text.c_str());
  switch (box.buttons) {
    case BoxButtons::YesNo:
    case BoxButtons::YesNoCancel:
      return Answer::Yes;
    default:
      return Answer::Ok;
  }
}

}  // namespace kvo
