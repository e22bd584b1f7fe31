#include "adapters/posix/posix_processes.h"

#include "adapters/posix/process_mail.h"
#include "adapters/posix/spawn.h"
#include "base/guarded.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kvo {
namespace {

constexpr int kGrace = 1000;  // milliseconds between asking a process to end and killing it

// One stream of output, cut into lines.
class Stream {
 public:
  Stream(Descriptor& from, bool isErrors) : from_(from), isErrors_(isErrors) {}

  [[nodiscard]] int descriptor() const { return from_.get(); }

  // Reads what waits, once, and adds the lines that are whole; at the end, also one that is not.
  void read(std::vector<ProcessWord>& words) {
    std::array<char, 1U << 14U> buffer{};
    const auto got = ::read(from_.get(), buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) return;
    if (got <= 0) return close(words);
    pending_.append(buffer.data(), static_cast<std::size_t>(got));
    std::size_t from = 0;
    for (auto end = lineEnd(from); end != std::string::npos; end = lineEnd(from)) {
      words.emplace_back(OutputLine{pending_.substr(from, end - from), isErrors_});
      from = end + (pending_[end] == '\n' ? 1 : 0);
    }
    pending_.erase(0, from);
  }

  // Reads what is there now, and no more: a child of the process may print without end.
  void finish(std::vector<ProcessWord>& words) {
    int left = 0;
    for (int i = 0; i < kMaxLeft && from_.open(); ++i) {
      if (::ioctl(from_.get(), FIONREAD, &left) != 0 || left == 0) break;
      read(words);
    }
    close(words);
  }

 private:
  static constexpr int kMaxLeft = 256;  // reads

  // Where the line that begins at `from` ends, or npos when that is not known yet.
  [[nodiscard]] std::size_t lineEnd(std::size_t from) const {
    const auto end = std::min(pending_.find('\n', from), from + kMaxProcessLine);
    return end < pending_.size() ? end : std::string::npos;
  }

  void close(std::vector<ProcessWord>& words) {
    if (!pending_.empty()) words.emplace_back(OutputLine{std::exchange(pending_, {}), isErrors_});
    from_.close();
  }

  Descriptor& from_;
  const bool isErrors_;
  std::string pending_;
};

ProcessEnd endOf(pid_t process) {
  siginfo_t status{};
  // It is left to be waited for: until then its number, and its group's, belong to nobody else.
  while (::waitid(P_PID, static_cast<id_t>(process), &status, WEXITED | WNOWAIT) < 0 && errno == EINTR) {
  }
  if (status.si_code == CLD_EXITED) return {status.si_status, 0};
  return {128 + status.si_status, status.si_status};
}

// Reads a child to its end, or until `wake` can be read.
void follow(Child& child, const Descriptor& wake, ProcessMail& mail) {
  Stream output(child.output, false);
  Stream errors(child.errors, true);
  for (;;) {
    std::array<pollfd, 4> ready{{{output.descriptor(), POLLIN, 0},
                                 {errors.descriptor(), POLLIN, 0},
                                 {child.end.get(), POLLIN, 0},
                                 {wake.get(), POLLIN, 0}}};
    if (::poll(ready.data(), ready.size(), -1) <= 0) continue;
    if (ready[3].revents != 0) return;
    std::vector<ProcessWord> words;
    if (ready[2].revents != 0) {
      output.finish(words);
      errors.finish(words);
      words.emplace_back(endOf(child.process));
      return mail.post(std::move(words));
    }
    if (ready[0].revents != 0) output.read(words);
    if (ready[1].revents != 0) errors.read(words);
    mail.post(std::move(words));
  }
}

class PosixProcess : public Process {
 public:
  PosixProcess(EventLoop& loop, Child child, Descriptor wake, ProcessHearing hearing)
      : child_(std::move(child)),
        wake_(std::move(wake)),
        mail_(std::make_shared<ProcessMail>(loop, std::move(hearing))),
        grace_(loop.timer([this] {
          grace_->stop();
          kill();
        })),
        thread_([this] { follow(child_, wake_, *mail_); }) {}
  PosixProcess(const PosixProcess&) = delete;
  PosixProcess& operator=(const PosixProcess&) = delete;
  ~PosixProcess() override {
    PosixProcess::kill();
    mail_->close();
    ::eventfd_write(wake_.get(), 1);
    thread_.join();
    while (::waitpid(child_.process, nullptr, 0) < 0 && errno == EINTR) {
    }
  }

  bool write(std::string_view bytes) override {
    const auto sent = ::send(child_.input.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return sent == static_cast<ssize_t>(bytes.size());
  }

  void stop() override {
    if (grace_->running()) return;
    signal(SIGTERM);
    grace_->start(kGrace);
  }

  void kill() override { signal(SIGKILL); }

 private:
  void signal(int number) const { ::kill(child_.ownGroup ? -child_.process : child_.process, number); }

  Child child_;
  Descriptor wake_;
  std::shared_ptr<ProcessMail> mail_;
  std::unique_ptr<Timer> grace_;
  std::thread thread_;
};

}  // namespace

Result<std::unique_ptr<Process>> PosixProcesses::start(EventLoop& loop, const ProcessOrder& order,
                                                       ProcessHearing hearing) {
  Descriptor wake(::eventfd(0, EFD_CLOEXEC));
  auto child = spawn(order, static_cast<bool>(hearing.errorLine));
  if (!child) return child.error();
  // It runs already: without the object that ends it, it is ended here.
  const auto process = child->process;
  const auto whole = child->ownGroup ? -process : process;
  auto made = guarded([&]() -> Result<std::unique_ptr<Process>> {
    return std::unique_ptr<Process>(
        std::make_unique<PosixProcess>(loop, std::move(*child), std::move(wake), std::move(hearing)));
  });
  if (!made) {
    ::kill(whole, SIGKILL);
    while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  return made;
}

int PosixProcesses::ownNumber() const { return ::getpid(); }

}  // namespace kvo
