// The small pictures that the transitions are chosen by.
#include "editor/samples/effect_painter.h"
#include "editor/samples/engine_samples.h"
#include "editor/samples/sample_art.h"
#include "editor/samples/sample_pictures.h"
#include "editor/samples/transition_painter.h"
#include "vocabulary/transitions.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

namespace kvo {
namespace {

constexpr int kDark = 60;
constexpr int kBright = 200;
using QuietSize = std::pair<Integer, Integer>;

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
    EXPECT_EQ(std::pair(middle.width, middle.height),
              std::pair(kTransitionSampleWidth, kTransitionSampleHeight))
        << name;
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

// Every file is grey, by the length of its name.
class GreyFiles final : public MediaContents {
 public:
  Result<StreamFacts> facts(const std::string& path) override { return Error{path}; }
  Result<FramePicture> frame(const std::string& path, double /*seconds*/, int width, int height) override {
    const auto byte = static_cast<std::uint8_t>(path.size() * 10);
    return path == "/v/gone.avi" ? Result<FramePicture>(Error{path})
                                 : plainPicture(width, height, byte, byte, byte);
  }
};

class SamplesBench {
 public:
  GreyFiles files;
  Collection collection;
  KVO2 settings;
  EngineSamples samples{transitionArt(collection, settings), files, [this] {
                          const std::lock_guard lock(mutex_);
                          ++come_;
                          heard_.notify_all();
                        }};

  void add(const std::string& name) {
    auto& clip = collection.MovieList.add({});
    clip.Path("/v/");
    clip.MovieName(name);
    clip.LoopEnd(Value(5));
  }

  MovingSamples::Picture wait(std::string_view name, int step = kSampleStill) {
    std::unique_lock lock(mutex_);
    const int before = come_;
    if (auto there = samples.picture(name, step)) return there;
    heard_.wait_for(lock, std::chrono::seconds(20), [&] { return come_ > before; });
    lock.unlock();
    return samples.picture(name, step);
  }

 private:
  std::mutex mutex_;
  std::condition_variable heard_;
  int come_ = 0;
};

TEST(MovingSamples, LeadFromTheClipBeforeIntoTheOneInHand) {
  SamplesBench b;
  ASSERT_NE(b.wait("Wipe Hard"), nullptr) << "plain";
  const int before = b.samples.revision();
  b.add("a.avi");
  b.add("song.mp3");
  b.add("longer.avi");
  b.collection.icurMov = 3;
  const auto first = b.wait("Wipe Hard", 0), last = b.wait("Wipe Hard", kSampleSteps - 1);
  EXPECT_GT(b.samples.revision(), before);
  ASSERT_TRUE(first != nullptr && last != nullptr);
  EXPECT_NEAR(meanOf(*first), 80, 5) << "/v/a.avi";
  EXPECT_NEAR(meanOf(*last), 130, 5) << "/v/longer.avi";
  EXPECT_EQ(b.samples.picture("Wipe Hard", 0), first) << "the same clips: it is kept";
}

TEST(MovingSamples, AnEffectIsSeenOnAStretchOfTheClipInHand) {
  Collection collection;
  const auto add = [&](const char* name, double from, double to) -> Movie& {
    auto& clip = collection.MovieList.add({});
    clip.MovieName(name);
    clip.LoopStart(Value(from));
    clip.LoopEnd(Value(to));
    return clip;
  };
  add("a.avi", 0, 20);
  add("b.avi", 5, 6);
  add("c.jpg", 0, 7).IsStill(true);
  add("d.mp3", 0, 7);
  const EffectsTable effects;
  KVO2 settings;
  const auto art = effectArt(collection, settings, effects);
  for (const auto& [clip, places, first, last] : {std::tuple{1, 12U, 1.0, 1.0 + 2.0 * 11 / 12},
                                                  {2, 12U, 5.5, 5.5 + 0.5 * 11 / 12},
                                                  {3, 1U, 0.0, 0.0}}) {
    collection.icurMov = clip;
    const auto seen = art.places();
    ASSERT_EQ(seen.size(), places) << clip;
    EXPECT_NEAR(seen.front().seconds, first, 1e-9) << clip;
    EXPECT_NEAR(seen.back().seconds, last, 1e-9) << clip;
  }
  collection.icurMov = 4;
  ASSERT_EQ(art.places().size(), 1U);
  EXPECT_EQ(art.places().front().path, "") << "sound has no picture";
}

TEST(MovingSamples, HaveTheShapeOfTheMovie) {
  SamplesBench b;
  for (const auto& [movie, sample] : {std::pair(QuietSize{640, 480}, QuietSize{120, 90}),
                                      {{1920, 1080}, {150, 84}},
                                      {{480, 640}, {68, 90}}}) {
    b.settings.adjust().RenderWidth = movie.first;
    b.settings.adjust().RenderHeight = movie.second;
    const auto picture = b.wait("Barn");
    ASSERT_NE(picture, nullptr) << movie.first;
    EXPECT_EQ(QuietSize(picture->width, picture->height), sample);
  }
}

TEST(MovingSamples, AFileThatIsGoneIsAPlainColour) {
  SamplesBench b;
  b.add("gone.avi");
  b.collection.icurMov = 1;
  EXPECT_NE(b.wait("Barn"), nullptr);
  EXPECT_EQ(b.samples.picture("no such transition", 0), nullptr);
  EXPECT_NE(b.wait("Iris"), nullptr) << "and those behind it come";
}

}  // namespace
}  // namespace kvo
