// Where the blocks of a movie lie, what lies under a point, and what a gesture writes.
#include "editor/compiler/picture_in_picture.h"
#include "editor/tabs/audio_fades.h"
#include "editor/tabs/still_options.h"
#include "editor/tabs/transition_panel.h"
#include "editor/timeline/timeline_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TimelineBench;

struct Timeline : testing::Test, TimelineBench {};

TEST_F(Timeline, LieWhereACompilePutsThem) {
  holiday();
  compileText(editing);
  const auto& blocks = state.blocks;
  for (int i = 1; i <= 4; ++i) {
    ASSERT_NE(blocks.of(i), nullptr) << i;
    EXPECT_DOUBLE_EQ(blocks.of(i)->start, collection.MovieList[i].TimeLineStart().number()) << i;
    EXPECT_DOUBLE_EQ(blocks.of(i)->stop, collection.MovieList[i].TimeLineStop().number()) << i;
  }
  EXPECT_TRUE(blocks.music[0].isTrimmed);
  EXPECT_DOUBLE_EQ(blocks.videoEnd, 19.4);
}

TEST_F(Timeline, MusicRunsPastTheVideoWhereItIsNotTrimmed) {
  holiday();
  music("more.wav", 5);
  EXPECT_EQ(state.blocks.leftOut, 0);
  show();
  EXPECT_EQ(state.blocks.leftOut, 1);  // the video is covered
  settings.adjust().AutoTrimAudio = false;
  show();
  EXPECT_DOUBLE_EQ(state.blocks.musicEnd, 158);
  settings.change().ExternalAudioStack = false;
  show();
  EXPECT_EQ(state.blocks.lanes, 2);
  EXPECT_DOUBLE_EQ(state.blocks.of(5)->start, 0);
}

TEST_F(Timeline, AreSpokenOf) {
  holiday();
  collection.MovieList[3].KeyID(7);
  collection.MovieList[3].Sepia(true);
  collection.MovieList[1].HasPicInPic(picInPicText({.overlayClip = 2}));
  std::string spoken;
  for (const double second : {0.0, 2.0}) {
    auto& keyframe = collection.KeyframeList.add({});
    keyframe.ClipName = 7;
    keyframe.Time = Value(second);
    show();
    spoken += spokenName(*state.blocks.of(3), false) + "\n";
  }
  for (const int clip : {1, 2, 4}) spoken += spokenName(*state.blocks.of(clip), clip == 4) + "\n";
  EXPECT_EQ(spoken,
            "Clip 3, sailing.avi, 7.0 seconds, colors set\n"
            "Clip 3, sailing.avi, 7.0 seconds, 2 keyframes, colors set\n"
            "Clip 1, opening.mp4, 6.0 seconds, a clip laid over it\n"
            "Clip 2, lake.mpg, 8.4 seconds, Dissolve over 2.0 seconds, 2 effects\n"
            "Music 4, music.mp3, 19.4 seconds, fades in over 2.0 seconds\n");
}

TEST(TimelineSight, ZoomKeepsWhatIsUnderThePointerWithinItsLimits) {
  TimelineSight sight;
  for (const double scale : {50.0, 7.0, 1000.0, 4.0}) {
    sight.from = 200;
    const double there = sight.secondsAt(600);
    zoomTo(sight, 2000, scale, 600);
    EXPECT_EQ(sight.scale, std::min(scale, kLargestScale));
    EXPECT_NEAR(sight.secondsAt(600), there, 1e-9) << scale;
  }
  zoomTo(sight, 2000, 0.1, 600);
  EXPECT_LT(sight.xOf(2000), sight.width);  // all of a long movie is in sight, and no less
  EXPECT_EQ(sight.from, 0);
  zoomTo(sight, 30, 1, 600);
  EXPECT_EQ(sight.scale, kLeastScale);
  scrollTo(sight, 1000, 1e9);
  EXPECT_LT(sight.xOf(1000), sight.width);
}

TEST(TimelineSight, TicksAreReadableAtEveryScale) {
  using Row = std::tuple<double, double, const char*>;  // with the texts of the first two large ones
  for (const auto& [scale, from, texts] :
       {Row{20, 0, "00:00 00:05"}, Row{200, 0.2, "00:00.0 00:00.5"}, Row{4, 60, "01:00 01:30"},
        Row{4, 3590, "59:30 1:00:00"}, Row{0.1, 0, "00:00 30:00"}}) {
    TimelineSight sight;
    sight.scale = scale;
    sight.from = from;
    auto ticks = rulerTicks(sight);
    std::erase_if(ticks, [](const auto& tick) { return tick.text.empty(); });
    ASSERT_GE(ticks.size(), 2U) << texts;
    EXPECT_EQ(ticks[0].text + " " + ticks[1].text, texts);
    EXPECT_GE(ticks[1].x - ticks[0].x, 80) << texts;
  }
}

