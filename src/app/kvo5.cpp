// The program: with its window, or, by a long option, without a screen.
#include "app/commands.h"
#include "app/window_program.h"
#include "base/paths.h"
#include "media/media_facts.h"
#include "platform/posix/console_boxes.h"
#include "platform/posix/temporary_folder.h"

#include <cstdio>
#include <cstdlib>

namespace {

std::string environment(const char* name) {
  const char* text = std::getenv(name);
  return text == nullptr ? std::string() : std::string(text);
}

int run(const kvo::CommandLine& line) {
  kvo::media::silenceRemarks();
  kvo::TemporaryFolder::sweep();
  const auto beside = kvo::withSeparator(kvo::executableFolder());
  kvo::ConsoleBoxes boxes;
  kvo::Session session(kvo::findProgramFolder(environment, beside), boxes);
  if (auto done = session.prepareProgramFolder(beside + "../share/kvo5"); !done) {
    return kvo::fail(done.error().text);
  }
  switch (line.task) {
    case kvo::Task::Render:
      return kvo::runRender(session, line, beside + "KVORender");
    case kvo::Task::Check:
      return kvo::runCheck(session, line);
    default:
      return kvo::runDocument(session, line);
  }
}

int runWindow(int argc, char** argv) {
  kvo::media::silenceRemarks();
  kvo::TemporaryFolder::sweep();
  if (!kvo::hasDisplay()) {
    return kvo::fail("there is no display to show a window on; see kvo5 --help for what works without one");
  }
  const auto beside = kvo::withSeparator(kvo::executableFolder());
  return kvo::runWindow(argc, argv, kvo::findProgramFolder(environment, beside), beside);
}

}  // namespace

int main(int argc, char** argv) {
  if (!kvo::isConsoleCommand({argv + 1, argv + argc})) return runWindow(argc, argv);
  const auto line = kvo::readCommandLine({argv + 1, argv + argc});
  if (!line) return kvo::fail(line.error().text, kvo::kExitUsage);
  switch (line->task) {
    case kvo::Task::Help:
      std::fputs(std::string(kvo::helpText()).c_str(), stdout);
      return kvo::kExitDone;
    case kvo::Task::Version:
      std::puts("KVO5 " KVO_VERSION);
      return kvo::kExitDone;
    default:
      return run(*line);
  }
}
