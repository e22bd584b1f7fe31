// A mailbox in memory.
#pragma once

#include "ports/handover.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kvo::test {

class MemoryHandover : public Handover {
 public:
  bool isFirst = true;
  bool isTaken = true;  // what is sent
  std::vector<std::string> sent;
  std::optional<std::string> mailbox;

  bool becomeFirst() override { return isFirst; }
  bool send(std::string_view text) override {
    sent.emplace_back(text);
    return isTaken;
  }
  std::optional<std::string> take() override { return std::exchange(mailbox, std::nullopt); }
};

}  // namespace kvo::test
