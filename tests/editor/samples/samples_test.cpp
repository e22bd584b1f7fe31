// The small pictures that the transitions are chosen by.
#include "editor/samples/effect_painter.h"
#include "editor/samples/engine_samples.h"
#include "editor/samples/sample_art.h"
#include "editor/samples/sample_pictures.h"
#include "editor/samples/transition_painter.h"
#include "support/fakes.h"
#include "vocabulary/transitions.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

namespace kvo {
namespace {

constexpr int kDark = 60;
constexpr int kBright = 200;
using test::Bench;

FramePicture grey(int value) {
  const auto byte = static_cast<std::uint8_t>(value);
  return plainPicture(kTransitionSampleWidth, kTransitionSampleHeight, byte, byte, byte);
}

double meanOf(const FramePicture& picture) {
  double sum = 0;
  for (const auto byte : picture.bgr) sum += byte;
  return sum / static_cast<double>(picture.bgr.size());
}

// Of each name on offer: it begins with the first picture, ends with the second, and is neither between.
TEST(TransitionPainter, PaintsEveryNameOnOffer) {
  for (const auto name : transitionNames()) {
    const auto paint = preparePainting(name, grey(kDark), grey(kBright));
    ASSERT_TRUE(paint) << name << ": " << paint.error().text;
    const auto middle = (*paint)((kSampleStill + 0.5) / kSampleSteps);
    EXPECT_EQ(middle.width, kTransitionSampleWidth) << name;
    EXPECT_EQ(middle.height, kTransitionSampleHeight) << name;
    const auto other = [&](int than) {
      return std::any_of(middle.bgr.begin(), middle.bgr.end(),
                         [&](int byte) { return std::abs(byte - than) > 20; });
    };
    EXPECT_TRUE(other(kDark) && other(kBright)) << name;
    EXPECT_NEAR(meanOf((*paint)(1)), kBright, 3) << name;
  }
  EXPECT_FALSE(preparePainting("no such transition", grey(kDark), grey(kBright)));
}

// Of each effect: it makes something else of a picture with edges, shades and colours, unless it begins at
// level 0.
TEST(EffectPainter, PaintsEveryEffectOnOffer) {
  auto picture = plainPicture(kEffectSampleWidth, kEffectSampleHeight, 90, 40, 160);
  for (std::size_t i = 0; i < picture.bgr.size(); ++i) {
    const auto column = i / 3 % kEffectSampleWidth;
    if (column / 16 % 2 == 0) picture.bgr[i] = static_cast<std::uint8_t>(column * 2);
  }
  const EffectsTable effects;
  for (int number = 1; number <= 42; ++number) {
    const auto paint =
        prepareEffect(std::to_string(number), effects, kEffectSampleWidth, kEffectSampleHeight);
    ASSERT_TRUE(paint) << number << ": " << paint.error().text;
    const auto* slot = effects.slot(number - 8);
    const bool shows = slot == nullptr || slot->Transparency != "0";
    EXPECT_EQ((*paint)(picture, 0.5).bgr != bytesOf(pictureOf(picture)).bgr, shows) << number;
  }
  for (const auto* none : {"0", "47", "Mirror"}) EXPECT_FALSE(prepareEffect(none, effects, 32, 18)) << none;
}

// A picture is as bright as the second of its file.
struct SamplesBench : testing::Test, Bench {
  std::atomic<int> come = 0;
  EngineSamples samples{transitionArt(collection, settings), streams, [this] { ++come; }};

  /// The sample as soon as it is there; null where one has come and it is not.
  MovingSamples::Picture wait(std::string_view name, int step = kSampleStill) {
    const int before = come;
    auto there = samples.picture(name, step);
    for (int i = 0; i < 4000 && there == nullptr && come == before; ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return there != nullptr ? there : samples.picture(name, step);
  }
};

TEST_F(SamplesBench, LeadFromTheClipBeforeIntoTheOneInHandInTheShapeOfTheMovie) {
  ASSERT_NE(wait("Wipe Hard"), nullptr) << "plain";
  const int before = samples.revision();
  addVideo("a.avi", 0, 81);
  addMusic("song.mp3", 0, 50);
  addVideo("b.avi", 129, 150);
  collection.icurMov = 3;
  const auto first = wait("Wipe Hard", 0), last = wait("Wipe Hard", kSampleSteps - 1);
  EXPECT_GT(samples.revision(), before);
  ASSERT_TRUE(first != nullptr && last != nullptr);
  EXPECT_NEAR(meanOf(*first), 80, 5) << "a second ahead of its end";
  EXPECT_NEAR(meanOf(*last), 130, 5) << "a second behind its start";
  EXPECT_EQ(samples.picture("Wipe Hard", 0), first) << "the same clips: it is kept";
  for (const auto& [width, height, sample] :
       {std::tuple{640, 480, std::pair{120, 90}}, {1920, 1080, {150, 84}}, {480, 640, {68, 90}}}) {
    settings.adjust().RenderWidth = static_cast<Integer>(width);
    settings.adjust().RenderHeight = static_cast<Integer>(height);
    const auto picture = wait("Barn");
    ASSERT_NE(picture, nullptr) << width;
    EXPECT_EQ(std::pair(picture->width, picture->height), sample);
  }
}

TEST_F(SamplesBench, AFileThatIsGoneIsAPlainColour) {
  addVideo("gone.avi", 0, 5);
  streams.all.clear();
  collection.icurMov = 1;
  EXPECT_NE(wait("Barn"), nullptr);
  EXPECT_EQ(samples.picture("no such transition", 0), nullptr);
  EXPECT_NE(wait("Iris"), nullptr) << "and those behind it come";
}

TEST(MovingSamples, AnEffectIsSeenOnAStretchOfTheClipInHand) {
  Bench b;
  b.addVideo("a.avi", 0, 20);
  b.addVideo("b.avi", 5, 6);
  b.addVideo("c.jpg", 0, 7).IsStill(true);
  b.addMusic("d.mp3", 0, 7);
  const auto art = effectArt(b.collection, b.settings, b.editor.effects);
  for (const auto& [clip, places, first, last] : {std::tuple{1, 12U, 1.0, 1.0 + 2.0 * 11 / 12},
                                                  {2, 12U, 5.5, 5.5 + 0.5 * 11 / 12},
                                                  {3, 1U, 0.0, 0.0},
                                                  {4, 1U, 0.0, 0.0}}) {
    b.collection.icurMov = clip;
    const auto seen = art.places();
    ASSERT_EQ(seen.size(), places) << clip;
    EXPECT_NEAR(seen.front().seconds, first, 1e-9) << clip;
    EXPECT_NEAR(seen.back().seconds, last, 1e-9) << clip;
    EXPECT_EQ(seen.front().path.empty(), clip == 4) << "sound has no picture";
  }
}

}  // namespace
}  // namespace kvo
