// The program: with its window, or, by a long option, without a screen.
#include "adapters/posix/console_boxes.h"
#include "adapters/posix/posix_temporary_folders.h"
#include "app/add_command.h"
#include "app/commands.h"
#include "app/companions.h"
#include "app/known_files.h"
#include "app/look_command.h"
#include "app/queue_command.h"
#include "app/sketch_command.h"
#include "app/window_program.h"
#include "base/paths.h"
#include "media/media_facts.h"
#include "render/engine_protocol.h"
#include "render/system_profile.h"
#include "sketches/sketch_folder.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

namespace {

std::string environment(const char* name) {
  const char* text = std::getenv(name);
  if (text != nullptr) return text;
  // A user whose environment tells no home has one all the same.
  const auto* user = std::strcmp(name, "HOME") == 0 ? ::getpwuid(::getuid()) : nullptr;
  return user == nullptr || user->pw_dir == nullptr ? std::string() : std::string(user->pw_dir);
}

// The program folder, or, where that cannot be written, the folder of what the program ships with: enough for
// work that only reads.
kvo::ProgramFolder folderToRead(const std::string& beside) {
  const auto shipped = beside + "../share/kvo5";
  const auto folder = kvo::findProgramFolder(environment, beside);
  kvo::PosixFiles files;
  return kvo::prepareProgramFolder(files, folder, shipped) ? folder : kvo::ProgramFolder(shipped);
}

// What was printed has to arrive.
int afterPrinting(int code) {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return code;
  return code == kvo::kExitDone ? kvo::fail("cannot write the output") : code;
}

// Where the program was started with a standard stream closed, no file of its own may take that number.
// Opened to read, it tells of every write.
void keepStandardNumbers() {
  for (int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(number, F_GETFD) == -1) static_cast<void>(::open("/dev/null", O_RDONLY));
  }
}

// What the files hold is known to the window then, too.
int addAndKeep(kvo::Session& session, const kvo::CommandLine& line, const std::string& beside) {
  const auto cache = kvo::sketchesFolder(environment);
  kvo::rememberFiles(session.streams, session.files, cache);
  const int code = kvo::runAdd(session, line, beside);
  if (session.streams.hasNews()) kvo::keepFiles(session.streams, session.files, cache);
  return code;
}

int run(const kvo::CommandLine& line) {
  kvo::media::silenceRemarks();
  kvo::PosixTemporaryFolders().sweep();
  const auto beside = kvo::withSeparator(kvo::executableFolder());
  kvo::ConsoleBoxes boxes;
  kvo::Session session(folderToRead(beside), boxes);
  kvo::SystemProfile({session.files, session.nameLocks, session.folder, boxes}).mend();
  switch (line.task) {
    case kvo::Task::Render:
      return kvo::runRender(session, line, beside + "KVORender");
    case kvo::Task::Queue:
      return kvo::runQueue(session, line, beside + "KVORender");
    case kvo::Task::Add:
      return addAndKeep(session, line, beside);
    case kvo::Task::Check:
      return kvo::runCheck(session, line);
    default:
      return kvo::runDocument(session, line);
  }
}

int failWithoutDisplay() {
  return kvo::fail("there is no display to show a window on; see kvo5 --help for what works without one");
}

int runWindow(int argc, char** argv) {
  kvo::media::silenceRemarks();
  kvo::PosixTemporaryFolders().sweep();
  if (!kvo::hasDisplay()) return failWithoutDisplay();
  const auto beside = kvo::withSeparator(kvo::executableFolder());
  return kvo::runWindow(argc, argv, kvo::findProgramFolder(environment, beside), beside,
                        kvo::placesFile(environment), kvo::sketchesFolder(environment));
}

}  // namespace

int main(int argc, char** argv) {
  keepStandardNumbers();
  ::unsetenv(
      kvo::kProfileVariable);  // the engines that this program starts are told of a profile by it alone
  if (!kvo::isConsoleCommand({argv + 1, argv + argc})) return runWindow(argc, argv);
  const auto line = kvo::readCommandLine({argv + 1, argv + argc});
  if (!line) return kvo::fail(line.error().text, kvo::kExitUsage);
  switch (line->task) {
    case kvo::Task::Help:
      std::fputs(std::string(kvo::helpText()).c_str(), stdout);
      return afterPrinting(kvo::kExitDone);
    case kvo::Task::Version:
      std::puts("KVO5 " KVO_VERSION);
      return afterPrinting(kvo::kExitDone);
    case kvo::Task::Presets:
      return afterPrinting(kvo::runPresets());
    case kvo::Task::Look:
      return kvo::runLook();
    case kvo::Task::Sketch:
      return kvo::runSketch(kvo::sketchesFolder(environment));
    case kvo::Task::Gallery:
      return kvo::hasDisplay() ? kvo::runGallery(argc, argv) : failWithoutDisplay();
    default:
      return afterPrinting(run(*line));
  }
}
