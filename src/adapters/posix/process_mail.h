// What a process says, on its way from the thread that reads it to the loop.
#pragma once

#include "ports/processes.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <variant>
#include <vector>

namespace kvo {

struct OutputLine {
  std::string text;
  bool isError = false;  ///< of standard error
};

using ProcessWord = std::variant<OutputLine, ProcessEnd>;

class ProcessMail : public std::enable_shared_from_this<ProcessMail> {
 public:
  ProcessMail(EventLoop& loop, ProcessHearing hearing) : loop_(loop), hearing_(std::move(hearing)) {}

  /// On the reading thread. Waits while the loop has not heard what came before.
  void post(std::vector<ProcessWord> words);

  /// On the loop's thread: nothing is heard from now on.
  void close();

 private:
  void deliver(std::size_t count);
  std::optional<ProcessWord> next();
  void hear(const ProcessWord& word) const;

  EventLoop& loop_;
  const ProcessHearing hearing_;
  std::mutex mutex_;
  std::condition_variable room_;
  std::deque<ProcessWord> waiting_;
  bool closed_ = false;
};

}  // namespace kvo
