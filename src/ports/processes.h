// The port to other programs: start one with arguments that no shell ever sees, hear what it prints, end it.
#pragma once

#include "base/result.h"
#include "ports/event_loop.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

struct ProcessOrder {
  std::string program;                   ///< path of the file to run
  std::vector<std::string> arguments{};  ///< any bytes but 0
  /// In a group of its own it is ended with all its children, and a terminal does not see it as part of this
  /// program's job: Ctrl-C and Ctrl-Z do not reach it. Else it shares this program's group and ends alone.
  bool ownGroup = true;
  bool hasInput = false;  ///< what Process::write() gives comes to its standard input; else that is empty
};

struct ProcessEnd {
  int exitCode = 0;  ///< 128 + signal number when a signal ended it
  int signal = 0;    ///< that ended it; 0 for none
};

/// Hears a process, on the thread of the loop. A line comes without its end; one that is longer than
/// kMaxProcessLine comes in pieces. Any of these may destroy the process.
struct ProcessHearing {
  std::function<void(std::string_view)> line = [](std::string_view) {};  ///< of its standard output
  std::function<void(std::string_view)> errorLine{};  ///< of its standard error; without it, that is shared
  /// Once, behind the last line. What its children print later is not heard.
  std::function<void(const ProcessEnd&)> ended = [](const ProcessEnd&) {};
};

/// Bytes.
inline constexpr std::size_t kMaxProcessLine = 64U << 10U;

/// A program that has been started. One that is destroyed while it runs is killed, with all of its children,
/// and nothing of it is heard any more.
class Process {
 public:
  Process() = default;
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  virtual ~Process() = default;

  /// Gives bytes to the standard input of a process that has one, at once or not at all. False when it takes
  /// no more: it has ended, or has not read what came before.
  virtual bool write(std::string_view bytes) = 0;

  /// Asks it to end, and kills it when it has not a second later.
  virtual void stop() = 0;

  /// Ends it and its children at once.
  virtual void kill() = 0;
};

class Processes {
 public:
  Processes() = default;
  Processes(const Processes&) = delete;
  Processes& operator=(const Processes&) = delete;
  virtual ~Processes() = default;

  /// Starts a program and goes on at once. `loop` outlives the process. Fails
  /// with a line that names the program when it cannot be started.
  virtual Result<std::unique_ptr<Process>> start(EventLoop& loop, const ProcessOrder& order,
                                                 ProcessHearing hearing) = 0;

  /// The number that the system has for this program.
  [[nodiscard]] virtual int ownNumber() const = 0;
};

}  // namespace kvo