TEST_F(Timeline, EachPartIsFoundAtItsPlace) {
  holiday();
  const auto bands = bandsOf(state.sight, 1);
  const double title = bands.clips.y + 8, middle = bands.pictures.y + 30;
  const double sound = bands.sound.y + 8, music = bands.music.y + 13;
  TimelineMarks marks{.clip = 3, .playhead = 9, .range = TimelineRange{2, 12}};
  using Row = std::tuple<double, double, TimelinePart, int>;
  const auto x = [&](double seconds) { return state.sight.xOf(seconds); };
  for (const auto& [atX, atY, part, clip] :
       {Row{x(2.5), middle, TimelinePart::Clip, 1}, Row{x(0) + 3, middle, TimelinePart::MarkIn, 1},
        Row{x(5), middle, TimelinePart::Wedge, 2}, Row{x(6) + 4, middle, TimelinePart::WedgeEnd, 2},
        Row{x(12.4) - 14, title, TimelinePart::Effects, 2},
        Row{x(12.4) - 9, middle, TimelinePart::MarkIn, 3},  // of the clip in hand
        Row{x(19.4) + 9, middle, TimelinePart::MarkOut, 3}, Row{x(15), middle, TimelinePart::Clip, 3},
        Row{x(12.4) + 14, sound, TimelinePart::FadeIn, 3}, Row{x(2), music, TimelinePart::FadeIn, 4},
        Row{x(10), music, TimelinePart::Music, 4}, Row{x(19.4) - 4, music, TimelinePart::MarkOut, 4},
        Row{x(5), 10, TimelinePart::Ruler, 0}, Row{x(9) + 5, 15, TimelinePart::Playhead, 0},
        Row{x(12) - 8, 5, TimelinePart::RangeTo, 0}, Row{x(25), middle, TimelinePart::Nothing, 0},
        Row{40, middle, TimelinePart::Nothing, 0}}) {
    const auto hit = hitAt(state.blocks, state.sight, marks, {atX, atY});
    EXPECT_EQ(static_cast<int>(hit.part), static_cast<int>(part)) << atX << " " << atY;
    EXPECT_EQ(hit.clip, clip) << atX << " " << atY;
  }
}

struct StillBehind : TimelineBench {
  StillBehind() {
    holiday();
    auto& still = addVideo("photo.jpg", 0, 0);
    still.IsStill(true);
    still.DurationTime("N/A");
    static_cast<void>(compileText(editing));
  }
  void choose(int clip, const char* transition, double tenths) {
    collection.icurMov = clip;
    editor.controls.Sld_In.Value = tenths;
    TransitionPanel panel{.selected = transition};
    DoTransition(editing, panel, 0);
  }
  void fade(int clip, double in, double out) {
    collection.icurMov = clip;
    AudioFadeControls controls{true, in, out};
    AdjustAudioTrackFadeObjects(editing, controls, true);
  }
};

TEST(TimelineWrites, TheDocumentIsThatOfTheLists) {
  const StillControls lasts{.milliseconds = 3200, .individually = true, .selectedClip = 5};
  using Act = std::function<void(StillBehind&)>;
  const struct {
    const char* what;
    Act byLists, byHand;
  } rows[] = {
      {"over a cut", [](auto& b) { b.choose(3, "Dissolve", 15); },
       [](auto& b) {
         b.setTransIn({3, 15});
       }},
      {"longer", [](auto& b) { b.choose(2, "Dissolve", 30); },
       [](auto& b) {
         b.setTransIn({2, 30});
       }},
      {"no transition", [](auto& b) { b.choose(2, "", 0); },
       [](auto& b) {
         b.setTransIn({2, 0});
       }},
      {"a fade of music", [](auto& b) { b.fade(4, 20, 15); },
       [](auto& b) {
         b.setFade({4, ClipEdge::Out, 15});
       }},
      {"a fade of a clip", [](auto& b) { b.fade(1, 5, 0); },
       [](auto& b) {
         b.setFade({1, ClipEdge::In, 5});
       }},
      {"a still lasts", [&](auto& b) { ApplyStillSettings(b.editing, lasts); },
       [](auto& b) {
         b.setMark({5, ClipEdge::Out, 3.2, 0});
       }},
  };
  for (const auto& row : rows) {
    StillBehind lists, hand;
    const auto before = compileText(hand.editing);
    row.byLists(lists);
    row.byHand(hand);
    const auto after = compileText(hand.editing);
    EXPECT_NE(after, before) << row.what;
    EXPECT_EQ(after, compileText(lists.editing)) << row.what;
  }
}

TEST_F(Timeline, AMarkIsInSecondsAndInPictures) {
  auto& clip = video("a.avi", 0, 10, 10.02);
  for (const auto& mark : {MarkGesture{1, ClipEdge::In, 2.4, 60}, {1, ClipEdge::Out, 7.2, 180}})
    writeMark(clip, mark);
  const auto marks = [&] {
    return clip.LoopStart().text() + " " + std::to_string(clip.LoopStartFrames()) + ", " +
           clip.LoopEnd().text() + " " + std::to_string(clip.LoopEndFrames());
  };
  EXPECT_EQ(marks(), "2.4 60, 7.2 180");
  writeMark(clip, {1, ClipEdge::Out, 10.02, 249});
  EXPECT_EQ(marks(), "2.4 60, 10.02 250") << "the file's own length";
}

}  // namespace
}  // namespace kvo
