// Media files becoming clip records.
#include "intake/add_clips.h"

#include "support/fakes.h"

#include <set>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct IntakeBench : test::Bench {
  int lastAdded = 0;
  AddClips intake{
      {files, clock, boxes, streams}, settings, collection, [this](int number) { lastAdded = number; }};

  Movie& added(const std::string& path, const StreamFacts& facts) {
    streams.all[path] = facts;
    EXPECT_TRUE(intake.AddMoviesm(path)) << path;
    EXPECT_EQ(lastAdded, collection.MovieList.count());
    return collection.MovieList[collection.MovieList.count()];
  }
};

TEST(AddClips, ClipsOfOneSecondHaveKeysOfTheirOwn) {
  IntakeBench b;
  b.clock.time = {2026, 3, 7, 0, 0, 8.4};
  b.addVideo("old.avi", 0, 5).KeyID(9);
  Keyframe left;  // of a clip that was taken out
  left.ClipName = 10;
  b.collection.KeyframeList.add(left);
  std::vector<Long> keys;
  for (const auto* name : {"a", "b", "c"})
    keys.push_back(b.added(std::string("/v/") + name + ".avi", {.hasVideo = true, .duration = 4}).KeyID());
  EXPECT_EQ(keys, (std::vector<Long>{8, 11, 12}));
  b.clock.time = {2026, 3, 7, 0, 0, 0};
  EXPECT_GT(b.added("/v/midnight.avi", {.hasVideo = true, .duration = 4}).KeyID(), 0);
}

TEST(AddClips, AFullCollectionTakesNoMore) {
  IntakeBench b;
  for (int i = 0; i < kMaxClips; ++i) b.collection.MovieList.add({});
  b.streams.all["/v/a.avi"] = {.hasVideo = true, .duration = 4};
  EXPECT_FALSE(b.intake.AddMoviesm("/v/a.avi"));
  EXPECT_EQ(b.collection.MovieList.count(), kMaxClips);
  ASSERT_EQ(b.boxes.shown.size(), 1U);
  EXPECT_NE(b.boxes.shown[0].text.find("32767"), std::string::npos);
}

TEST(AddClips, TheNameAndTheStreamsTellTheKind) {
  struct Row {
    const char* name;
    StreamFacts facts;
    const char* resolution;
    bool still;
  };
  const StreamFacts movie{
      .hasVideo = true, .hasAudio = true, .width = 640, .height = 480, .sampleRate = 48000};
  const StreamFacts sound{.hasAudio = true, .sampleRate = 44100, .duration = 3};
  const StreamFacts picture{.hasVideo = true, .isStill = true, .width = 320, .height = 200};
  for (const auto& row : {Row{"a.mp4", movie, "640 x 480", false}, Row{"a.mp4", sound, "44.1 KHz", false},
                          Row{"a.ogg", movie, "640 x 480", false}, Row{"a.flac", sound, "44.1 KHz", false},
                          Row{"a.wma", movie, "48 KHz", false}, Row{"a.tiff", picture, "320 x 200", true}}) {
    IntakeBench b;
    const auto& clip = b.added(std::string("/v/") + row.name, row.facts);
    EXPECT_EQ(clip.Resolution().text(), row.resolution) << row.name;
    EXPECT_EQ(clip.IsStill(), row.still) << row.name;
  }
}

}  // namespace
}  // namespace kvo
