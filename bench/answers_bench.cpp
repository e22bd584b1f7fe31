// How long the window does not answer, act by act: bench_answers KVO5 COLLECTION ACTS. A line of the file
// ACTS is the act's name, a tab, and what the shell does for it. For each it is told how long the program
// left the longest question unanswered, and what the act cost it.
#include "asked_program.h"

#include <QCoreApplication>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace {

using kvo::bench::AskedProgram;

constexpr int kTimesAhead = 13;  // fields of /proc/PID/stat ahead of its two times

// Seconds that a process has had of the processor.
double cpuSeconds(qint64 id) {
  std::ifstream file("/proc/" + std::to_string(id) + "/stat");
  std::string field;
  for (int i = 0; i < kTimesAhead; ++i) file >> field;
  double user = 0, system = 0;
  file >> user >> system;
  return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

// Asks while the shell carries the act out.
void measure(AskedProgram& program, const std::string& name, const std::string& act) {
  program.forget();
  const double before = cpuSeconds(program.id());
  std::atomic<bool> isDone = false;
  std::jthread hand([&] {
    if (std::system(act.c_str()) != 0) std::fprintf(stderr, "%s: the shell failed\n", name.c_str());
    isDone = true;
  });
  program.askUntil([&](bool) { return isDone.load(); });
  std::printf(
      "  %-34s %6.1f ms at the longest, %5.1f ms of them its own work; %5.1f ms 99 of 100; %5.2f s of CPU\n",
      name.c_str(), program.within(1), program.longestWork(), program.within(0.99),
      cpuSeconds(program.id()) - before);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc != 4) return 2;
  AskedProgram program(argv[1], {argv[2]});
  if (!AskedProgram::isThere()) return 1;
  std::ifstream acts(argv[3]);
  for (std::string line; std::getline(acts, line);) {
    std::istringstream parts(line);
    std::string name, act;
    if (std::getline(parts, name, '\t') && std::getline(parts, act)) measure(program, name, act);
  }
  return 0;
}
