// The program in a real window, on a screen of the test's own, driven as a user drives it.
#pragma once

#include "support/real_world.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

// A screen of the test's own, with a window manager. A window that came ahead of the manager would never be
// in front, so that the manager is waited for.
class Screen {
 public:
  Screen() {
    ::setenv("DISPLAY", (":" + server_.firstLine()).c_str(), 1);
    manager_.emplace(std::vector<std::string>{"openbox"});
    EXPECT_TRUE(eventually([] { return runProgram({"xdotool", "get_num_desktops"}).exitCode == 0; }));
  }

 private:
  Companion server_{{"Xvfb", "-displayfd", "1", "-screen", "0", "1366x768x24", "-nolisten", "tcp"}};
  std::optional<Companion> manager_;
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
    if (program_ && !program_->hasEnded()) program_->signal(SIGKILL);
  }

  void start(const std::vector<std::string>& arguments = {}) {
    std::vector<std::string> command{KVO_PROGRAMS "/kvo5"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    program_.emplace(command);
  }

  // True when a window whose name holds `name` has the keys: in front, by the window manager, and with the
  // keyboard, which follows a little later.
  static bool comesNow(const std::string& name) {
    const auto has = [&](const char* which) {
      return runProgram({"xdotool", which, "getwindowname"}).out.find(name) != std::string::npos;
    };
    return has("getactivewindow") && has("getwindowfocus");
  }
  static testing::AssertionResult comes(const std::string& name) {
    if (eventually([&] { return comesNow(name); })) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "in front: " << runProgram({"xdotool", "getactivewindow", "getwindowname"}).out
           << "with the keys: " << runProgram({"xdotool", "getwindowfocus", "getwindowname"}).out;
  }

  // Keys, blanks between.
  static void press(const std::string& keys) {
    std::vector<std::string> command{"xdotool", "key"};
    std::istringstream each(keys);
    for (std::string key; each >> key;) command.push_back(key);
    runProgram(command);
  }
  // Keys that bring the window or the caption `name`, pressed again until it has come: the desktop tells of
  // the window behind it ahead of the program, which hears no key while a clip is loaded.
  static testing::AssertionResult brings(const std::string& keys, const std::string& name) {
    for (int tries = 0; tries < 20; ++tries) {
      press(keys);
      if (eventually([&] { return comesNow(name); }, std::chrono::seconds(5))) break;
    }
    return comes(name);
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
      return eventually([&] { return !comesNow(title); }, std::chrono::seconds(3));  // while it closes
    });
  }

  // With this exit code.
  [[nodiscard]] bool ends(int exitCode = 0) {
    return eventually([&] { return program_->hasEnded(); }) && program_->end() == exitCode;
  }

  ScratchFolder home_;
  ScratchFolder work_;
  Screen screen_;
  std::string video_;
  std::optional<Companion> program_;
};

}  // namespace kvo::test
