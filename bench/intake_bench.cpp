// The window while files are added: bench_intake KVO5 FOLDER. The program is given the folder by a second
// copy, as by a file manager, and is asked all the time until it shows a clip.
#include "asked_program.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv) {
  using kvo::bench::AskedProgram;
  const QCoreApplication application(argc, argv);
  if (argc != 3) return 2;
  AskedProgram program(argv[1], {});
  if (!AskedProgram::isThere()) return 1;
  const auto added = AskedProgram::Clock::now();
  QProcess::startDetached(argv[1], {argv[2]});
  const bool shows = program.askUntil([](bool canPlay) { return canPlay; });
  const double whole = AskedProgram::milliseconds(added) / 1000;
  std::printf(
      "  window: %s after %.2f s; asked %zu times, it answered within %.1f ms mostly, 99 of 100 within "
      "%.1f ms, always within %.1f ms\n",
      shows ? "all added" : "GAVE UP", whole, program.asked(), program.within(0.5), program.within(0.99),
      program.within(1));
  return shows ? 0 : 1;
}
