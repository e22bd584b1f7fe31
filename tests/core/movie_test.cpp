#include "core/records/movie.h"

#include "support/fakes.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(Movie, OnlyACutClearsTheExtraParameters) {
  for (const auto* name : {"cut", "CUT", "", "  "}) {
    Movie clip;
    clip.ExtraParamName1("bands");
    clip.ExtraParamValue2("Left");
    clip.TransType(name);
    EXPECT_EQ(clip.ExtraParamName1() + clip.ExtraParamValue2(), "") << name;
  }
  Movie clip;
  clip.ExtraParamName1("bands");
  clip.TransType("Blinds");
  EXPECT_EQ(clip.ExtraParamName1(), "bands");
}

TEST(Movie, SettersMarkTheRecordOnlyWhereTheyShould) {
  Movie clip;
  clip.MovieName("a");
  clip.Path("/");
  clip.AltName("b");
  clip.XPos(3);
  clip.Orderinplaylist(2);
  clip.Size("-12-3");
  clip.HasAudio(true);
  EXPECT_FALSE(clip.IsDirty());
  EXPECT_EQ(clip.Size(), "123");
  clip.Volume(7);
  EXPECT_TRUE(clip.IsDirty());
}

TEST(Movie, WithoutSoundNothingIsRendered) {
  Movie clip;
  clip.RenderAudio(true);
  EXPECT_TRUE(clip.RenderAudio());
  EXPECT_FALSE(clip.HasAudio());
  EXPECT_FALSE(clip.RenderAudio());
}

TEST(Movie, FramesFollowTheSecondsWhereDurationsAreNumbers) {
  Movie clip;
  clip.DurationFrames(Value("250"));
  clip.DurationTime(Value("10"));
  clip.LoopStart(Value("2.5"));
  clip.LoopEnd(Value("N/A"));
  EXPECT_EQ(clip.LoopStartFrames(), 62);  // 62.5 to the even neighbour
  EXPECT_EQ(clip.LoopEndFrames(), 250);   // not set: the whole
  clip.LoopEnd(Value(4));
  EXPECT_EQ(clip.LoopEndFrames(), 100);
  clip.DurationTime(Value("N/A"));
  clip.LoopEnd(Value(6));
  EXPECT_EQ(clip.LoopEnd().number(), 6);
  EXPECT_EQ(clip.LoopEndFrames(), 100);
}

TEST(Movie, PostsChangeCodesByTheirConditions) {
  KVO2 settings;
  ChangePoster poster(settings);
  Movie clip;
  clip.listener(&poster);
  const struct {
    Integer before;
    void (*set)(Movie&);
    Integer after;
  } rows[] = {
      {0, [](Movie& m) { m.LoopStart(Value(1)); }, 1},   {95, [](Movie& m) { m.LoopStart(Value(1)); }, 1},
      {96, [](Movie& m) { m.LoopStart(Value(1)); }, 96}, {0, [](Movie& m) { m.LoopEnd(Value(1)); }, 1},
      {95, [](Movie& m) { m.LoopEnd(Value(1)); }, 95},   {1, [](Movie& m) { m.LoopEndFrames(5); }, 96},
      {99, [](Movie& m) { m.LoopStartFrames(5); }, 99},  {1, [](Movie& m) { m.AudioOutputLevel(1); }, 1},
      {95, [](Movie& m) { m.AudioOutputLevel(1); }, 95},
  };
  for (const auto& row : rows) {
    settings.state.ObjectChange = row.before;
    row.set(clip);
    EXPECT_EQ(settings.state.ObjectChange, row.after) << row.before;
  }
}

}  // namespace
}  // namespace kvo
