// The program: what it can do without a screen.
#include "app/commands.h"
#include "base/paths.h"
#include "media/media_facts.h"

#include <cstdio>
#include <cstdlib>

namespace {

std::string environment(const char* name) {
  const char* text = std::getenv(name);
  return text == nullptr ? std::string() : std::string(text);
}

int run(const kvo::CommandLine& line) {
  kvo::media::silenceRemarks();
  const auto beside = kvo::withSeparator(kvo::executableFolder());
  kvo::Session session(kvo::findProgramFolder(environment, beside));
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

}  // namespace

int main(int argc, char** argv) {
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
