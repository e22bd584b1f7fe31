#include "program/collection_commands.h"

#include "program/clip_list.h"
#include "support/program_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;

TEST(CollectionCommands, OpenRefusesWhatIsNoCollectionAndKeepsTheOpenOne) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi"});
  b.startUp.run({}, "/");
  b.files.all["/c/x.txt"] = b.files.all["/c/bad.ini"] = "hello";
  for (const auto& [path, caption, text] :
       {std::tuple{"/c/x.txt", "KVO Bad Collection Extension",
                   "Collections must have an INI extension. This show has NOT been loaded"},
        std::tuple{"/c/bad.ini", "Invalid Collection File", "This is not a valid KVO Collection File"}}) {
    b.dialogs.answers = {path};
    EXPECT_FALSE(b.commands.Open());
    EXPECT_EQ(b.boxes.shown.back().caption, caption);
    EXPECT_EQ(b.boxes.shown.back().text, text);
    EXPECT_EQ(b.window.list.Fillist.rows().size(), 1U);
    EXPECT_EQ(b.collection.IniName, "KVO5.INI");
  }
  EXPECT_EQ(b.dialogs.asked[0].title, "KVO - Open existing Collection");
}

TEST(CollectionCommands, OpenShowsHowFarItIsAndCanBeStopped) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {});
  b.startUp.run({}, "/");
  std::vector<std::string> names;
  for (int i = 1; i <= 20; ++i) names.push_back("c" + std::to_string(i) + ".avi");
  b.saveCollection("/c/big.Ini", names);
  const auto before = b.files.all["/c/big.Ini"];
  std::vector<std::string> statuses;
  std::string abortText;
  b.loop.onYield = [&] {
    statuses.push_back(b.window.progress.status);
    abortText = b.window.progress.abortText;
    if (b.window.progress.status == "Loading Clip 10 of 20") b.window.progress.abortClicked = true;
  };
  EXPECT_TRUE(b.commands.openFile("/c/big.Ini"));
  EXPECT_EQ(statuses, (std::vector<std::string>{"Loading.. Please Wait", "Loading Clip 5 of 20",
                                                "Loading Clip 10 of 20"}));
  EXPECT_EQ(abortText, "Click to abort the load");
  EXPECT_EQ(b.window.list.Fillist.rows().size(), 9U);
  EXPECT_EQ(b.window.progress.status + b.window.progress.abortText, "");
  EXPECT_EQ(b.files.all["/c/big.Ini"], before) << "what was not read is not lost";
  EXPECT_TRUE(isDirty(b.collection, b.settings)) << "and is asked about before anything replaces it";
  EXPECT_EQ(b.collection.IniName, "Untitled.INI") << "and a save does not offer the whole file's name";
  EXPECT_EQ(b.collection.IniFullPath, "/prog/Untitled.INI");
}

TEST(CollectionCommands, ALoadThatTheUserTookBackDoesNotBearTheFilesName) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi", "gone.avi"});
  b.saveCollection("/c/Trip.INI", {"a.avi", "gone.avi"});
  b.files.all.erase("/v/gone.avi");
  b.boxes.answers = {Answer::Cancel};
  b.startUp.run({}, "/");
  EXPECT_EQ(b.collection.IniName, "Untitled.INI");
  b.boxes.answers = {Answer::Cancel};
  b.commands.openFile("/c/Trip.INI");
  EXPECT_EQ(b.collection.IniName, "Untitled.INI");
}

TEST(CollectionCommands, NothingPassesWhileACommandRuns) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi"});
  b.saveCollection("/c/other.INI", {"o.avi"});
  b.startUp.run({}, "/");
  std::vector<std::string> names;
  for (int i = 1; i <= 20; ++i) names.push_back("c" + std::to_string(i) + ".avi");
  b.saveCollection("/c/big.INI", names);
  int tried = 0;
  const auto tryAll = [&] {
    if (b.dialogs.asked.size() > 20 || ++tried > 20) return;  // an open gate would go on without end
    const auto count = b.collection.MovieList.count();
    const auto boxes = b.boxes.shown.size();
    const auto dialogs = b.dialogs.asked.size();
    b.dialogs.answers = {"/c/other.INI", "/c/other.INI"};
    EXPECT_FALSE(b.commands.New());
    EXPECT_FALSE(b.commands.Open());
    EXPECT_FALSE(b.commands.Save());
    EXPECT_FALSE(b.commands.openFile("/c/other.INI"));
    EXPECT_FALSE(b.shutDown.exit());
    b.window.progress.abortClicked = false;
    b.handover.mailbox = "/v/a.avi";
    b.loop.advance(200);
    b.handover.mailbox.reset();
    EXPECT_EQ(b.collection.MovieList.count(), count);
    EXPECT_EQ(b.boxes.shown.size(), boxes);
    EXPECT_EQ(b.dialogs.asked.size(), dialogs);
    b.dialogs.answers.clear();
  };
  b.loop.onYield = tryAll;
  EXPECT_TRUE(b.commands.openFile("/c/big.INI"));
  EXPECT_EQ(b.collection.MovieList.count(), 20);
  EXPECT_GT(std::exchange(tried, 0), 3) << "a load";

  b.loop.onYield = [] {};
  b.dialogs.answers = {"/c/copy.INI"};
  b.loop.onYield = [&, done = false]() mutable {
    if (!std::exchange(done, true)) tryAll();
  };
  EXPECT_TRUE(b.commands.Save());
  EXPECT_EQ(std::exchange(tried, 0), 1) << "a save";

  // A box is open: the question of New, and that of Exit.
  b.loop.onYield = [] {};
  for (const bool exits : {false, true}) {
    b.collection.MovieList[1].IsDirty(true);
    b.boxes.answers = {Answer::Cancel};
    b.boxes.whileShown = [&, done = false]() mutable {
      if (!std::exchange(done, true)) tryAll();
    };
    EXPECT_FALSE(exits ? b.shutDown.exit() : b.commands.New());
    EXPECT_EQ(std::exchange(tried, 0), 1);
  }
  EXPECT_TRUE(b.commands.openFile("/c/other.INI")) << "and the gate is open again";
}

