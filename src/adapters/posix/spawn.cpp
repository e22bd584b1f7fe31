#include "adapters/posix/spawn.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace kvo {
namespace {

std::vector<char*> argumentPointers(const ProcessOrder& order) {
  std::vector<char*> pointers;
  // posix_spawn asks for char* and changes nothing.
  pointers.push_back(const_cast<char*>(order.program.c_str()));                            // NOLINT
  for (const auto& a : order.arguments) pointers.push_back(const_cast<char*>(a.c_str()));  // NOLINT
  pointers.push_back(nullptr);
  return pointers;
}

struct Pipe {
  Descriptor readEnd;
  Descriptor writeEnd;
};

Result<Pipe> makePipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0)
    return Error{std::string("cannot make a pipe: ") + std::strerror(errno)};
  return Pipe{Descriptor(ends[0]), Descriptor(ends[1])};
}

// A socket in place of a pipe: what is written to a process that has ended is an error, and no signal.
Result<Pipe> makeInput() {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
    return Error{std::string("cannot make a socket: ") + std::strerror(errno)};
  return Pipe{Descriptor(ends[0]), Descriptor(ends[1])};
}

// What the child is born with: its streams, every signal, its group.
class Birth {
 public:
  explicit Birth(bool ownGroup) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawnattr_init(&attributes_);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setpgroup(&attributes_, 0);
    posix_spawnattr_setflags(
        &attributes_, static_cast<short>(POSIX_SPAWN_SETSIGMASK | (ownGroup ? POSIX_SPAWN_SETPGROUP : 0)));
  }
  Birth(const Birth&) = delete;
  Birth& operator=(const Birth&) = delete;
  ~Birth() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
  }

  void stream(int number, const Descriptor& itsEnd) {
    posix_spawn_file_actions_adddup2(&actions_, itsEnd.get(), number);
  }
  void noInput() { posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0); }

  Result<pid_t> give(const ProcessOrder& order) {
    pid_t process = 0;
    auto pointers = argumentPointers(order);
    const int failed =
        ::posix_spawn(&process, order.program.c_str(), &actions_, &attributes_, pointers.data(), environ);
    if (failed != 0) return Error{"cannot start " + order.program + ": " + std::strerror(failed)};
    return process;
  }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

}  // namespace

Result<Child> spawn(const ProcessOrder& order, bool hearErrors) {
  Birth birth(order.ownGroup);
  Pipe input;
  if (order.hasInput) {
    auto made = makeInput();
    if (!made) return made.error();
    input = std::move(*made);
    birth.stream(STDIN_FILENO, input.readEnd);
  } else {
    birth.noInput();
  }
  auto output = makePipe();
  if (!output) return output.error();
  birth.stream(STDOUT_FILENO, output->writeEnd);
  Pipe errors;
  if (hearErrors) {
    auto made = makePipe();
    if (!made) return made.error();
    errors = std::move(*made);
    birth.stream(STDERR_FILENO, errors.writeEnd);
  }
  const auto process = birth.give(order);
  if (!process) return process.error();
  // The C library's header declares it without C linkage.
  Descriptor end(static_cast<int>(::syscall(SYS_pidfd_open, *process, 0)));
  if (!end.open()) {
    const Error error{"cannot watch " + order.program + ": " + std::strerror(errno)};
    ::kill(*process, SIGKILL);
    ::waitpid(*process, nullptr, 0);
    return error;
  }
  return Child{*process,
               order.ownGroup,
               std::move(end),
               std::move(input.writeEnd),
               std::move(output->readEnd),
               std::move(errors.readEnd)};
}

}  // namespace kvo
