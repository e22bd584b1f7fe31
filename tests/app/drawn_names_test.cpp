// Every transition and effect that a user can choose, from its name in a collection to the picture.
#include "editor/compiler/picture_in_picture.h"
#include "editor/compiler/transition_names.h"
#include "editor/tabs/effects_file.h"
#include "editor/tabs/operations.h"
#include "engine/document/document_reader.h"
#include "engine/picture/compositor.h"
#include "support/fakes.h"
#include "support/pictures.h"
#include "support/real_world.h"

namespace kvo {
namespace {

constexpr int kWidth = 128;
constexpr int kHeight = 72;

class DrawnNames : public testing::Test {
 protected:
  DrawnNames() {
    picture("black.png", "color=black:size=128x72");
    picture("white.png", "color=white:size=128x72");
    picture("scene.png", "testsrc=size=128x72");
  }

  void picture(const std::string& name, const std::string& source) {
    test::makeMedia(folder_, name, {"-f", "lavfi", "-i", source, "-frames:v", "1"});
  }

  Movie& addStill(test::Bench& b, const std::string& name, double seconds) const {
    return b.addStill(name, seconds, folder_.path() + "/");
  }

  static engine::Timeline compiled(test::Bench& b, const std::string& what) {
    b.editor.controls.txtWidth = kWidth;
    b.editor.controls.txtHeight = kHeight;
    b.settings.adjust().RenderVideoAudio = false;
    auto timeline = engine::readDocument(compileText(b.editing));
    EXPECT_TRUE(timeline) << what << ": " << timeline.error().text;
    return timeline ? std::move(*timeline) : engine::Timeline{};
  }

  static media::Picture frame(engine::Compositor& compositor, std::int64_t number, const std::string& what) {
    auto picture = compositor.frame(number);
    EXPECT_TRUE(picture) << what << ": " << picture.error().text;
    return picture ? std::move(*picture) : share(media::Canvas::black(kWidth, kHeight));
  }

  test::ScratchFolder folder_;
};

// From black to white over two seconds, at 25 frames a second.
TEST_F(DrawnNames, EveryTransitionLeadsFromOneClipToTheNext) {
  std::vector<std::string> names(transitionNames().begin(), transitionNames().end());
  const auto isNew = [&](std::string_view name) {
    return !name.empty() && std::find(names.begin(), names.end(), name) == names.end();
  };
  for (const auto& known : transitionClasses()) {  // those, too, that are not on offer
    if (isNew(known.name)) names.emplace_back(known.name);
  }
  for (const auto& name : names) {
    test::Bench b;
    addStill(b, "black.png", 2);
    test::withTransition(addStill(b, "white.png", 2), name, 20);
    const auto timeline = compiled(b, name);
    engine::Compositor compositor(timeline);
    const auto shareAt = [&](std::int64_t number) {
      return (test::mean(frame(compositor, number, name)) - 16) / 219;
    };
    // These stand in a corner of the first at once, as their keys say; that one is a cut.
    const bool placed = name.starts_with("Bounce") || name == "QuartileMove" || name == "Compositor";
    EXPECT_TRUE(placed || shareAt(0) < 0.001) << name << " begins with the first: " << shareAt(0);
    const bool hasWay = name != "Compositor" && name != "Threshold";
    const auto half = shareAt(28);
    EXPECT_TRUE(!hasWay || (half > 0.002 && half < (name == "FadeWhite" ? 1.01 : 0.995)))
        << name << " is on its way: " << half;
    EXPECT_GT(shareAt(49), 0.997) << name << " ends with the second";
  }
}

TEST_F(DrawnNames, EveryEffectIsSeen) {
  media::Picture plain;
  for (std::size_t position = 0; position <= 46; ++position) {  // at first none
    test::Bench b;
    LoadEffects(b.editing);
    auto& clip = addStill(b, "scene.png", 3);
    std::string word(46, '0');
    if (position > 0) word[position - 1] = '1';
    clip.EffectWord(word);
    clip.BlurInt(5);
    clip.MBlurStrength(14);
    clip.MBlurDirection(20);
    clip.AgeIntensity(35);
    clip.ScaleA(1);
    clip.InitialScaleA(0.75F);
    const auto what = "switch " + std::to_string(position);
    const auto timeline = compiled(b, what);
    const auto& effects = timeline.video.at(0).effects;
    ASSERT_EQ(effects.size(), position > 0 ? 1U : 0U) << what;
    // InkOutline's level in the table is 0: it waits for the user to raise it.
    const auto* level = effects.empty() ? nullptr : effects[0].params.find("transparency");
    if (level != nullptr && level->number.value == 0) continue;
    engine::Compositor compositor(timeline);
    const auto picture = frame(compositor, 60, what);
    if (position == 0) plain = picture;
    EXPECT_EQ(test::difference(plain, picture) + test::difference(plain, picture, 1) > 0.3, position > 0)
        << what;
  }
}

TEST_F(DrawnNames, APictureInAPictureStandsInItsPlace) {
  test::Bench b;
  auto& backdrop = addStill(b, "black.png", 4);
  for (auto* clip : {&backdrop, &addStill(b, "white.png", 4)}) clip->DurationTime(Value(4));
  b.editor.controls.txtWidth = kWidth;
  b.editor.controls.txtHeight = kHeight;
  const auto drawn = [&](const PicInPic& look, int number) {
    backdrop.HasPicInPic(picInPicText(look));
    const auto timeline = engine::readDocument(CreatePinPPreview(b.editing, 1, {.backdropAudio = true}));
    EXPECT_TRUE(timeline) << timeline.error().text;
    engine::Compositor compositor(*timeline);
    return frame(compositor, number, "picture in picture");
  };
  for (const auto& [position, x, y, share] :
       {std::tuple{1, 10, 10, 0.25}, {4, 100, 60, 0.25}, {12, 110, 66, 1 / 9.0}, {15, 64, 36, 1 / 9.0}}) {
    for (const auto& [number, seen] : {std::pair{1, 0.04}, {12, 0.5}, {50, 1.0}, {87, 0.5}}) {
      const auto picture =
          drawn({.overlayClip = 2, .position = position, .fadeIn = 1000, .fadeOut = 1000}, number);
      EXPECT_NEAR((picture.row(0, y)[x] - 16) / 219.0, seen, 0.05) << position << " at " << number;
      EXPECT_NEAR((test::mean(picture) - 16) / 219, share * seen, 0.015) << position << " at " << number;
    }
  }
  // The radial style fades out to nothing at its rim.
  const auto round = drawn({.overlayClip = 2, .style = OverlayStyle::Radial, .position = 8}, 20);
  EXPECT_GT(round.row(0, kHeight / 2)[kWidth / 2], 225);
  EXPECT_LT(round.row(0, 2)[2], 20);
}

}  // namespace
}  // namespace kvo
