// What has not been saved outlives the program.
#include "program/autosave.h"

#include "adapters/posix/poll_loop.h"
#include "adapters/posix/posix_files.h"
#include "support/program_bench.h"
#include "support/real_world.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;

constexpr const char* kKept = "/prog/Autosave.INI";

/// The program on a collection of its own file, with the autosave that it begins with.
struct KeptBench : ProgramBench {
  KeptBench() {
    saveCollection("/prog/KVO5.INI", {"x.avi"});
    saveCollection("/c/Holiday.INI", {"a.avi", "b.avi"});
    commands.openFile("/c/Holiday.INI");
  }
  /// The files of another run.
  explicit KeptBench(const KeptBench& earlier) {
    files.all = earlier.files.all;
    store.all = earlier.store.all;
    startUp.run({}, "/");
  }
  void look() {
    loop.advance(1000);
    if (isDirty(collection, settings)) loop.workComesHome();
  }

  Autosave autosave{{files, boxes, loop, folder, log, settings, collection, window, commands}};
};

TEST(Autosave, KeepsWhatIsNotSavedAsLongAsItIsNot) {
  KeptBench b;
  b.autosave.begin();
  const auto file = b.files.all["/c/Holiday.INI"];
  b.look();
  EXPECT_FALSE(b.files.exists(kKept)) << "all is saved";
  b.listCommands.rename("Beach");
  b.look();
  const auto kept = b.files.all[kKept];
  EXPECT_TRUE(kept.find("Beach") != std::string::npos);
  b.listCommands.rename("Hills");
  b.window.progress.status = "Loading";
  b.loop.advance(3000);
  EXPECT_EQ(b.files.all[kKept], kept) << "not half of a load";
  b.window.progress.status.clear();
  b.look();
  EXPECT_TRUE(b.files.all[kKept].find("Hills") != std::string::npos);
  b.settings.change().PreviewCPU = 9;
  b.look();
  EXPECT_TRUE(b.files.all[kKept].find("PreviewCPU") != std::string::npos);
  EXPECT_EQ(b.files.all["/c/Holiday.INI"], file) << "the user's file stays";

  b.dialogs.answers = {"/c/Holiday.INI"};
  EXPECT_TRUE(b.commands.Save());
  b.loop.advance(1000);
  EXPECT_FALSE(b.files.exists(kKept));
  b.listCommands.rename("Lake");
  b.look();
  EXPECT_TRUE(b.files.exists(kKept));
  b.autosave.end();
  EXPECT_FALSE(b.files.exists(kKept)) << "the user has been asked by then";
}

TEST(Autosave, OffersWhatAnEarlierRunHasLeft) {
  for (const auto answer : {Answer::Yes, Answer::No}) {
    KeptBench earlier;
    earlier.autosave.begin();
    earlier.collection.isPortable = true;
    earlier.listCommands.rename("Beach");
    earlier.look();
    const auto kept = earlier.files.all[kKept];
    const auto file = earlier.files.all["/c/Holiday.INI"];

    KeptBench b(earlier);
    b.boxes.answers = {answer};
    b.autosave.begin();
    EXPECT_EQ(b.boxes.shown.back().text,
              "KVO5 ended before the changes of 'Holiday.INI' were saved.\r\nThey have been kept.");
    const bool restored = answer == Answer::Yes;
    EXPECT_EQ(b.collection.IniFullPath, restored ? "/c/Holiday.INI" : "/prog/KVO5.INI");
    EXPECT_EQ(isDirty(b.collection, b.settings), restored);
    EXPECT_EQ(b.collection.isPortable, restored);
    if (restored) {
      EXPECT_EQ(b.names(), (std::vector<std::string>{"Beach", "b.avi"}));
    }
    EXPECT_EQ(b.files.all[restored ? kKept : "/prog/Autosave.INI.old"], kept);
    EXPECT_EQ(b.files.exists(kKept), restored);
    EXPECT_EQ(b.files.all["/c/Holiday.INI"], file) << "nothing replaces it but the user";
  }
}

TEST(Autosave, AKeptFileThatIsDamagedIsPutAside) {
  KeptBench earlier;
  earlier.files.all[kKept] = "no collection [Autosave]\r\nFile= /x";
  KeptBench b(earlier);
  b.boxes.answers = {Answer::Yes, Answer::Ok};
  b.autosave.begin();
  EXPECT_EQ(b.collection.IniFullPath, "/prog/KVO5.INI");
  EXPECT_TRUE(b.files.exists("/prog/Autosave.INI.old"));
  EXPECT_FALSE(b.files.exists(kKept));
}

