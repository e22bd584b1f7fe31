#include "adapters/posix/posix_processes.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace kvo {
namespace {

constexpr int kAskEvery = 50;                     // milliseconds between two questions whether to stop
constexpr auto kGrace = std::chrono::seconds(1);  // between asking a process to end and killing it

std::vector<char*> argumentPointers(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<char*> pointers;
  pointers.push_back(const_cast<char*>(program.c_str()));  // NOLINT(cppcoreguidelines-pro-type-const-cast)
  for (const auto& a : arguments) pointers.push_back(const_cast<char*>(a.c_str()));  // NOLINT
  pointers.push_back(nullptr);
  return pointers;
}

// Hands the whole lines at the front of `pending` to `line` and leaves the rest.
void handOut(std::string& pending, const std::function<void(std::string_view)>& line) {
  std::size_t from = 0;
  for (auto at = pending.find('\n'); at != std::string::npos; at = pending.find('\n', from)) {
    line(std::string_view(pending).substr(from, at - from));
    from = at + 1;
  }
  pending.erase(0, from);
}

// Ends a process when it is to stop: asks it to, and kills it when it does not listen.
class Stopping {
 public:
  Stopping(pid_t process, const std::function<bool()>& stop) : process_(process), stop_(stop) {}

  // True once it has been asked.
  bool look() {
    if (!asked_ && stop_()) {
      asked_ = Clock::now();
      ::kill(process_, SIGTERM);
    } else if (asked_ && !killed_ && Clock::now() - *asked_ >= kGrace) {
      killed_ = true;
      ::kill(process_, SIGKILL);
    }
    return asked_.has_value();
  }

 private:
  using Clock = std::chrono::steady_clock;
  pid_t process_;
  const std::function<bool()>& stop_;
  std::optional<Clock::time_point> asked_;
  bool killed_ = false;
};

}  // namespace

Result<ProcessEnd> PosixProcesses::run(const std::string& program, const std::vector<std::string>& arguments,
                                       const std::function<void(std::string_view)>& line,
                                       const std::function<bool()>& stop) {
  std::array<int, 2> pipe{};
  if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
    return Error{std::string("cannot make a pipe: ") + std::strerror(errno)};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
  // The child answers to every signal, whatever this side holds back for itself.
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t none;
  sigemptyset(&none);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
  pid_t child = 0;
  auto pointers = argumentPointers(program, arguments);
  const int failed = ::posix_spawn(&child, program.c_str(), &actions, &attributes, pointers.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  ::close(pipe[1]);
  if (failed != 0) {
    ::close(pipe[0]);
    return Error{"cannot start " + program + ": " + std::strerror(failed)};
  }

  ProcessEnd end;
  Stopping stopping(child, stop);
  std::string pending;
  std::array<char, 4096> buffer{};
  for (bool open = true; open;) {
    end.ended = stopping.look();
    pollfd ready{pipe[0], POLLIN, 0};
    if (::poll(&ready, 1, kAskEvery) <= 0) continue;
    const auto got = ::read(pipe[0], buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    open = got > 0;
    if (open) {
      pending.append(buffer.data(), static_cast<std::size_t>(got));
      handOut(pending, line);
    }
  }
  ::close(pipe[0]);
  if (!pending.empty()) line(pending);
  int status = 0;
  // It may have closed its output and work on.
  for (pid_t ended = 0; ended == 0 || (ended < 0 && errno == EINTR);) {
    ended = ::waitpid(child, &status, WNOHANG);
    if (ended != 0) continue;
    end.ended = stopping.look();
    ::poll(nullptr, 0, kAskEvery);
  }
  end.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return end;
}

}  // namespace kvo
