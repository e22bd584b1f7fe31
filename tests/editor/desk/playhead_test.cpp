// Where the user is in the movie, and what follows; what the timeline's hand does, carried out.
#include "editor/desk/desk_bench.h"
#include "editor/desk/timeline_desk.h"
#include "support/rows.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::DeskBench;
using test::OpenDesk;
using test::Rows;
using Act = void (*)(DeskBench&);
using HandAct = void (*)(TimelineDesk&);

// The clip in hand, the seconds of the movie and of the clip; what is loaded, where the player is sent, what
// the preview is told.
std::string place(DeskBench& b) {
  const auto seconds = [](double exact) { return ShortText(std::round(exact * 1e6) / 1e6); };
  const auto& at = b.desk.playhead();
  return std::to_string(b.collection.icurMov) + " at " + seconds(at.inMovie()) + ", in it " +
         seconds(at.inClip()) + ": " + b.moves();
}

// The second film plays twice as fast: the clips begin at 0, 8, 12 and 20 s of the movie.
TEST(Playhead, ClipPictureAndPlayerAreAtOnePlace) {
  for (const auto& [what, act, expected] : Rows<const char*, Act, const char*>{
           {"a drag over it", [](auto& b) { b.desk.movieStands(7), b.desk.movieStands(13); },
            "3 at 13, in it 1: load3 to1 "},
           {"behind the pictures", [](auto& b) { b.desk.movieStands(28); }, "4 at 28, in it 5: load4 "},
           {"a clip is chosen", [](auto& b) { b.list.PreviewMovie(3); }, "3 at 12, in it 0: load3 to0 "},
           {"a new movie is viewed", [](auto& b) { b.list.PreviewMovie(3), b.desk.letPlay(); },
            "3 at 12, in it 0: load3 "},
           {"and left",
            [](auto& b) {
              b.list.PreviewMovie(3), b.desk.letPlay(), b.desk.follow(), b.desk.movieStands(13);
            },
            "3 at 13, in it 1: load3 to1 "},
           {"a tab's list", [](auto& b) { b.desk.UpDateFrmFileOpen(2, true); },
            "2 at 8, in it 0: load2 to0 "},
           {"it lies at the playhead",
            [](auto& b) {
              b.desk.movieStands(10), b.list.select(1), b.desk.follow(), b.desk.movieStands(9),
                  b.list.PreviewMovie(2);
            },
            "2 at 9, in it 2: load2 load2 to2 "},
           {"the wheel", [](auto& b) { b.desk.jog(50); }, "1 at 2, in it 2: to0 leave "},
           {"the wheel in a fast clip", [](auto& b) { b.desk.movieStands(10), b.desk.jog(-50); },
            "2 at 9, in it 2: load2 to4 leave "},
           {"the wheel in a still", [](auto& b) { b.list.PreviewMovie(4), b.desk.jog(50); },
            "4 at 22, in it 2: load4 leave "},
           {"a mark",
            [](auto& b) {
              b.desk.movieStands(6), b.desk.edit("Mark-In", 1, 96, [&] { b.clip(1).LoopStart(Value(2)); });
            },
            "1 at 4, in it 6: to6 "},
           {"a key", [](auto& b) { b.desk.movieStands(10), b.desk.press(ClipKey::SetIN); },
            "2 at 10, in it 4: load2 to4 markIn to4 "},
           {"the positioner",
            [](auto& b) { b.window.positions.positioner.visible = true, b.place = b.at(5); },
            "1 at 5, in it 5: leave "},
           {"the movie plays", [](auto& b) { b.preview.plays = true, b.desk.selectRow(3), b.desk.jog(5); },
            "3 at 0, in it 0: "},
           {"the movie is about to play",
            [](auto& b) { b.desk.movieStands(10), b.desk.follow(), b.desk.selectRow(1); },
            "1 at 10, in it 4: "},
           {"the clip goes while the wheel has it loaded",
            [](auto& b) {
              b.desk.movieStands(10), b.list.whenInHand([&b](int) { b.collection.clearLists(); });
              b.desk.jog(-50);
            },
            "0 at 0, in it 0: "},
           {"no clip", [](auto& b) { b.desk.movieStands(10), b.collection.clearLists(), b.list.fill(); },
            "0 at 0, in it 0: "}}) {
    DeskBench b;
    b.clip(2).Playspeed(20);
    b.open();
    b.desk.follow();
    b.tick();
    b.told.clear();
    b.preview.does = &b.told;
    act(b);
    for (int i = 0; i < 2; ++i) {
      b.desk.follow();
      b.loop.advance(200);
    }
    b.desk.follow();
    EXPECT_EQ(place(b), expected) << what;
    EXPECT_TRUE(b.preview.plays || b.preview.at == b.desk.playhead().inMovie()) << what;
  }
}

