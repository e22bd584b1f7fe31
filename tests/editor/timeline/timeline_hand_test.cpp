// What the hand does on the timeline, and what it is told.
#include "editor/compiler/picture_in_picture.h"
#include "editor/timeline/timeline_bench.h"

#include <functional>
#include <random>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TimelineBench;

// Heights of the parts of a timeline of the usual size with one lane of music.
constexpr double kRuler = 12;
constexpr double kTitle = 38;
constexpr double kPictures = 80;
constexpr double kMusic = 163;

struct Taken : TimelineBench {
  Taken() {
    holiday();
    state.marks.clip = 2;
  }
};

TEST(TimelineHand, DragsMeanWhatTheyLookLike) {
  struct Row {
    double from, to, y;
    const char* told;
    const char* text = "";
    const char* reason = "";
    double toY = 0;
  };
  for (const auto& row : {
           Row{12.4, 10.4, kPictures, "frame 2 8.4, frame ends, mark 2", "Mark-Out 8.40 s   frame 210"},
           Row{4, 5, kPictures, "frame 2 3, frame ends, mark 2", "Mark-In 3.00 s   frame 75"},
           Row{12.4, 40, kPictures, "frame 2 20, frame ends, mark 2", "Mark-Out 20.00 s   frame 500",
               "The file ends here"},
           Row{4, 0.5, kPictures, "frame 2 0, frame ends, mark 2", "Mark-In 0.00 s   frame 0",
               "The file begins here"},
           Row{4, 30, kPictures, "frame 2 10.36, frame ends, mark 2", "Mark-In 10.36 s   frame 259",
               "Mark-In stays ahead of Mark-Out"},
           Row{6, 7, kPictures, "transition 2 30", "Dissolve 3.0 s"},
           Row{6, 16, kPictures, "transition 2 60", "Dissolve 6.0 s",
               "At most 6.0 s: the shorter of the two clips"},
           Row{6, 3, kPictures, "transition 2 0", "Cut"},
           Row{15, 13.5, kPictures, "select 3, transition 3 15", "Dissolve 1.5 s"},
           Row{15, 15.8, kPictures, "select 3", "", "Clips follow each other without a gap"},
           Row{9, 9.5, kPictures, "transition 2 15", "Dissolve 1.5 s"},
           Row{2, 1.5, kPictures, "select 1", "", "Nothing lies ahead of the first clip"},
           Row{15, 1, kPictures, "select 3, move 3 1"},
           Row{2, 25, kPictures, "select 1, move 1 4"},
           Row{2, 3.5, kMusic, "select 4, fade 4 35", "Fade In Over 3.5s"},
           Row{2, 0, kMusic, "select 4, fade 4 0", "Fade In Over - Cut"},
           Row{18.8, 1, kMusic, "select 4, fade 4 97", "Fade Out Over 9.7s",
               "At most 9.7 s: half of the clip"},
           Row{10, 9, kMusic, "select 4", "", "Music lies under the clips", kPictures},
           Row{3, 8, kRuler, "seek 3, seek 8", "8.00 s"},
       }) {
    Taken b;
    b.drag(b.at(row.from, row.y), b.at(row.to, row.toY > 0 ? row.toY : row.y));
    const auto saying = b.state.saying.value_or(TimelineSaying{});
    EXPECT_EQ(saying.text, row.text) << row.from << " to " << row.to;
    EXPECT_EQ(saying.reason, row.reason) << row.from << " to " << row.to;
    b.hand.release();
    EXPECT_EQ(b.look(), row.told) << row.from << " to " << row.to;
    EXPECT_FALSE(b.state.saying || b.state.drag);
  }
}

