// Clips whose file is elsewhere than their collection says.
#include "program/missing_files.h"

#include "support/named_looks.h"
#include "support/program_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;

struct MissingBench : ProgramBench {
  test::NamedLooks looks;
  MissingFiles missing{{files, dialogs, boxes, loop, looks, window, collection, list, history}};

  // Of 4 seconds and 5 bytes, whose file is not there.
  void addClip(const std::string& path) {
    Movie& clip = collection.MovieList.add({});
    clip.Path(std::string(folderPart(path)));
    clip.MovieName(std::string(fileNamePart(path)));
    clip.Size("5");
    clip.DurationTime(Value(4));
  }
  void find(const std::string& folder) {
    dialogs.answers = {folder};
    missing.FindMissingFiles();
  }
};

TEST(MissingFiles, AMovedFolderIsMendedWithOneChoiceAndUndone) {
  MissingBench b;
  for (int i = 1; i <= 20; ++i) {
    const auto name = "clip " + std::to_string(i) + ".avi";
    b.addClip("/old/" + name);
    b.files.all["/new/deep/" + name] = "bytes";
  }
  b.addClip("/old/gone.avi");
  b.addVideo("there.avi", 0, 4);
  b.list.fill();
  b.missing.look();
  const auto missing = [&] {
    return std::ranges::count_if(b.window.list.Fillist.rows(), [](const auto& row) { return row.missing; });
  };
  EXPECT_EQ(missing(), 21);
  EXPECT_EQ(b.window.list.Fillist.rows().front().length, "missing");

  b.missing.FindMissingFiles();
  EXPECT_EQ(missing(), 21) << "taken back";
  b.files.all["/new/other/clip 20.avi"] = "bytes";  // two fit: their lengths are compared
  b.looks.whileLooking = [&] { b.window.progress.abortClicked = true; };
  b.find("/new");
  EXPECT_EQ(b.looks.asked.size(), 2U);
  EXPECT_EQ(missing(), 21) << "stopped while files are compared";
  b.files.all.erase("/new/other/clip 20.avi");
  b.find("/new");
  EXPECT_EQ(missing(), 1);
  EXPECT_EQ(b.boxes.shown.back().text, "20 of 21 missing files have been found.");
  EXPECT_EQ(clipFile(b.clip(20)), "/new/deep/clip 20.avi");
  b.history.undo();
  EXPECT_EQ(clipFile(b.clip(20)), "/old/clip 20.avi");
}

TEST(MissingFiles, OfCopiesThatFitTheOneOfTheMovedFolderIsTaken) {
  MissingBench b;
  for (const auto* path : {"/old/a.avi", "/old/b.avi", "/old/c.avi", "/new/0 taken/a.avi"}) b.addClip(path);
  for (const auto* path : {"/new/0 taken/a.avi", "/new/1 copies/a.avi", "/new/2 moved/a.avi",
                           "/new/2 moved/b.avi", "/new/2 moved/c.avi"}) {
    b.files.all[path] = "bytes";
    b.looks.all[path].look.facts.duration = 4;
  }
  b.files.all["/new/3 other/b.avi"] = "larger";
  b.list.fill();
  b.find("/new");
  EXPECT_EQ(clipFile(b.clip(1)), "/new/2 moved/a.avi");
  for (const auto* path : {"/new/1 copies/a.avi", "/new/2 moved/a.avi"}) b.files.all.erase(path);
  b.find("/new");
  EXPECT_EQ(clipFile(b.clip(1)), "/new/0 taken/a.avi") << "a clip may stand twice in a movie";
}

}  // namespace
}  // namespace kvo
