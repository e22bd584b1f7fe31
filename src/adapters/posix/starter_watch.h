// Ends this process together with the one that started it.
#pragma once

#include <stop_token>
#include <sys/types.h>
#include <thread>

namespace kvo {

class StarterWatch {
 public:
  /// `starter` is the parent of this process, or of the shell that has started it. When it ends, however that
  /// may be, this process is killed, even when it hangs; when it is stopped as by SIGSTOP, and this process
  /// is not, this one ends within half a second with a line on standard error and exit code 1. When it has
  /// ended already, so does this process, at once.
  explicit StarterWatch(pid_t starter);
  StarterWatch(const StarterWatch&) = delete;
  StarterWatch& operator=(const StarterWatch&) = delete;
  ~StarterWatch() = default;

 private:
  std::jthread thread_;
};

}  // namespace kvo