TEST(Autosave, AFailedWriteIsTriedAgainAndNothingPutAsideIsLost) {
  KeptBench b;
  b.files.all["/prog/Autosave.INI.old"] = "an earlier one";
  b.files.all[kKept] = "one more";
  b.boxes.answers = {Answer::No};
  b.autosave.begin();
  EXPECT_EQ(b.files.all["/prog/Autosave.INI.old"], "an earlier one");
  EXPECT_EQ(b.files.all["/prog/Autosave.INI.old2"], "one more");
  b.look();
  b.listCommands.rename("Beach");
  b.files.failedReplaces = 2;
  b.look();
  b.look();
  EXPECT_FALSE(b.files.exists(kKept));
  b.look();
  EXPECT_TRUE(b.files.all[kKept].find("Beach") != std::string::npos);
}

// A process that edits, and saves now and then, until it is killed. What it has done stands in the names of
// the one clip: the milliseconds of the clock at each edit.
[[noreturn]] void editForEver(const std::string& folder) {
  PosixFiles files;
  PollLoop loop;
  ProgramBench b;
  const ProgramFolder home(folder);
  b.addVideo("a.avi", 0, 5);
  b.list.fill();
  b.collection.IniFullPath = folder + "/user.INI";
  CollectionStore store(files, b.clock, b.boxes, b.log, home, b.settings, b.collection);
  Autosave autosave({files, b.boxes, loop, home, b.log, b.settings, b.collection, b.window, b.commands});
  autosave.begin();
  int edits = 0;
  const auto now = [&] { return std::to_string(loop.now().count()); };
  const auto edit = loop.timer([&] {
    b.history.change(CommandPass(b.window), "edit", 1, [&] { b.collection.MovieList[1].AltName(now()); });
    static_cast<void>(files.append(folder + "/edits", now() + "\n"));
    if (++edits % 40 != 0) return;
    store.WriteINI(folder, "user.INI", true);
    b.settings.state.IsDirty = true;
  });
  edit->start(20);
  loop.run();
  std::_Exit(0);
}

// The time behind "AltName" in a file.
long editIn(const std::string& text) {
  const auto at = text.find("AltName");
  return at == std::string::npos ? 0 : std::stol(text.substr(text.find("= ", at) + 2));
}

// A process that was killed, by the folder that it worked in: what it leaves is whole, and offered.
void expectLittleIsLost(const std::string& folder) {
  const PosixFiles files;
  const auto read = [&](const char* name) {
    const auto bytes = files.read(folder + "/" + name, 1U << 24U);
    return bytes ? *bytes : std::string();
  };
  const auto edits = read("edits");
  ASSERT_GT(edits.size(), 2U);
  const long last = std::stol(edits.substr(edits.rfind('\n', edits.size() - 2) + 1));
  const auto kept = read("Autosave.INI");
  EXPECT_LE(last - editIn(kept), 3000);
  KeptBench b;
  b.files.all[kKept] = kept;
  b.boxes.answers = {Answer::Yes};
  b.autosave.begin();
  EXPECT_EQ(b.collection.IniFullPath, folder + "/user.INI");
  EXPECT_EQ(b.collection.MovieList.count(), 1);
  if (!files.exists(folder + "/user.INI")) return;
  b.files.all["/c/user.INI"] = read("user.INI");
  EXPECT_EQ(b.file.ReadINI("/c/user.INI", {.mayRewrite = false, .keepMissingClips = true}).end,
            ReadEnd::Done);
  EXPECT_EQ(b.collection.MovieList.count(), 1);
}

// KVO_KILLS in the environment asks for more of them.
TEST(Autosave, AKillCostsThreeSecondsAtMostAndNeverTheUsersFile) {
  constexpr int kAtOnce = 12;
  const auto* asked = std::getenv("KVO_KILLS");
  std::mt19937 random(7);
  for (int left = asked != nullptr ? std::stoi(asked) : kAtOnce; left > 0; left -= kAtOnce) {
    struct Run {
      pid_t process = 0;
      test::ScratchFolder folder;
    };
    std::array<Run, kAtOnce> runs;
    for (auto& run : runs) {
      run.process = fork();
      if (run.process == 0) editForEver(run.folder.path());
    }
    usleep(1'500'000);
    for (const auto& run : runs) {
      usleep(std::uniform_int_distribution<useconds_t>(0, 250'000)(random));
      kill(run.process, SIGKILL);
      waitpid(run.process, nullptr, 0);
      expectLittleIsLost(run.folder.path());
    }
  }
}

}  // namespace
}  // namespace kvo
