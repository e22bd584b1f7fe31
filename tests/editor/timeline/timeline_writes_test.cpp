// What the timeline writes is what the lists' controls write.
#include "editor/tabs/audio_fades.h"
#include "editor/tabs/still_options.h"
#include "editor/tabs/transition_panel.h"
#include "editor/timeline/timeline_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TimelineBench;

void choose(TimelineBench& b, int clip, const char* transition, double tenths) {
  b.collection.icurMov = clip;
  b.editor.controls.Sld_In.Value = tenths;
  TransitionPanel panel{.selected = transition};
  DoTransition(b.editing, panel, 0);
}

void fade(TimelineBench& b, int clip, double in, double out) {
  b.collection.icurMov = clip;
  AudioFadeControls controls{true, in, out};
  AdjustAudioTrackFadeObjects(b.editing, controls, true);
}

TEST(TimelineWrites, TheDocumentIsThatOfTheLists) {
  struct Row {
    const char* what;
    std::function<void(TimelineBench&)> byLists;
    std::function<void(Collection&)> byHand;
  };
  const auto transition = [](const TransInGesture& made) {
    return [made](Collection& c) { writeTransIn(c.MovieList[made.clip], made); };
  };
  const auto fades = [](const FadeGesture& made) {
    return [made](Collection& c) { writeFade(c.MovieList[made.clip], made); };
  };
  const StillControls lasts{.milliseconds = 3200, .individually = true, .selectedClip = 5};
  const MarkGesture ends{5, ClipEdge::Out, 3.2, 0};
  const Row rows[] = {
      {"over a cut", [](auto& b) { choose(b, 3, "Dissolve", 15); }, transition({3, 15})},
      {"the same, longer", [](auto& b) { choose(b, 2, "Dissolve", 30); }, transition({2, 30})},
      {"no transition", [](auto& b) { choose(b, 2, "", 0); }, transition({2, 0})},
      {"a fade of music", [](auto& b) { fade(b, 4, 20, 15); }, fades({4, ClipEdge::Out, 15})},
      {"a fade of a clip", [](auto& b) { fade(b, 1, 5, 0); }, fades({1, ClipEdge::In, 5})},
      {"how long a still lasts", [&](auto& b) { ApplyStillSettings(b.editing, lasts); },
       [&](auto& c) { writeMark(c.MovieList[5], ends); }},
  };
  for (const auto& row : rows) {
    TimelineBench lists;
    TimelineBench hand;
    for (auto* b : {&lists, &hand}) {
      b->holiday();
      auto& still = b->addVideo("photo.jpg", 0, 0);
      still.IsStill(true);
      still.DurationTime("N/A");
    }
    const auto before = compileText(hand.editing);
    static_cast<void>(compileText(lists.editing));
    row.byLists(lists);
    row.byHand(hand.collection);
    const auto after = compileText(hand.editing);
    EXPECT_NE(after, before) << row.what;
    EXPECT_EQ(after, compileText(lists.editing)) << row.what;
  }
}

TEST(TimelineWrites, AMarkIsInSecondsAndInPictures) {
  TimelineBench b;
  auto& clip = b.video("a.avi", 0, 10, 10.02);
  writeMark(clip, {1, ClipEdge::In, 2.4, 60});
  EXPECT_EQ(clip.LoopStart().text(), "2.4");
  EXPECT_EQ(clip.LoopStartFrames(), 60);
  writeMark(clip, {1, ClipEdge::Out, 7.2, 180});
  EXPECT_EQ(clip.LoopEnd().text(), "7.2");
  EXPECT_EQ(clip.LoopEndFrames(), 180);
  writeMark(clip, {1, ClipEdge::Out, 10.02, 250});
  EXPECT_EQ(clip.LoopEnd(), clip.DurationTime());
  EXPECT_EQ(clip.LoopEndFrames(), toLongClamped(clip.DurationFrames().number()));
}

}  // namespace
}  // namespace kvo