TEST(TimelineHand, ClicksOpenWhatTheySeeAndEscapeGivesUp) {
  Taken b;
  b.collection.MovieList[2].KeyID(7);
  for (const double second : {0.0, 2.0}) {
    auto& keyframe = b.collection.KeyframeList.add({});
    keyframe.ClipName = 7;
    keyframe.Time = Value(second);
  }
  b.collection.MovieList[2].Gamma(3);
  b.collection.MovieList[2].HasPicInPic(picInPicText({.overlayClip = 1}));
  b.show();
  const auto seen = clipsInSight(b.state.blocks, b.state.sight).at(1);
  const auto badge = [&](TimelineBadge which) {
    return TimelinePoint{seen.badges[static_cast<std::size_t>(which)].x + 1, kTitle};
  };
  struct Row {
    TimelinePoint at;
    const char* told;
    bool twice = false;
    bool onlyShows = false;
  };
  for (const auto& row :
       {Row{b.at(5, kPictures), "tab 3 2"}, Row{b.at(15, kPictures), "select 3"},
        Row{b.at(30, kPictures), ""}, Row{b.at(9, kPictures), "select 2, trimmer 2", true},
        Row{badge(TimelineBadge::Keyframes), "tab 4 2", true},
        Row{badge(TimelineBadge::Colours), "tab 6 2", true},
        Row{badge(TimelineBadge::Overlay), "tab 7 2", true},
        Row{{seen.wedge.right(), kTitle}, "tab 3 2", true}, Row{b.at(15, kPictures), "", false, true},
        Row{b.at(15, kRuler), "seek 15", false, true}}) {
    b.state.onlyShows = row.onlyShows;
    b.hand.press(row.at, {});
    b.hand.release();
    if (row.twice) b.hand.doubleClick(row.at);
    EXPECT_EQ(b.look(), row.told) << row.at.x << " " << row.at.y;
  }
  b.hand.press(b.at(15, kRuler), {.shift = true});
  b.hand.release();
  EXPECT_EQ(b.look(), "") << "no range while a preview runs";
  b.state.onlyShows = false;
  b.drag(b.at(12.4, kPictures), b.at(10, kPictures));
  EXPECT_TRUE(b.hand.key(TimelineKey::Escape, {}));
  b.hand.release();
  EXPECT_EQ(b.look(), "frame 2 8, frame ends") << "nothing is written";
}

TEST(TimelineHand, EdgesSnapUnlessAltIsHeld) {
  Taken b;
  b.settings.adjust().AutoTrimAudio = false;
  b.show();
  b.hand.stand(11.1, false);
  const auto mark = [&](const TimelinePoint& from, const TimelinePoint& to, bool alt) {
    b.drag(from, to, {.alt = alt});
    const auto gesture = b.state.reading.gesture;
    b.hand.cancel();
    return std::get<MarkGesture>(gesture).seconds;
  };
  EXPECT_DOUBLE_EQ(mark(b.at(12.4, kPictures), b.at(11.2, kPictures), false), 9.12);  // the playhead
  EXPECT_DOUBLE_EQ(mark(b.at(12.4, kPictures), b.at(11.2, kPictures), true), 9.2);
  b.hand.zoom(7, 84);
  b.state.marks.clip = 4;
  EXPECT_DOUBLE_EQ(mark(b.at(153, kMusic - 8), b.at(19.6, kMusic), false), 19.4);  // the movie's end
  EXPECT_DOUBLE_EQ(mark(b.at(153, kMusic - 8), b.at(19.6, kMusic), true), 19.6);
}

TEST(TimelineHand, KeysDoWhatThePointerDoes) {
  using enum TimelineKey;
  struct Row {
    std::vector<TimelineKey> keys;
    const char* told;
    const char* saying = "";  // its text, or its reason
    TimelineHeld held = {};
    double playhead = 2.5;
  };
  for (const auto& row : {
           Row{{After, After, After}, "select 3, select 4"},
           Row{{First, Before}, "select 1"},
           Row{{EdgeOut, Before, Before},
               "frame 2 10.4, frame 2 10.36, mark 2, frame 2 10.32, mark 2",
               "Mark-Out 10.32 s   frame 258"},
           Row{{EdgeOut, After, EdgeOut, First}, "frame 2 10.4, frame 2 10.44, mark 2, frame ends, select 1"},
           Row{{EdgeIn, Escape}, "frame 2 2, frame ends"},
           Row{{After}, "move 2 4", "", {.control = true}},
           Row{{First, Before}, "select 1", "Nothing lies ahead of the first clip", {.control = true}},
           Row{{First, Open, Copy, Remove, Split}, "select 1, trimmer 1, copy 1, remove 1, split 1"},
           Row{{Split}, "", "No clip stands at the playhead", {}, 100},
       }) {
    Taken b;
    b.hand.stand(row.playhead, false);
    for (const auto key : row.keys) b.hand.key(key, row.held);
    EXPECT_EQ(b.look(), row.told);
    const auto saying = b.state.saying.value_or(TimelineSaying{});
    EXPECT_EQ(saying.text + saying.reason, row.saying) << row.told;
  }
}

