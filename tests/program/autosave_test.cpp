// What has not been saved outlives the program.
#include "program/autosave.h"

#include "adapters/posix/posix_files.h"
#include "support/program_bench.h"
#include "support/real_world.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <random>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::holds;
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
  // What is to be kept may have been written before the second is over.
  void look() {
    const int before = loop.home;
    loop.advance(1000);
    if (dirty() && loop.home == before) loop.workComesHome();
  }

  Autosave autosave{{files, boxes, loop, folder, log, settings, collection, window, commands}};
};

TEST(Autosave, KeepsWhatIsNotSavedAsLongAsItIsNot) {
  KeptBench b;
  b.autosave.begin();
  const auto file = b.files.all["/c/Holiday.INI"];
  b.look();
  EXPECT_FALSE(b.files.exists(kKept));
  b.listCommands.rename("Beach");
  b.look();
  const auto kept = b.files.all[kKept];
  EXPECT_TRUE(holds(kept, "Beach"));
  b.listCommands.rename("Hills");
  b.window.progress.status = "Loading";
  b.loop.advance(3000);
  EXPECT_EQ(b.files.all[kKept], kept) << "not half of a load";
  b.window.progress.status.clear();
  b.look();
  EXPECT_TRUE(holds(b.files.all[kKept], "Hills"));
  b.settings.change().PreviewCPU = 9;
  b.look();
  EXPECT_TRUE(holds(b.files.all[kKept], "PreviewCPU"));
  EXPECT_EQ(b.files.all["/c/Holiday.INI"], file) << "the user's file stays";

  b.dialogs.answers = {"/c/Holiday.INI"};
  EXPECT_TRUE(b.commands.Save());
  b.loop.advance(1000);
  EXPECT_FALSE(b.files.exists(kKept)) << "all is saved";
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
    EXPECT_EQ(b.collection.IniFullPath + " " + b.initials(),
              restored ? "/c/Holiday.INI Bb" : "/prog/KVO5.INI x");
    EXPECT_EQ(b.dirty(), restored);
    EXPECT_EQ(b.collection.isPortable, restored);
    EXPECT_EQ(b.files.all[restored ? kKept : "/prog/Autosave.INI.old"], kept);
    EXPECT_EQ(b.files.exists(kKept), restored);
    EXPECT_EQ(b.files.all["/c/Holiday.INI"], file) << "nothing replaces it but the user";
  }
}

TEST(Autosave, NothingPutAsideIsLostAndAFailedWriteIsTriedAgain) {
  for (const auto& [kept, answer] :
       {std::pair{"one more", Answer::No}, std::pair{"no collection [Autosave]\r\nFile= /x", Answer::Yes}}) {
    KeptBench b;
    b.files.all["/prog/Autosave.INI.old"] = "an earlier one";
    b.files.all[kKept] = kept;
    b.boxes.answers = {answer};
    b.autosave.begin();
    EXPECT_EQ(b.collection.IniFullPath, "/c/Holiday.INI") << "what is damaged is no other collection";
    EXPECT_EQ(b.files.all["/prog/Autosave.INI.old"], "an earlier one");
    EXPECT_EQ(b.files.all["/prog/Autosave.INI.old2"], kept);
    EXPECT_FALSE(b.files.exists(kKept));
    b.look();
    b.listCommands.rename("Beach");
    b.files.failedReplaces = 2;
    b.look();
    b.look();
    EXPECT_FALSE(b.files.exists(kKept));
    b.look();
    EXPECT_TRUE(holds(b.files.all[kKept], "Beach"));
  }
}

