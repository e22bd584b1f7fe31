#include "program/collection_commands.h"

#include "support/program_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;
using Words = std::vector<std::string>;

/// A program that runs with a collection of one clip; others stand beside it.
struct RunningBench : ProgramBench {
  RunningBench() {
    saveCollection("/c/other.INI", {"o.avi"});
    saveCollection("/c/big.Ini", Words(20, "c.avi"));
    start({"a.avi"});
  }
};

TEST(CollectionCommands, OpenReadsTheFileOnceAndTellsHowFarItIsWhileItReads) {
  RunningBench b;
  const auto shown = [&] {
    return b.window.progress.status + ", " + std::to_string(b.window.list.Fillist.rows().size()) + "\n";
  };
  std::string all;
  b.loop.onYield = [&] {
    all += shown();
    EXPECT_EQ(b.window.progress.abortText, "Click to abort the load");
  };
  b.files.reads = 0;
  EXPECT_TRUE(b.commands.openFile("/c/big.Ini"));
  EXPECT_EQ(all,
            "Loading.. Please Wait, 1\nLoading Clip 5 of 20, 0\nLoading Clip 10 of 20, 0\nLoading Clip 15 of "
            "20, 0\n"
            "Loading Clip 20 of 20, 0\nPlease Wait \r\nAnalysing Collection, 0\n")
      << "the list is empty once it is a collection";
  EXPECT_EQ(b.files.reads, 2) << "and what was written back is looked at";
  EXPECT_EQ(shown() + b.window.progress.abortText, ", 20\n");
}

// Stopped by a click, or taken back at a missing file: at start as later, from the menu or elsewhere.
TEST(CollectionCommands, WhatWasReadInPartBearsNoFilesNameAndIsNotLostUnasked) {
  enum Road { Clicked, TakenBack, AtStart };
  for (const auto road : {Clicked, TakenBack, AtStart}) {
    RunningBench running;
    ProgramBench starting;
    ProgramBench& b = road == AtStart ? starting : running;
    for (const auto* path : {"/c/Trip.INI", "/prog/KVO5.INI"})
      b.saveCollection(path, {"a.avi", "b.avi", "c.avi", "d.avi", "gone.avi"});
    if (road != Clicked) b.files.all.erase("/v/gone.avi");
    const auto before = b.files.all;
    b.boxes.answers = {Answer::Cancel};
    b.loop.onYield = [&] { b.window.progress.abortClicked = road == Clicked; };
    EXPECT_TRUE(road == AtStart ? b.startUp.run({}, "/") == StartEnd::Run
                                : b.commands.openFile("/c/Trip.INI"));
    EXPECT_EQ(b.initials(), "abcd");
    EXPECT_EQ(b.collection.IniFullPath, "/prog/Untitled.INI");
    EXPECT_TRUE(b.recent.paths().empty() || b.recent.paths()[0] != "/c/Trip.INI");
    b.loop.onYield = [] {};
    b.boxes.answers = {Answer::Cancel, Answer::No};
    EXPECT_FALSE(b.shutDown.exit()) << "it is asked about before it goes";
    EXPECT_TRUE(b.shutDown.exit());
    EXPECT_EQ(b.files.all, before);
  }
}

TEST(CollectionCommands, NothingPassesWhileACommandRuns) {
  RunningBench b;
  int tried = 0;
  const auto tryAll = [&] {
    if (b.dialogs.asked.size() > 20 || ++tried > 20) return;  // an open gate would go on without end
    const auto all = [&] {
      return std::tuple{b.collection.MovieList.count(), b.boxes.shown.size(), b.dialogs.asked.size()};
    };
    const auto before = all();
    b.dialogs.answers = {"/c/other.INI", "/c/other.INI"};
    EXPECT_FALSE(b.commands.New() || b.commands.Open() || b.commands.Save());
    EXPECT_FALSE(b.commands.openFile("/c/other.INI") || b.shutDown.exit());
    auto& progress = b.window.progress;
    EXPECT_EQ(progress.abortClicked, !progress.abortText.empty()) << "later work is not asked to stop";
    progress.abortClicked = false;
    b.listCommands.Removeit();
    b.history.undo();
    b.mailbox.takeFiles({"/v/a.avi"});
    b.handover.mailbox = "/v/a.avi";
    b.loop.advance(200);
    b.handover.mailbox.reset();
    EXPECT_EQ(all(), before);
    b.dialogs.answers.clear();
  };
  const auto tryOnce = [&] {
    if (tried == 0) tryAll();
  };
  b.loop.onYield = tryAll;
  EXPECT_TRUE(b.commands.openFile("/c/big.Ini"));
  EXPECT_GT(std::exchange(tried, 0), 3) << "a load";

  b.dialogs.answers = {"/c/copy.INI"};
  b.loop.onYield = b.boxes.whileShown = tryOnce;
  EXPECT_TRUE(b.commands.Save());
  EXPECT_EQ(std::exchange(tried, 0), 1) << "a save";

  b.listCommands.moveDown();
  for (const bool exits : {false, true}) {
    b.boxes.answers = {Answer::Cancel};
    EXPECT_FALSE(exits ? b.shutDown.exit() : b.commands.New());
    EXPECT_EQ(std::exchange(tried, 0), 1) << "a box";
  }
  EXPECT_TRUE(b.commands.openFile("/c/other.INI")) << "and the gate is open again";
}

