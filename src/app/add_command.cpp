#include "app/add_command.h"

#include "adapters/cdio/cdio_disc.h"
#include "adapters/posix/poll_loop.h"
#include "adapters/posix/stop_signals.h"
#include "app/clip_summary.h"
#include "app/console_render.h"
#include "app/known_files.h"
#include "app/look_command.h"
#include "base/paths.h"
#include "intake/add_clips.h"
#include "intake/batch_probe.h"
#include "intake/folders.h"
#include "intake/looking_process.h"
#include "program/start_command.h"

#include <filesystem>

namespace kvo {
namespace {

// What is said of a file, behind its name.
class NamedBoxes : public MessageBoxes {
 public:
  explicit NamedBoxes(MessageBoxes& boxes) : boxes_(boxes) {}

  void about(const std::string& name) { name_ = name; }
  Answer show(const Box& box) override {
    auto named = box;
    named.caption.insert(0, name_ + ": ");
    return boxes_.show(named);
  }
  StyledAnswer showStyled(const StyledBox& box) override { return boxes_.showStyled(box); }

 private:
  MessageBoxes& boxes_;
  std::string name_;
};

// A line for each clip that joins.
class ConsoleIntake : public IntakeHost {
 public:
  ConsoleIntake(Session& session, NamedBoxes& boxes) : session_(session), boxes_(boxes) {}

  void analysing(int /*number*/, int /*total*/, const std::string& name) override { boxes_.about(name); }
  bool stopped() override { return signals_.came(); }
  void analysed() override {}
  void added(int number) override {
    const auto& clip = session_.collection.MovieList[number];
    print("added " + clipFile(clip) + "\n");
    ++added_;
  }
  bool showInViewer(const std::string& /*file*/) override { return false; }

  [[nodiscard]] int count() const { return added_; }

 private:
  Session& session_;
  NamedBoxes& boxes_;
  StopSignals signals_;
  int added_ = 0;
};

// As in the window: with the preferences that the program starts with, its skin among them.
void begin(Session& session) {
  if (const auto own = session.folder.beside("\\KVO5.INI"); session.files.exists(own)) {
    static_cast<void>(session.open(own));
    session.collection.clearLists();
    session.collection.kind = CollectionKind::Plain;
    session.collection.isPortable = false;
  }
  if (session.settings.preferences().SkinPath.empty()) session.settings.adjust().SkinPath = "Def";
}

// The collection to add to; one that is not there is begun.
Outcome openOrBegin(Session& session, const std::string& path) {
  if (!namesCollection(path)) return Error{"cannot add to " + path + ": a collection ends in .INI"};
  if (!session.files.exists(path)) {
    begin(session);
    return {};
  }
  const auto report = session.open(path);
  if (!report) return report.error();
  if (report->damaged || report->unreadClips > 0 || report->unreadKeyframes > 0)
    return Error{"cannot add to " + path + ": it is damaged; open it in the program, which keeps a copy"};
  return {};
}

}  // namespace

int runAdd(Session& session, const CommandLine& line, const std::string& programs) {
  const auto here = std::filesystem::current_path().string();
  const auto path = absoluteName(line.collection, here);
  if (auto opened = openOrBegin(session, path); !opened) return fail(opened.error().text);
  std::vector<std::string> names;
  for (const auto& name : line.names) names.push_back(namedFile(name, session.files, here));

  PollLoop loop;
  NamedBoxes boxes(session.boxes);
  ConsoleIntake host(session, boxes);
  LookingProcess process({session.processes, loop, lookingProcess(programs)});
  TellingLooker looker(process, session.streams);
  CdioDisc disc;
  BatchProbe probe({session.files, session.processes, loop, session.clock, session.temporaryFolders,
                    programs + "KVOprop"});
  AddClips intake({session.files, session.clock, boxes, looker, disc, session.folder, probe, session.log,
                   session.settings, session.collection, host});
  names = withClipsOfFolders(names, session.files, [&] { return !host.stopped(); });
  if (names.empty() && !host.stopped()) {
    for (const auto& name : line.names) warn("no clip to add in " + name);
  }
  intake.add(names, {});
  if (host.count() > 0 &&
      !session.file.WriteINI(std::string(folderPart(path)), std::string(fileNamePart(path)), true))
    return fail("cannot write " + path);
  if (host.stopped()) return fail("stopped", kExitStopped);
  return host.count() == static_cast<int>(names.size()) && !names.empty() ? kExitDone : kExitFailed;
}

}  // namespace kvo
