#include "core/collection_commands.h"

#include "core/clip_list.h"
#include "support/virtual_loop.h"

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
    EXPECT_EQ(b.window.Fillist.size(), 1U);
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
    statuses.push_back(b.window.status);
    abortText = b.window.abortText;
    if (b.window.status == "Loading Clip 10 of 20") b.window.abortClicked = true;
  };
  EXPECT_TRUE(b.commands.openFile("/c/big.Ini"));
  EXPECT_EQ(statuses, (std::vector<std::string>{"Loading.. Please Wait", "Loading Clip 5 of 20",
                                                "Loading Clip 10 of 20"}));
  EXPECT_EQ(abortText, "Click to abort the load");
  EXPECT_EQ(b.window.Fillist.size(), 9U);
  EXPECT_EQ(b.window.status + b.window.abortText, "");
  EXPECT_EQ(b.files.all["/c/big.Ini"], before) << "what was not read is not lost";
  EXPECT_TRUE(isDirty(b.collection, b.settings)) << "and is asked about before anything replaces it";
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
  EXPECT_EQ(b.window.listCaption, "Mine Collection");
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
  EXPECT_EQ(b.window.Fillist.size(), 1U);
  b.boxes.answers = {Answer::No};
  EXPECT_TRUE(b.commands.New());
  EXPECT_TRUE(b.collection.MovieList.empty() && b.window.noVideoPanel);
  EXPECT_EQ(b.collection.IniName, "Untitled.INI");
  EXPECT_EQ(b.window.caption + "|" + b.window.listCaption, "New Collection|Untitled Collection");
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
}

}  // namespace
}  // namespace kvo