TEST(CollectionCommands, SaveTakesTheNameAndTellsOfFailure) {
  RunningBench b;
  b.clip(1).Volume(3);
  const auto saveAs = [&](const char* path) {
    b.dialogs.answers = {path};
    return b.commands.Save();
  };
  EXPECT_FALSE(saveAs("/c/x.txt") || b.files.exists("/c/x.txt"));
  b.files.unwritable = {"/prog/"};
  for (const auto* folder : {"/prog/", "/u/Videos/"}) {  // before the user has any, and then
    b.commands.Save();
    EXPECT_EQ(b.dialogs.asked.back().folder, folder);
    b.desktop.videos = "/u/Videos";
  }

  b.files.failedReplaces = 1;
  EXPECT_FALSE(saveAs("/c/Mine.INI"));
  EXPECT_EQ(b.boxes.shown.back().caption, "KVO - Error - Collection not saved");
  EXPECT_TRUE(b.dirty()) << "it can be tried again";

  b.files.all["/c/Taken.INI"] = "what stands there";
  b.boxes.answers = {Answer::No};
  EXPECT_FALSE(saveAs("/c/Taken")) << "a name that gets its extension is asked about";
  EXPECT_EQ(b.boxes.shown.back().buttons, BoxButtons::YesNo);
  EXPECT_EQ(b.files.all["/c/Taken.INI"], "what stands there");
  b.boxes.answers = {Answer::Yes};
  EXPECT_TRUE(saveAs("/c/Taken"));
  EXPECT_EQ(b.window.list.caption, "Taken Collection");
  EXPECT_EQ(b.collection.IniFullPath, "/c/Taken.INI");
  EXPECT_FALSE(b.dirty());
  b.commands.Save();
  EXPECT_EQ(b.dialogs.asked.back().folder, "/c/") << "and starts there the next time";
}

TEST(CollectionCommands, AFileThatTheUserHasChosenIsSavedToAgain) {
  RunningBench b;
  const auto asks = [&] {
    const auto before = b.dialogs.asked.size();
    b.commands.saveAgain();
    return b.dialogs.asked.size() > before;
  };
  EXPECT_TRUE(asks()) << "the one that each start begins with";
  b.dialogs.answers = {"/c/Mine.INI"};
  EXPECT_TRUE(b.commands.Save());
  b.clip(1).Volume(7);
  const auto first = b.files.all["/c/Mine.INI"];
  EXPECT_FALSE(asks());
  EXPECT_NE(b.files.all["/c/Mine.INI"], first);
  EXPECT_FALSE(b.dirty());
  b.files.all.erase("/c/Mine.INI");
  EXPECT_TRUE(asks()) << "it is gone";
  b.files.all["/prog/Untitled.INI"] = "another's";
  b.commands.New();
  EXPECT_TRUE(asks()) << "it has no name yet";
}

TEST(CollectionCommands, NewAsksAndEmpties) {
  RunningBench b;
  b.listCommands.Removeit();
  b.boxes.answers = {Answer::Cancel, Answer::No};
  EXPECT_FALSE(b.commands.New());
  EXPECT_EQ(b.boxes.shown.back().caption, "KVO - Save changes to Current Colllection");
  EXPECT_EQ(b.window.history.undo, "Undo remove a.avi");
  EXPECT_TRUE(b.commands.New());
  EXPECT_TRUE(b.collection.MovieList.empty() && b.window.emptyPane.visible);
  EXPECT_EQ(b.collection.IniName, "Untitled.INI");
  EXPECT_EQ(b.window.face.caption + "|" + b.window.list.caption, "New Collection|Untitled Collection");
  EXPECT_EQ(b.window.history.undo, "") << "of another collection";
}

TEST(CollectionCommands, TheLastNineCollectionsThatAreThereAreShown) {
  RunningBench b;
  Words paths;
  for (int i = 1; i <= 10; ++i) {
    paths.push_back("/c/" + std::to_string(i) + ".INI");
    b.saveCollection(paths.back(), {"a.avi"});
    EXPECT_TRUE(b.commands.openNamed(paths.back()));
  }
  b.files.all.erase(paths[4]);
  b.commands.openNamed(paths[2]);
  EXPECT_EQ(b.recent.paths(), (Words{"/c/3.INI", "/c/10.INI", "/c/9.INI", "/c/8.INI", "/c/7.INI", "/c/6.INI",
                                     "/c/4.INI", "/c/2.INI", "/c/1.INI"}));
}

}  // namespace
}  // namespace kvo
