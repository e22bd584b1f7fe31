// Lines that are typed from a list; Cancel when it runs out.
#pragma once

#include "ports/text_questions.h"

#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace kvo::test {

class ScriptedQuestions : public TextQuestions {
 public:
  std::deque<std::string> answers;
  std::vector<std::pair<std::string, std::string>> asked;  // titles and prompts

  std::optional<std::string> ask(const std::string& title, const std::string& prompt,
                                 const std::string& /*text*/) override {
    asked.emplace_back(title, prompt);
    if (answers.empty()) return std::nullopt;
    auto answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

}  // namespace kvo::test