// Edits fifty times a second, and saves now and then, until the process is killed. What has been done stands
// in the names of the one clip: the milliseconds of the clock at each edit. The clock is the one that the
// autosave looks by, and stands while the disk has not taken what it wanted in the last second, so that
// nothing here goes by how busy the machine is.
[[noreturn]] void editForEver(const std::string& folder) noexcept {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  PosixFiles files;
  test::VirtualLoop loop;
  ProgramBench b;
  const ProgramFolder home(folder);
  b.addVideo("a.avi", 0, 5);
  b.list.fill();
  b.collection.IniFullPath = folder + "/user.INI";
  CollectionStore store(files, b.clock, b.boxes, b.log, home, b.settings, b.collection);
  Autosave autosave({files, b.boxes, loop, home, b.log, b.settings, b.collection, b.window, b.commands});
  autosave.begin();
  for (int edits = 1;; ++edits) {
    const auto now = std::to_string(loop.now().count());
    b.history.change(CommandPass(b.window), "edit", 1, [&] { b.clip(1).AltName(now); });
    static_cast<void>(files.append(folder + "/edits", now + "\n"));
    if (edits % 40 == 0) {
      store.WriteINI(folder, "user.INI", true);
      b.settings.state.IsDirty = true;
    }
    while (edits % 50 == 0 && loop.home < edits / 50 - 1) {
      if (!loop.workComesHome()) std::_Exit(1);
    }
    usleep(2000);
    loop.advance(20);
  }
}

// The time behind "AltName" in a file.
long editIn(const std::string& text) {
  const auto at = text.find("AltName");
  return at == std::string::npos ? 0 : std::stol(text.substr(text.find("= ", at) + 2));
}

// A process in a folder of its own, which are both gone with the object.
class Edits {
 public:
  Edits() : process_(fork()) {
    if (process_ == 0) editForEver(folder_.path());
  }
  Edits(const Edits&) = delete;
  Edits& operator=(const Edits&) = delete;
  ~Edits() { end(); }

  void end() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(std::exchange(process_, 0), nullptr, 0);
  }
  /// Waits until its clock has come to `time`. False when it has ended by itself.
  bool reaches(long time) {
    while (lastEdit() < time) {
      if (waitpid(process_, nullptr, WNOHANG) != 0) return process_ = 0, false;
      usleep(1000);
    }
    return true;
  }
  [[nodiscard]] long lastEdit() const {
    const auto edits = read("edits");
    return edits.size() < 2 ? 0 : std::stol(edits.substr(edits.rfind('\n', edits.size() - 2) + 1));
  }
  [[nodiscard]] std::string read(const char* name) const { return test::bytesOf(folder_ / name); }
  [[nodiscard]] std::string path(const char* name) const { return folder_ / name; }

 private:
  test::ScratchFolder folder_;
  pid_t process_;
};

// What a killed process leaves is whole, and offered.
void expectLittleIsLost(const Edits& edits) {
  const auto kept = edits.read("Autosave.INI");
  EXPECT_LE(edits.lastEdit() - editIn(kept), 3000);
  KeptBench b;
  b.files.all[kKept] = kept;
  b.boxes.answers = {Answer::Yes};
  b.autosave.begin();
  EXPECT_EQ(b.collection.IniFullPath, edits.path("user.INI"));
  EXPECT_EQ(b.collection.MovieList.count(), 1);
  b.files.all["/c/user.INI"] = edits.read("user.INI");
  EXPECT_EQ(b.file.ReadINI("/c/user.INI", {.mayRewrite = false, .keepMissingClips = true}).end,
            ReadEnd::Done);
  EXPECT_EQ(b.collection.MovieList.count(), 1);
}

// KVO_KILLS in the environment asks for more of them.
TEST(Autosave, AKillCostsThreeSecondsAtMostAndNeverTheUsersFile) {
  constexpr int kAtOnce = 4;
  const auto* asked = std::getenv("KVO_KILLS");
  std::mt19937 random(7);
  for (int left = asked != nullptr ? std::stoi(asked) : kAtOnce; left > 0; left -= kAtOnce) {
    std::array<Edits, kAtOnce> all;
    for (auto& edits : all) {
      ASSERT_TRUE(edits.reaches(std::uniform_int_distribution(5'000, 8'000)(random))) << "nothing was kept";
      usleep(std::uniform_int_distribution<useconds_t>(0, 100'000)(random));
      edits.end();
      expectLittleIsLost(edits);
    }
  }
}

}  // namespace
}  // namespace kvo