TEST(Playhead, AnotherClipBelowItLeavesThePictureAlone) {
  OpenDesk b;
  b.desk.Buildtabs(7);
  b.preview.asked.clear();
  b.desk.movieStands(10);
  EXPECT_EQ(b.state.stats.lbl_ClipStats, "Cut 2 Details") << "at once";
  EXPECT_NE(b.tick().find("anew7"), std::string::npos);
  EXPECT_EQ(b.preview.asked, "");
  b.list.PreviewMovie(3);
  b.tick();
  EXPECT_EQ(b.preview.asked, "kill ") << "it has been chosen";
}

// Each wish of the timeline is one step, as the lists' own commands would have made it.
TEST(TimelineDesk, CarriesOutWhatTheHandDoes) {
  static constexpr MarkGesture kMark{2, ClipEdge::Out, 6, 150};
  static constexpr TransInGesture kTransition{2, 10}, kOfNone{9, 10};
  static constexpr FadeGesture kFade{5, ClipEdge::In, 10};
  static const std::vector<std::string> kFiles{"/v/x.mp3", "/v/a.avi"}, kFolder{"/f"};
  for (const auto& [step, act, expected] : Rows<std::string, HandAct, const char*>{
           {"move film3.avi", [](TimelineDesk& desk) { desk.moveTo(3, 1); }, "312ps"},
           {"Mark-Out on film2.avi", [](TimelineDesk& desk) { desk.setMark(kMark); }, "123ps"},
           {"Transition on film2.avi", [](TimelineDesk& desk) { desk.setTransIn(kTransition); }, "123ps"},
           {"Fade on song.mp3", [](TimelineDesk& desk) { desk.setFade(kFade); }, "123ps"},
           {"remove film2.avi", [](TimelineDesk& desk) { desk.remove(2); }, "13ps"},
           {"copy film2.avi", [](TimelineDesk& desk) { desk.copy(2); }, "1223ps"},
           {"split film2.avi", [](TimelineDesk& desk) { desk.split(2); }, "1223ps"},
           {"add a.avi", [](TimelineDesk& desk) { desk.insertFiles(kFiles, 2); }, "1a23psx"},
           {"add 2 clips", [](TimelineDesk& desk) { desk.insertFiles(kFolder, 2); }, "1ac23psb"},
           {"", [](TimelineDesk& desk) { desk.setTransIn(kOfNone), desk.split(9), desk.moveTo(0, 1); },
            "123ps"}}) {
    DeskBench b;
    for (const auto* name : {"/v/x.mp3", "/v/a.avi", "/f/a.avi", "/f/b.mp3", "/f/c.avi"})
      b.files.all[name] = "x";
    TimelineDesk desk({b.desk, b.onHeld, b.listCommands, b.mailbox}, {});
    b.clip(2).TimeLineStart(Value(8));
    b.clip(2).TimeLineStop(Value(16));
    b.desk.movieStands(11);
    act(desk);
    std::string names;
    for (int i = 1; i <= b.collection.MovieList.count(); ++i) {
      const auto& name = b.clip(i).MovieName();
      names += name.starts_with("film") ? name[4] : name[0];
    }
    EXPECT_EQ(names, expected) << step;
    EXPECT_EQ(b.window.history.done, step.empty() ? std::vector<std::string>() : std::vector{step});
    b.history.undo();
    EXPECT_EQ(b.collection.MovieList.count(), 5) << step;
  }
}

}  // namespace
}  // namespace kvo
