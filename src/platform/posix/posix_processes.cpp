#include "platform/posix/posix_processes.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace kvo {
namespace {

constexpr int kAskEvery = 50;  // milliseconds between two questions whether to stop

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
  std::string pending;
  std::array<char, 4096> buffer{};
  for (bool open = true; open;) {
    if (!end.ended && stop()) {
      end.ended = true;
      ::kill(child, SIGTERM);
    }
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
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  end.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return end;
}

}  // namespace kvo
