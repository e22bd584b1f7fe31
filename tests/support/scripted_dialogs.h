// File dialogs that are answered from a list; Cancel when it runs out.
#pragma once

#include "ports/file_dialogs.h"
#include "support/scripted_boxes.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace kvo::test {

class ScriptedDialogs : public FileDialogs {
 public:
  std::deque<std::optional<std::string>> answers;
  std::vector<FileQuestion> asked;
  std::optional<std::string> open(const FileQuestion& question) override { return next(question); }
  std::optional<std::string> openFolder(const FileQuestion& question) override { return next(question); }
  std::optional<std::string> save(const FileQuestion& question) override { return next(question); }
  FileChoice openSeveral(const FileQuestion& question) override {
    const auto one = next(question);
    return {one ? std::vector{*one} : std::vector<std::string>(), filter};
  }
  std::size_t filter = 0;  // that the user chooses among those of openSeveral

 private:
  std::optional<std::string> next(const FileQuestion& question) {
    asked.push_back(question);
    return nextOf(answers, std::nullopt);
  }
};

}  // namespace kvo::test
