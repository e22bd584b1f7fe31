#include "editor/compiler/durations.h"

#include "editor/tabs/clip_checks.h"
#include "editor/tabs/operations.h"
#include "support/fakes.h"

#include <cmath>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Bench;

TEST(Durations, ACutIsPreviewedByTheLadder) {
  const std::pair<double, float> rows[] = {{0.2, 0.2F},  {0.25, 0.25F}, {0.6, 0.5F},
                                           {1.2, 0.75F}, {1.5, 1.0F},   {10, 2.0F}};
  for (const auto& [length, section] : rows) {
    Bench b;
    b.addVideo("a.avi", 0, length);
    b.addVideo("b.avi", 0, 12);
    EXPECT_FLOAT_EQ(CalcMinimumDur(TimelineClips(b.collection)[1], TimelineClips(b.collection)[2]), section)
        << length;
  }
}

TEST(Durations, TheShortestCutHoldsTheTrackFade) {
  Bench b;
  b.addMusic("m.mp3", 0, 4);
  EXPECT_EQ(FindShortestCut(TimelineClips(b.collection, b.streams), false), 0);
  EXPECT_EQ(FindShortestCut(TimelineClips(b.collection, b.streams), true), 4);
  UpdateTrackFade(b.editing, false);
  EXPECT_FLOAT_EQ(b.settings.preferences().VideoTrackFadeAmt, -0.5F);
}

TEST(Durations, RowsEndInTheirClipNumber) {
  EXPECT_EQ(GetIndividualClipNo("beach.avi   12"), 12);
  EXPECT_EQ(GetIndividualClipNo("clip   79999"), 79999);
  EXPECT_EQ(GetIndividualClipNo(""), 1);
}

TEST(Durations, AnAutomaticFadeNeedsRoom) {
  struct Row {
    double start, stop;
    float amount;
    bool fits;
    std::optional<double> fade, out;
  };
  for (const auto& row :
       {Row{4, 8, 0, true, 2, 2}, Row{4, 6, 0, false, {}, {}}, Row{0, 5, 1, true, 1, 4},
        Row{0, 1, 1, false, {}, {}}, Row{0.5, 2.4, 2, false, {}, {}}, Row{0.5, 2.51, 2.4F, false, 0.1, {}}}) {
    const auto fade = CalcAutofade(row.start, row.stop, row.amount);
    EXPECT_EQ(fade.fits, row.fits) << row.stop;
    EXPECT_EQ(fade.FadeTime, row.fade) << row.stop;
    if (row.out) {
      EXPECT_EQ(fade.FadeOutStart, row.out) << row.stop;
    }
  }
}

}  // namespace
}  // namespace kvo
