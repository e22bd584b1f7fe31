// Boxes that are answered from a list.
#pragma once

#include "ports/message_boxes.h"

#include <deque>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace kvo::test {

/// The next of a script; `none` when it has run out.
template <class T>
T nextOf(std::deque<T>& script, std::type_identity_t<T> none) {
  if (script.empty()) return none;
  auto next = std::move(script.front());
  script.pop_front();
  return next;
}

class ScriptedBoxes : public MessageBoxes {
 public:
  std::deque<Answer> answers;  // Ok when it runs out
  std::vector<Box> shown;

  Answer show(const Box& box) override {
    shown.push_back(box);
    whileShown();
    return nextOf(answers, Answer::Ok);
  }
  StyledAnswer showStyled(const StyledBox& box) override {
    styled.push_back(box);
    whileShown();
    return styledAnswer;
  }

  /// Each box since the last call, its caption and its text; "\n" between two of them.
  std::string told() {
    std::string all;
    for (const auto& box : std::exchange(shown, {}))
      all += (all.empty() ? "" : "\n") + box.caption + "|" + box.text;
    return all;
  }

  std::function<void()> whileShown = [] {};
  std::vector<StyledBox> styled;
  StyledAnswer styledAnswer;
};

}  // namespace kvo::test