TEST(TimelineHand, TheWholeMovieStaysInSightUntilTheUserLooksElsewhere) {
  const TimelinePoint middle{600, kPictures};
  const struct {
    const char* name;
    std::function<void(TimelineBench&)> act;
    bool isWhole;
  } rows[] = {
      {"nothing", [](auto&) {}, true},
      {"the wheel zooms", [&](auto& b) { b.hand.wheel(middle, 0, 2, {.control = true}); }, false},
      {"two fingers", [&](auto& b) { b.hand.pinch(middle, 1.5); }, false},
      {"a key zooms", [](auto& b) { b.hand.key(TimelineKey::ZoomIn, {}); }, false},
      {"and another goes back",
       [](auto& b) { b.hand.key(TimelineKey::ZoomIn, {}), b.hand.key(TimelineKey::Whole, {}); }, true},
      {"a page on", [](auto& b) { b.hand.key(TimelineKey::PageOn, {}); }, false},
      {"the hand takes hold", [&](auto& b) { b.hand.press(middle, {}), b.hand.release(); }, false},
      {"a clip by key", [](auto& b) { b.hand.key(TimelineKey::After, {}); }, true},
      {"another collection", [](auto& b) { b.hand.zoom(100, 600), b.hand.open(); }, true}};
  for (const auto& row : rows) {
    Taken b;
    b.hand.open();
    row.act(b);
    const double scale = b.state.sight.scale;
    for (int i = 0; i < 9; ++i) b.video("more.avi", 0, 30, 30);
    b.show();
    b.hand.resize(900, 202);
    EXPECT_EQ(b.state.sight.xOf(b.state.blocks.end()) < 900, row.isWhole) << row.name;
    EXPECT_EQ(b.state.sight.scale == scale, !row.isWhole) << row.name;
  }
}

TEST(TimelineHand, FilesGoWhereTheBarStands) {
  Taken b;
  b.hand.dragFiles(b.at(9, kPictures));
  EXPECT_EQ(b.state.drop.value_or(TimelineDrop{}).line, 12.4);
  b.hand.dropFiles({"/v/new.avi"});
  b.hand.dragFiles(b.at(90, kMusic));
  b.hand.dropFiles({"/v/new.avi"});
  TimelineBench none;
  none.hand.dragFiles({400, 80});
  none.hand.dropFiles({"/v/new.avi"});
  EXPECT_EQ(b.look(), "insert /v/new.avi before 3, insert /v/new.avi before 4");
  EXPECT_EQ(none.look(), "insert /v/new.avi before 1");
}

// Clips one behind the other, each beginning where the one ahead ends or a transition earlier, in the order
// of the collection; every section within its file.
void expectWhole(TimelineBench& b, int round) {
  const auto& clips = b.state.blocks.clips;
  const TimelineClips records(b.collection, b.streams);
  for (std::size_t i = 0; i < clips.size(); ++i) {
    const double ahead = i == 0 ? 0 : clips[i - 1].stop;
    const double overlap = i == 0 ? 0 : clips[i].overlap;
    ASSERT_NEAR(clips[i].start, ahead - overlap, 0.0006) << round;
    ASSERT_LE(overlap * 10, clips[i].longestTransition) << round;
    ASSERT_GT(clips[i].stop, clips[i].start) << round;
    ASSERT_GE(clips[i].markIn, 0) << round;
    if (!clips[i].isStill) {
      ASSERT_LE(clips[i].markOut, clips[i].sourceLength) << round;
    }
    ASSERT_EQ(clips[i].clip, static_cast<int>(i) + 1) << round;
  }
  ASSERT_EQ(misplacedSound(records), 0) << round;
}

TEST(TimelineHand, RandomDragsLeaveNoGapAndNoOverlapAboveTheLimit) {
  std::mt19937 chance(20);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same ones each time
  const auto below = [&](double most) { return std::uniform_real_distribution<>(0, most)(chance); };
  TimelineBench b;
  for (int i = 1; i <= 12; ++i)
    b.video("c" + std::to_string(i) + ".avi", 0, below(8) + 0.3, 10).Playspeed(i % 3 == 0 ? 20 : 10);
  auto& still = b.addVideo("photo.jpg", 0, 5);
  still.IsStill(true);
  b.music("a.mp3", 20);
  b.music("b.mp3", 30);
  b.show();
  for (int round = 0; round < 1000; ++round) {
    const TimelinePoint from{84 + below(1150), 25 + below(160)};
    const TimelinePoint to{from.x + below(400) - 200, from.y + below(40) - 20};
    b.drag(from, to, {.alt = round % 2 == 0});
    b.hand.release();
    ASSERT_NO_FATAL_FAILURE(expectWhole(b, round));
  }
  EXPECT_GT(b.changes, 66);
}

}  // namespace
}  // namespace kvo
