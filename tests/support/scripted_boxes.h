// Boxes that are answered from a list.
#pragma once

#include "ports/message_boxes.h"

#include <deque>
#include <functional>
#include <vector>

namespace kvo::test {

class ScriptedBoxes : public MessageBoxes {
 public:
  std::deque<Answer> answers;  // Ok when it runs out
  std::vector<Box> shown;

  Answer show(const Box& box) override {
    shown.push_back(box);
    whileShown();
    if (answers.empty()) return Answer::Ok;
    const auto answer = answers.front();
    answers.pop_front();
    return answer;
  }
  StyledAnswer showStyled(const StyledBox& box) override {
    styled.push_back(box);
    whileShown();
    return styledAnswer;
  }

  std::function<void()> whileShown = [] {};
  std::vector<StyledBox> styled;
  StyledAnswer styledAnswer;
};

}  // namespace kvo::test
