#include "adapters/posix/starter_watch.h"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <mutex>
#include <sstream>
#include <string>
#include <sys/prctl.h>
#include <unistd.h>

namespace kvo {
namespace {

constexpr auto kStarterEvery = std::chrono::milliseconds(200);

// What /proc/PID/stat tells behind the name, which stands in parentheses and may hold some itself: a letter
// for the state, and the parent's number. Empty for a process that is gone.
std::string statOf(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string line;
  std::getline(file, line);
  const auto name = line.rfind(") ");
  return name == std::string::npos ? std::string() : line.substr(name + 2);
}

bool isStopped(pid_t process) { return statOf(process).starts_with('T'); }

// Whether `starter` is this process's parent, or the parent of the shell that is its parent.
bool stands(pid_t starter) {
  const auto parent = ::getppid();
  if (parent == starter) return true;
  std::istringstream words(statOf(parent));
  char state = 0;
  pid_t above = 0;
  words >> state >> above;
  return above == starter;
}

[[noreturn]] void endWithout(const char* why) {
  std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, why);
  ::_exit(1);
}

void watch(const std::stop_token& stop, pid_t starter) {
  std::mutex mutex;
  std::condition_variable_any changed;
  std::unique_lock lock(mutex);
  // A stop of the whole group, as by Ctrl-Z, stops this thread too; whoever goes on first may see the other
  // still standing, so one look is not enough.
  bool stoodStill = false;
  while (!stop.stop_requested()) {
    changed.wait_for(lock, stop, kStarterEvery, [] { return false; });
    if (stop.stop_requested()) return;
    if (!stands(starter)) endWithout("its starter has ended");
    const bool standsStill = isStopped(starter);
    if (standsStill && stoodStill) endWithout("its starter has been stopped");
    stoodStill = standsStill;
  }
}

}  // namespace

StarterWatch::StarterWatch(pid_t starter) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (!stands(starter)) endWithout("its starter has ended");
  thread_ = std::jthread([starter](const std::stop_token& stop) { watch(stop, starter); });
}

}  // namespace kvo
