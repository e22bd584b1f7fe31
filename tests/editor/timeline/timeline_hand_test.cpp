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

struct Hand : testing::Test, Taken {};

TEST(TimelineHand, DragsMeanWhatTheyLookLike) {
  struct Row {
    double from, to;
    const char* told;
    const char* text = "";
    const char* reason = "";
    double y = kPictures, toY = y;
  };
  for (const auto& row : {
           Row{12.4, 10.4, "frame 2 8.4, frame ends, mark 2", "Mark-Out 8.40 s   frame 210"},
           Row{4, 5, "frame 2 3, frame ends, mark 2", "Mark-In 3.00 s   frame 75"},
           Row{12.4, 40, "frame 2 20, frame ends, mark 2", "Mark-Out 20.00 s   frame 500",
               "The file ends here"},
           Row{4, 0.5, "frame 2 0, frame ends, mark 2", "Mark-In 0.00 s   frame 0", "The file begins here"},
           Row{4, 30, "frame 2 10.36, frame ends, mark 2", "Mark-In 10.36 s   frame 259",
               "Mark-In stays ahead of Mark-Out"},
           Row{6, 7, "transition 2 30", "Dissolve 3.0 s"},
           Row{6, 16, "transition 2 60", "Dissolve 6.0 s", "At most 6.0 s: the shorter of the two clips"},
           Row{6, 3, "transition 2 0", "Cut"},
           Row{15, 13.5, "select 3, transition 3 15", "Dissolve 1.5 s"},
           Row{15, 15.8, "select 3", "", "Clips follow each other without a gap"},
           Row{9, 9.5, "transition 2 15", "Dissolve 1.5 s"},
           Row{2, 1.5, "select 1", "", "Nothing lies ahead of the first clip"},
           Row{15, 1, "select 3, move 3 1"},
           Row{2, 25, "select 1, move 1 4"},
           Row{2, 3.5, "select 4, fade 4 35", "Fade In Over 3.5s", "", kMusic},
           Row{2, 0, "select 4, fade 4 0", "Fade In Over - Cut", "", kMusic},
           Row{18.8, 1, "select 4, fade 4 97", "Fade Out Over 9.7s", "At most 9.7 s: half of the clip",
               kMusic},
           Row{10, 9, "select 4", "", "Music lies under the clips", kMusic, kPictures},
           Row{3, 8, "seek 3, seek 8", "8.00 s", "", kRuler},
       }) {
    Taken b;
    b.drag(b.at(row.from, row.y), b.at(row.to, row.toY));
    const auto saying = b.state.saying.value_or(TimelineSaying{});
    EXPECT_EQ(saying.text, row.text) << row.from << " to " << row.to;
    EXPECT_EQ(saying.reason, row.reason) << row.from << " to " << row.to;
    b.hand.release();
    EXPECT_EQ(b.look(), row.told) << row.from << " to " << row.to;
    EXPECT_FALSE(b.state.saying || b.state.drag);
  }
}

TEST_F(Hand, ClicksOpenWhatTheySeeAndEscapeGivesUp) {
  collection.MovieList[2].KeyID(7);
  for (const double second : {0.0, 2.0}) {
    auto& keyframe = collection.KeyframeList.add({});
    keyframe.ClipName = 7;
    keyframe.Time = Value(second);
  }
  collection.MovieList[2].Gamma(3);
  collection.MovieList[2].HasPicInPic(picInPicText({.overlayClip = 1}));
  show();
  const auto seen = clipsInSight(state.blocks, state.sight).at(1);
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
       {Row{at(5, kPictures), "tab 3 2"}, Row{at(15, kPictures), "select 3"}, Row{at(30, kPictures), ""},
        Row{at(9, kPictures), "select 2, trimmer 2", true},
        Row{badge(TimelineBadge::Keyframes), "tab 4 2", true},
        Row{badge(TimelineBadge::Colours), "tab 6 2", true},
        Row{badge(TimelineBadge::Overlay), "tab 7 2", true},
        Row{{seen.wedge.right(), kTitle}, "tab 3 2", true}, Row{at(15, kPictures), "", false, true},
        Row{at(15, kRuler), "seek 15", false, true}}) {
    state.onlyShows = row.onlyShows;
    hand.press(row.at, {});
    hand.release();
    if (row.twice) hand.doubleClick(row.at);
    EXPECT_EQ(look(), row.told) << row.at.x << " " << row.at.y;
  }
  hand.press(at(15, kRuler), {.shift = true});
  hand.release();
  EXPECT_EQ(look(), "") << "no range while a preview runs";
  state.onlyShows = false;
  drag(at(12.4, kPictures), at(10, kPictures));
  EXPECT_TRUE(hand.key(TimelineKey::Escape, {}));
  hand.release();
  EXPECT_EQ(look(), "frame 2 8, frame ends") << "nothing is written";
}

TEST_F(Hand, EdgesSnapUnlessAltIsHeld) {
  settings.adjust().AutoTrimAudio = false;
  show();
  hand.stand(11.1, false);
  const auto expectMark = [&](const TimelinePoint& from, const TimelinePoint& to, double snapped,
                              double held) {
    for (const bool alt : {false, true}) {
      drag(from, to, {.alt = alt});
      EXPECT_DOUBLE_EQ(std::get<MarkGesture>(state.reading.gesture).seconds, alt ? held : snapped);
      hand.cancel();
    }
  };
  expectMark(at(12.4, kPictures), at(11.2, kPictures), 9.12, 9.2);  // to the playhead
  hand.zoom(7, 84);
  state.marks.clip = 4;
  expectMark(at(153, kMusic - 8), at(19.6, kMusic), 19.4, 19.6);  // to the movie's end
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

TEST_F(Hand, FilesGoWhereTheBarStands) {
  hand.dragFiles(at(9, kPictures));
  EXPECT_EQ(state.drop.value_or(TimelineDrop{}).line, 12.4);
  hand.dropFiles({"/v/new.avi"});
  hand.dragFiles(at(90, kMusic));
  hand.dropFiles({"/v/new.avi"});
  TimelineBench none;
  none.hand.dragFiles({400, 80});
  none.hand.dropFiles({"/v/new.avi"});
  EXPECT_EQ(look(), "insert /v/new.avi before 3, insert /v/new.avi before 4");
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
    ASSERT_TRUE(clips[i].isStill || clips[i].markOut <= clips[i].sourceLength) << round;
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
