// What the timeline's hand does, carried out on the collection.
#include "editor/desk/timeline_desk.h"

#include "editor/desk/desk_bench.h"
#include "editor/tabs/preview.h"
#include "editor/tabs/stills_tab.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::DeskBench;

// Each wish of the timeline is one step, as the lists' own commands would have made it.
TEST(TimelineDesk, CarriesOutWhatTheHandDoes) {
  struct Row {
    const char* step;
    void (*act)(TimelineDesk&);
    std::string names;
  };
  static constexpr MarkGesture kMark{2, ClipEdge::Out, 6, 150};
  static constexpr TransInGesture kTransition{2, 10}, kOfNone{9, 10};
  static constexpr FadeGesture kFade{5, ClipEdge::In, 10};
  static const std::vector<std::string> kFiles{"/v/x.mp3", "/v/a.avi"}, kFolder{"/f"};
  const Row rows[] = {
      {"move film3.avi", [](TimelineDesk& desk) { desk.moveTo(3, 1); }, "312ps"},
      {"Mark-Out on film2.avi", [](TimelineDesk& desk) { desk.setMark(kMark); }, "123ps"},
      {"Transition on film2.avi", [](TimelineDesk& desk) { desk.setTransIn(kTransition); }, "123ps"},
      {"Fade on song.mp3", [](TimelineDesk& desk) { desk.setFade(kFade); }, "123ps"},
      {"remove film2.avi", [](TimelineDesk& desk) { desk.remove(2); }, "13ps"},
      {"copy film2.avi", [](TimelineDesk& desk) { desk.copy(2); }, "1223ps"},
      {"split film2.avi", [](TimelineDesk& desk) { desk.split(2); }, "1223ps"},
      {"add a.avi", [](TimelineDesk& desk) { desk.insertFiles(kFiles, 2); }, "1a23psx"},
      {"add 2 clips", [](TimelineDesk& desk) { desk.insertFiles(kFolder, 2); }, "1ac23psb"},
      {"", [](TimelineDesk& desk) { desk.setTransIn(kOfNone), desk.split(9), desk.moveTo(0, 1); }, "123ps"},
  };
  for (const auto& row : rows) {
    DeskBench b;
    for (const auto* name : {"/v/x.mp3", "/v/a.avi", "/f/a.avi", "/f/b.mp3", "/f/c.avi"})
      b.files.all[name] = "x";
    TimelineDesk desk({b.desk, b.onHeld, b.listCommands, b.mailbox}, {});
    b.clip(2).TimeLineStart(Value(8));
    b.clip(2).TimeLineStop(Value(16));
    b.desk.movieStands(11);
    row.act(desk);
    std::string names;
    for (int i = 1; i <= b.collection.MovieList.count(); ++i) {
      const auto& name = b.clip(i).MovieName();
      names += name.starts_with("film") ? name[4] : name[0];
    }
    EXPECT_EQ(names, row.names) << row.step;
    EXPECT_EQ(b.window.history.done,
              *row.step == 0 ? std::vector<std::string>() : std::vector<std::string>{row.step});
    b.history.undo();
    EXPECT_EQ(b.collection.MovieList.count(), 5) << row.step;
  }
}

TEST(TimelineDesk, AStillKeepsTheLengthThatItWasDraggedTo) {
  DeskBench b;
  b.addVideo("second.jpg", 0, 5).IsStill(true);
  TimelineDesk desk({b.desk, b.onHeld, b.listCommands, b.mailbox}, {});
  StillsTab tab;
  restoreStills(b.editing, tab);
  const auto previewed = [&] {
    EXPECT_TRUE(CreatePreview(b.editing, stillControls(b.editing, tab)));
    return b.clip(4).LoopEnd().text() + " " + b.clip(6).LoopEnd().text() +
           (b.settings.preferences().StillsIndividual ? " one by one" : "");
  };
  EXPECT_EQ(previewed(), "5 5");
  desk.setMark({4, ClipEdge::Out, 3.2, 0});
  EXPECT_EQ(previewed(), "3.2 5 one by one");
  EXPECT_EQ(b.window.history.done.size(), 1U);
  b.history.undo(1);
  EXPECT_EQ(previewed(), "5 5");
}

}  // namespace
}  // namespace kvo
