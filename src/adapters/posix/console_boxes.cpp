#include "adapters/posix/console_boxes.h"

#include "base/text.h"

#include <cstdio>

namespace kvo {
namespace {

void tell(const std::string& caption, const std::string& text) {
  std::fprintf(stderr, "%s: %s\n", caption.c_str(), replaced(text, kCrLf, " ").c_str());
}

}  // namespace

Answer ConsoleBoxes::show(const Box& box) {
  tell(box.caption, box.text);
  return defaultAnswer(box.buttons);
}

StyledAnswer ConsoleBoxes::showStyled(const StyledBox& box) {
  tell(box.caption, box.message);
  return {box.yesAndNo ? Answer::Yes : Answer::Ok, false};
}

}  // namespace kvo
