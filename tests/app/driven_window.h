// The program in a real window, on a screen of the test's own, driven as a user drives it.
#pragma once

#include "support/real_world.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

// Its words, and those of what belongs to a screen, are of no interest.
inline int startQuietly(const std::vector<std::string>& command) {
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  const int process = startProgram(command, nowhere, nowhere);
  ::close(nowhere);
  return process;
}

// Waits for what is to be seen. The limit is only for a fault: a machine that is busy with other work takes
// long.
inline bool eventually(const std::function<bool()>& holds) {
  constexpr auto kLimit = std::chrono::minutes(2);
  const auto end = std::chrono::steady_clock::now() + kLimit;
  while (std::chrono::steady_clock::now() < end) {
    if (holds()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return holds();
}

// A screen of the test's own, with a window manager.
class Screen {
 public:
  Screen() {
    std::array<int, 2> pipe{};
    EXPECT_EQ(::pipe(pipe.data()), 0);
    server_ = startQuietly(
        {"Xvfb", "-displayfd", std::to_string(pipe[1]), "-screen", "0", "1366x768x24", "-nolisten", "tcp"});
    ::close(pipe[1]);
    std::string number;
    for (char c = 0; ::read(pipe[0], &c, 1) == 1 && c != '\n';) number += c;
    ::close(pipe[0]);
    ::setenv("DISPLAY", (":" + number).c_str(), 1);
    manager_ = startQuietly({"openbox"});
  }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  ~Screen() {
    for (const auto child : {manager_, server_}) {
      ::kill(child, SIGTERM);
      ::waitpid(child, nullptr, 0);
    }
  }

 private:
  pid_t server_ = 0;
  pid_t manager_ = 0;
};

class Window : public testing::Test {
 protected:
  Window() {
    ::setenv("HOME", home_.path().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", home_.path().c_str(), 1);
    ::unsetenv("KVO5_HOME");
    ::unsetenv("XDG_DATA_HOME");
    ::unsetenv("XDG_CONFIG_HOME");
    ::unsetenv("QT_QPA_PLATFORM");
    video_ = makeCountingVideo(work_, "count.avi", "25", 25);
  }
  ~Window() override {
    if (program_ == 0) return;
    ::kill(program_, SIGKILL);
    ::waitpid(program_, nullptr, 0);
  }

  void start(const std::vector<std::string>& arguments = {}) {
    std::vector<std::string> command{KVO_PROGRAMS "/kvo5"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    program_ = startQuietly(command);
  }

  // True when a window whose name holds `name` has the keys: in front, by the window manager, and with the
  // keyboard, which follows a little later.
  static bool comesNow(const std::string& name) {
    const auto has = [&](const char* which) {
      return runProgram({"xdotool", which, "getwindowname"}).out.find(name) != std::string::npos;
    };
    return has("getactivewindow") && has("getwindowfocus");
  }
  static bool comes(const std::string& name) {
    return eventually([&] { return comesNow(name); });
  }

  // Keys, blanks between.
  static void press(const std::string& keys) {
    std::vector<std::string> command{"xdotool", "key"};
    std::istringstream each(keys);
    for (std::string key; each >> key;) command.push_back(key);
    runProgram(command);
  }
  // Keys that bring the window `name`, pressed again until it has come: the desktop tells of the window
  // behind it ahead of the program, which hears no key while a clip is loaded.
  static bool brings(const std::string& keys, const std::string& name) {
    return eventually([&] {
      press(keys);
      constexpr int kLooks = 20;
      for (int i = 0; i < kLooks && !comesNow(name); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
      return comesNow(name);
    });
  }
  // So many windows of the program are seen: faces, boxes and menus.
  static std::ptrdiff_t windows() {
    const auto all = runProgram({"xdotool", "search", "--onlyvisible", "--class", "kvo5"}).out;
    return std::count(all.begin(), all.end(), '\n');
  }
  // Keys of which each opens a menu or a box, which hears the next one.
  static bool opens(const std::string& keys) {
    std::istringstream each(keys);
    for (std::string key; each >> key;) {
      const auto before = windows();
      press(key);
      if (!eventually([&] { return windows() > before; })) return false;
    }
    return true;
  }
  // The place of the window in front, as the desktop tells it.
  static std::string place() { return runProgram({"xdotool", "getactivewindow", "getwindowgeometry"}).out; }
  static void type(const std::string& text) { runProgram({"xdotool", "type", "--delay", "1", text}); }
  // Names a file in the dialog in front. On a busy machine its list of completions may take the Return.
  static bool names(const std::string& title, const std::string& file) {
    return eventually([&] {
      if (!comesNow(title)) return true;
      press("ctrl+a");
      type(file);
      press("Return");
      constexpr int kMostLooks = 50;  // while it closes
      for (int i = 0; i < kMostLooks && comesNow(title); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
      return !comesNow(title);
    });
  }

  bool ends() {
    const bool ended = eventually([&] { return ::waitpid(program_, &status_, WNOHANG) == program_; });
    if (ended) program_ = 0;
    return ended;
  }

  ScratchFolder home_;
  ScratchFolder work_;
  Screen screen_;
  std::string video_;
  pid_t program_ = 0;
  int status_ = 0;
};

}  // namespace kvo::test