TEST(CollectionCommands, SaveAsksBeforeANameWithoutExtensionReplacesAFile) {
  for (const auto answer : {Answer::No, Answer::Yes}) {
    ProgramBench b;
    b.saveCollection("/prog/KVO5.INI", {"a.avi"});
    b.startUp.run({}, "/");
    b.files.all["/c/Mine.INI"] = "what stands there";
    b.dialogs.answers = {"/c/Mine"};
    b.boxes.answers = {answer};
    EXPECT_EQ(b.commands.Save(), answer == Answer::Yes);
    ASSERT_EQ(b.boxes.shown.size(), 1U);
    EXPECT_NE(b.boxes.shown[0].text.find("Mine.INI"), std::string::npos);
    EXPECT_EQ(b.boxes.shown[0].buttons, BoxButtons::YesNo);
    EXPECT_EQ(b.files.all["/c/Mine.INI"] == "what stands there", answer == Answer::No);
    EXPECT_EQ(b.collection.IniName, answer == Answer::No ? "KVO5.INI" : "Mine.INI");
  }
}

TEST(CollectionCommands, SaveTakesTheNameAndTellsOfFailure) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi"});
  b.startUp.run({}, "/");
  b.collection.MovieList[1].Volume(3);
  b.dialogs.answers = {"/c/x.txt"};
  EXPECT_FALSE(b.commands.Save());
  EXPECT_EQ(b.boxes.shown.back().text,
            "Collections must be saved with an INI extension. This show has NOT been saved");
  EXPECT_FALSE(b.files.exists("/c/x.txt"));
  EXPECT_EQ(b.dialogs.asked[0].folder, "/prog/");
  EXPECT_EQ(b.dialogs.asked[0].title, "KVO5 - Save Collection");

  b.files.calls = 0;
  b.files.failAt = 1;
  b.dialogs.answers = {"/c/Mine.INI"};
  EXPECT_FALSE(b.commands.Save());
  EXPECT_EQ(b.boxes.shown.back().caption, "KVO - Error - Collection not saved");
  EXPECT_TRUE(isDirty(b.collection, b.settings)) << "it can be tried again";

  b.files.failAt = 0;
  b.dialogs.answers = {"/c/Mine"};
  EXPECT_TRUE(b.commands.Save());
  EXPECT_TRUE(b.files.exists("/c/Mine.INI")) << "a name without an extension gets one";
  EXPECT_EQ(b.window.list.caption, "Mine Collection");
  EXPECT_EQ(b.collection.IniFullPath, "/c/Mine.INI");
  EXPECT_FALSE(isDirty(b.collection, b.settings));
  b.dialogs.answers = {std::nullopt};
  b.commands.Save();
  EXPECT_EQ(b.dialogs.asked.back().folder, "/c/") << "and starts there the next time";
}

TEST(CollectionCommands, NewAsksAndEmpties) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi"});
  b.startUp.run({}, "/");
  b.collection.MovieList[1].Volume(3);
  b.boxes.answers = {Answer::Cancel};
  EXPECT_FALSE(b.commands.New());
  EXPECT_EQ(b.boxes.shown.back().caption, "KVO - Save changes to Current Colllection");
  EXPECT_EQ(b.window.list.Fillist.rows().size(), 1U);
  b.boxes.answers = {Answer::No};
  EXPECT_TRUE(b.commands.New());
  EXPECT_TRUE(b.collection.MovieList.empty() && b.window.emptyPane.visible);
  EXPECT_EQ(b.collection.IniName, "Untitled.INI");
  EXPECT_EQ(b.window.face.caption + "|" + b.window.list.caption, "New Collection|Untitled Collection");
}

TEST(ClipList, NamesClipsAndCutsItsCaption) {
  Movie clip;
  clip.MovieName("a.avi");
  clip.AltName(" ");
  EXPECT_EQ(listedName(clip), "a.avi");
  clip.AltName("Beach");
  EXPECT_EQ(listedName(clip), "Beach");
  Collection collection;
  collection.IniName = std::string(60, 'n') + ".INI";
  EXPECT_EQ(listCaption(collection).size(), 50U);
  std::string name;
  for (int i = 0; i < 60; ++i) name += "\xE6\x97\xA5";
  collection.IniName = name + ".INI";
  EXPECT_EQ(listCaption(collection), name.substr(0, 150)) << "50 characters, not bytes";
}

}  // namespace
}  // namespace kvo
