// What stands in the preview's place; a picture is as bright as the second of its file.
#include "editor/preview/standing_picture.h"

#include "base/paths.h"
#include "support/fakes.h"
#include "support/rows.h"
#include "support/virtual_loop.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Rows;

struct StandingBench : test::Bench {
  StandingBench() {
    addVideo("beach.avi", 3, 9);
    addVideo("hills.avi", 7, 9);
    addMusic("song.mp3", 0, 60);
    collection.icurMov = 1;
    settle();
  }
  void settle() {
    const auto& clip = collection.MovieList[collection.icurMov];
    standing.settle(collection, keyframesOpen, clip.LoopStart().number() + past, form);
  }
  /// The second that is shown, -1 for none, once what is on its way is there.
  int shown() {
    settle();
    loop.workComesHome();
    return seen();
  }
  [[nodiscard]] int seen() const { return state.picture ? state.picture->bgr.at(0) : -1; }

  test::VirtualLoop loop;
  PreviewState state;
  bool keyframesOpen = false;
  SampleForm form{64, 48};
  double past = 0;  // seconds behind Mark-In
  StandingPicture standing{state, streams, files, loop, [] {}};
};

TEST(StandingPicture, IsTheClipInHandWhereThereIsNoPreview) {
  StandingBench b;
  // What stands until the next is there, and the next.
  for (const auto& [what, act, atOnce, then] : Rows<const char*, std::function<void()>, int, int>{
           {"the clip in hand", [] {}, -1, 3},
           {"another", [&] { b.collection.icurMov = 2; }, 3, 7},
           {"the playhead has gone on", [&] { b.past = 1; }, 7, 8},
           {"the movie has another shape",
            [&] {
              b.form = SampleForm{96, 54};
            },
            8, 8},
           {"a still has one picture", [&] { b.collection.MovieList[2].IsStill(true); }, 8, 0},
           {"sound is not seen", [&] { b.collection.icurMov = 3; }, -1, -1},
           {"what failed is told there", [&] { b.collection.icurMov = 1, b.state.failure = "gone"; }, -1, -1},
           {"no more", [&] { b.state.failure.clear(); }, -1, 4}}) {
    act();
    b.settle();
    EXPECT_EQ(b.seen(), atOnce) << what;
    if (then >= 0) {  // else nothing is on its way
      EXPECT_EQ(b.shown(), then) << what;
    }
    if (b.state.failure.empty()) {
      EXPECT_EQ(b.state.title, b.collection.MovieList[b.collection.icurMov].MovieName()) << what;
    }
  }
  EXPECT_EQ(b.state.picture->width, 96);
}

TEST(StandingPicture, SaysWhyThereIsNone) {
  for (const auto& [what, file, title] : Rows<const char*, const char*, const char*>{
           {"it is gone", "", "hills.avi has been moved or no longer exists"},
           {"it is there", "/v/hills.avi", "cannot open /v/hills.avi"},
           {"it is elsewhere", "http://v/hills.avi", "cannot open http://v/hills.avi"}}) {
    StandingBench b;
    b.collection.icurMov = 2;
    b.streams.all.erase("/v/hills.avi");
    b.files.all.erase("/v/hills.avi");
    if (isAddress(file)) {
      b.collection.MovieList[2].Path("http://v/");
    } else if (*file != '\0') {
      b.files.all[file] = "";
    }
    EXPECT_EQ(b.shown(), -1);
    b.settle();  // it has been asked for, and is told
    EXPECT_EQ(b.state.title, title) << what;
    b.collection.icurMov = 1;
    EXPECT_EQ(b.shown(), 3);
    EXPECT_EQ(b.state.title, "beach.avi");
  }
}

using FrameAct = void (*)(StandingBench&);

// Whatever takes its frame away, the picture follows the clip again.
TEST(StandingPicture, AFrameStandsUntilSomethingElseIsToBeSeen) {
  for (const auto& [what, isMark, act, shown] : Rows<const char*, bool, FrameAct, int>{
           {"the mark is let go", true, [](auto& b) { b.standing.endMark(); }, 3},
           {"another clip", true, [](auto& b) { b.collection.icurMov = 2; }, 7},
           {"the window of keyframes closes", false, [](auto& b) { b.keyframesOpen = false; }, 3},
           {"another clip", false, [](auto& b) { b.collection.icurMov = 2; }, 7},
           {"a preview has ended", false,
            [](auto& b) {
              b.state.kind = PreviewKind::Keyframe;
              b.state.PreviewPlaying = true;
              b.settle();
              b.state = {};
            },
            3},
           {"a preview is killed", true, [](auto& b) { b.state.picture.reset(), b.standing.forget(); }, 3}}) {
    StandingBench b;
    b.shown();
    b.keyframesOpen = !isMark;
    if (isMark) b.standing.showMark("/v/beach.avi", 5);
    if (!isMark) b.standing.showKeyframe(b.collection.MovieList[1], 125, 25);
    EXPECT_EQ(b.shown(), 5) << what;
    b.settle();
    EXPECT_EQ(b.seen(), 5) << what;
    act(b);
    EXPECT_EQ(b.shown(), shown) << what;
  }
}

TEST(StandingPicture, AFrameOverAPreviewGivesItsPictureBack) {
  StandingBench b;
  b.shown();
  b.state.kind = PreviewKind::Movie;
  const auto ofMovie = std::make_shared<const Bitmap>(Bitmap{1, 1, {9, 9, 9}});
  for (const bool plays : {false, true}) {
    b.state.picture = ofMovie;
    b.standing.showMark("/v/beach.avi", 5);
    EXPECT_EQ(b.shown(), 5);
    b.state.PreviewPlaying = plays;
    if (plays) b.state.picture = ofMovie;
    plays ? b.settle() : b.standing.endMark();
    EXPECT_EQ(b.state.picture, ofMovie);
  }
  b.standing.endMark();
  EXPECT_EQ(b.state.picture, ofMovie) << "it has ended";
}

}  // namespace
}  // namespace kvo
