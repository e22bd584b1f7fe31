// The boxes of a work on many files: what each of them would tell on its own is told in one box at the end.
#pragma once

#include "ports/message_boxes.h"

#include <functional>
#include <string>
#include <vector>

namespace kvo {

class GatheredBoxes : public MessageBoxes {
 public:
  explicit GatheredBoxes(MessageBoxes& boxes) : boxes_(boxes) {}

  struct Waiting {
    Box box;
    std::string name;  ///< of the file that it tells of; empty where it is about none
  };

  /// Does the work; boxes that only tell something wait for its end. Those of one caption, a file's name in
  /// front of it apart, become one: the lines that all begin with, and then the names of the files and what
  /// is told of them, the same once. A name stands where neither caption nor text tell it.
  void together(const std::function<void()>& work);

  /// What is shown from now on in this work is about the file or address `path`.
  void about(const std::string& path);

  /// While a work is done, Ok at once for a box that asks nothing.
  Answer show(const Box& box) override;
  StyledAnswer showStyled(const StyledBox& box) override { return boxes_.showStyled(box); }

 private:
  MessageBoxes& boxes_;
  bool gathers_ = false;
  std::string name_;
  std::vector<Waiting> waiting_;
};

}  // namespace kvo
