// Every effect on a picture in memory: nothing at level 0, ever more with the level, and what its name says.
#include "vocabulary/effects.h"

#include "engine/effects/registry.h"
#include "engine/params_of.h"
#include "media/colour.h"
#include "support/golden.h"
#include "support/pictures.h"
#include "vocabulary/palette.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine::effects_drawn {
namespace {

namespace ids = effect_ids;
using media::Picture;
using test::detail;
using test::difference;
using test::mean;
using test::scene;

constexpr int kWidth = 192;
constexpr int kHeight = 108;

Picture drawn(std::string_view clsid, const std::string& params,
              const Picture& picture = scene(kWidth, kHeight), const EffectMoment& moment = {1, 4}) {
  return findEffect(clsid)->drawn.make(paramsOf(params), picture.width(), picture.height())(picture, moment);
}

Picture palette(std::size_t id, const std::string& params, const Picture& picture) {
  return drawn(ids::kPalette, "EffectID=" + std::to_string(id) + " " + params, picture);
}

double apart(const Picture& a, const Picture& b) {
  return difference(a, b) + difference(a, b, 1) + difference(a, b, 2);
}

TEST(Effects, DoNothingAtLevelNoneAndMoreWithMore) {
  struct Row {
    std::string_view clsid;
    std::string params;               // the last of them gets its value
    std::vector<const char*> values;  // from nothing up
  };
  const std::string standard = "InternalName=Standard ";
  const std::string simple3D = "InternalName=Simple3D ";
  const Row rows[] = {
      {ids::kBlur, "PixelRadius=", {"0", "2", "6", "12", "40", "100"}},
      {ids::kMotionBlur, "Direction=90 Strength=", {"0", "4", "10", "30", "80"}},
      {ids::kFilmAge, "age=", {"0", "20", "50", "100"}},
      {ids::kPixelate, "MaxSquare=", {"1", "3", "8", "24"}},
      {ids::kEase, standard + "Threshold=", {"0", "0.2", "0.5", "0.9"}},
      {ids::kEase, standard + "Contrast=", {"0", "0.5", "1.5", "4"}},
      {ids::kEase, standard + "Gamma=", {"0", "2", "10", "40"}},
      {ids::kEase, standard + "Red=", {"0", "0.1", "0.4", "0.96"}},
      {ids::kEase, standard + "Green=", {"0", "0.1", "0.4", "0.96"}},
      {ids::kEase, simple3D + "MoveA=out MoveSpeedA=", {"0", "0.2", "1", "3"}},
      {ids::kEase, simple3D + "MoveA=right MoveSpeedA=", {"0", "0.2", "1"}},
      {ids::kChroma, "Color=FF8080 Tolerance=", {"0", "25", "60"}},
  };
  const auto plain = scene(kWidth, kHeight);
  for (const auto& row : rows) {
    double before = -1;
    for (const auto* value : row.values) {
      const double now = difference(plain, drawn(row.clsid, row.params + value, plain, {4, 4}));
      // A round trip through colours costs a rounding.
      if (before < 0) {
        EXPECT_LT(now, 0.7) << row.params;
      } else {
        EXPECT_GT(now, before) << row.params << value;
      }
      before = now;
    }
  }
}

TEST(Effects, OfTheBasicImageChangeEachSample) {
  const auto plain = scene(kWidth, kHeight);
  const auto mirrored = drawn(ids::kBasicImage, "mirror=1");
  const auto turned = drawn(ids::kBasicImage, "rotation=2");
  const auto negative = drawn(ids::kBasicImage, "invert=1");
  const auto grey = drawn(ids::kBasicImage, "grayscale=1");
  const auto xray = drawn(ids::kBasicImage, "xray=1");
  for (const auto& [x, y] : {std::pair{3, 5}, std::pair{100, 60}, std::pair{150, 90}}) {
    const int v = plain.row(0, y)[x];
    EXPECT_EQ(mirrored.row(0, y)[kWidth - 1 - x], v);
    EXPECT_EQ(turned.row(0, kHeight - 1 - y)[kWidth - 1 - x], v);
    EXPECT_EQ(negative.row(0, y)[x], 251 - v);
    EXPECT_EQ(negative.row(1, y / 2)[x / 2], 256 - plain.row(1, y / 2)[x / 2]);
    EXPECT_EQ(grey.row(0, y)[x], v);
    EXPECT_EQ(grey.row(2, y / 2)[x / 2], 128);
    EXPECT_EQ(xray.row(0, y)[x], 251 - v);
    EXPECT_EQ(xray.row(1, y / 2)[x / 2], 128);
  }
}

TEST(Effects, DoWhatTheirNamesSay) {
  const auto plain = scene(kWidth, kHeight);
  // Engraved and embossed are each other's negative, grey where nothing changes.
  const auto emboss = drawn(ids::kEmboss, "");
  const auto engrave = drawn(ids::kEngrave, "");
  EXPECT_NEAR(mean(emboss), 126, 8);
  EXPECT_EQ(mean(emboss, 1), 128);
  int opposite = 0;
  for (int x = 0; x < kWidth; ++x)
    opposite += std::abs(emboss.row(0, 60)[x] + engrave.row(0, 60)[x] - 252) <= 1;
  EXPECT_GT(opposite, kWidth * 8 / 10);

  EXPECT_LT(detail(drawn(ids::kBlur, "PixelRadius=8"), 1, 0), detail(plain, 1, 0) / 3);
  EXPECT_NEAR(mean(drawn(ids::kBlur, "PixelRadius=30")), mean(plain), 1.5);
  // Drawn out sideways, detail down is kept better than detail across.
  const auto sideways = drawn(ids::kMotionBlur, "Strength=24 Direction=90");
  EXPECT_LT(detail(sideways, 1, 0) / detail(plain, 1, 0), 0.6 * detail(sideways, 0, 1) / detail(plain, 0, 1));
  const auto added = drawn(ids::kMotionBlur, "Strength=24 Direction=90 Add=true");
  EXPECT_LT(difference(plain, added), 0.6 * difference(plain, sideways)) << "the sharp picture shows through";

  // Squares: within one nothing differs.
  const auto squares = drawn(ids::kPixelate, "MaxSquare=12");
  EXPECT_EQ(squares.row(0, 1)[1], squares.row(0, 10)[10]);
  EXPECT_LT(detail(squares, 1, 0), detail(plain, 1, 0) / 2);

  EXPECT_EQ(difference(drawn(ids::kFadeToBlack, "", plain, {1.9, 4}), plain), 0);
  EXPECT_NEAR(mean(drawn(ids::kFadeToBlack, "", plain, {3, 4})) - 16, (mean(plain) - 16) / 2, 1);
  EXPECT_EQ(mean(drawn(ids::kFadeToBlack, "", plain, {4, 4})), 16);

  const auto age = [&](double time) { return drawn(ids::kFilmAge, "age=80", plain, {time, 4}); };
  EXPECT_GT(mean(age(1), 2), mean(plain, 2) - 20) << "brown";
  EXPECT_LT(std::abs(mean(age(1), 1) - 118), std::abs(mean(plain, 1) - 118) + 1);
  EXPECT_GT(difference(age(1), age(1.04)), 1) << "another grain in each frame";
  EXPECT_EQ(difference(age(1), age(1)), 0) << "but the same in each render";

  const auto brown = drawn(
      ids::kEase, "InternalName=Standard Desaturate=True Red=0.10 Magenta=0.09 Yellow=0.25 Contrast=1.00");
  EXPECT_GT(mean(brown, 2), 132);
  EXPECT_LT(mean(brown, 1), 122);
  EXPECT_GT(mean(drawn(ids::kEase, "InternalName=Standard Blue=0.8"), 1), mean(plain, 1) + 8);
}

TEST(Effects, LeaveAnAlphaThatSaysWhatIsSeen) {
  const auto plain = scene(kWidth, kHeight);
  const auto alphaAt = [](const Picture& picture, double x, double y) {
    return picture.row(3, static_cast<int>(y * (kHeight - 1)))[static_cast<int>(x * (kWidth - 1))];
  };
  const auto half = drawn(ids::kAlpha, "Style=0 opacity=50");
  EXPECT_NEAR(alphaAt(half, 0.1, 0.1), 127, 1);
  EXPECT_NEAR(half.row(0, 50)[90], 16 + (plain.row(0, 50)[90] - 16) / 2.0, 1.5) << "premultiplied";
  const auto round = drawn(ids::kAlpha, "Style=2 opacity=100 FinishOpacity=0");
  EXPECT_GT(alphaAt(round, 0.5, 0.5), 250);
  EXPECT_LE(alphaAt(round, 0, 0.5), 2);
  EXPECT_EQ(alphaAt(round, 0.1, 0.1), 0) << "round: nothing in the corners";
  const auto square = drawn(ids::kAlpha, "Style=3 opacity=100 FinishOpacity=0");
  EXPECT_GT(alphaAt(square, 0.14, 0.14), 40) << "the corners go as the sides do";
  EXPECT_NEAR(alphaAt(square, 0.14, 0.14), alphaAt(square, 0.14, 0.5), 4);
  EXPECT_EQ(drawn(ids::kAlpha, "opacity=100", plain).frame(), plain.frame());

  // A green field with a red box: the field goes.
  auto keyed = media::Canvas::make(kWidth, kHeight);
  const auto green = media::yuvOf({0, 255, 0}, kHeight);
  const auto red = media::yuvOf({255, 0, 0}, kHeight);
  for (int plane = 0; plane < 3; ++plane) {
    const auto valueOf = [plane](const auto& c) { return plane == 0 ? c.y : plane == 1 ? c.u : c.v; };
    keyed.fill(plane, valueOf(green));
    for (int y = keyed.height(plane) / 4; y < keyed.height(plane) / 2; ++y)
      std::fill_n(keyed.row(plane, y) + keyed.width(plane) / 4, keyed.width(plane) / 4, valueOf(red));
  }
  const auto cut = drawn(ids::kChroma, "", share(std::move(keyed)));
  EXPECT_EQ(alphaAt(cut, 0.8, 0.8), 0);
  EXPECT_EQ(alphaAt(cut, 0.35, 0.35), 255);
  EXPECT_EQ(cut.row(0, 90)[150], 16) << "no colour where nothing is seen";
  const auto shadow = drawn(ids::kDropShadow, "OffX=12 OffY=8 Color=FFFFFF", cut);
  EXPECT_EQ(alphaAt(shadow, 0.35, 0.35), 255);
  EXPECT_GT(alphaAt(shadow, 0.52, 0.45), 100) << "to the right of the box";
  EXPECT_LT(alphaAt(shadow, 0.2, 0.35), 30) << "not to its left";
}

TEST(PaletteEffects, AllFollowTheirLevelControlsAndColours) {
  // Large enough that every length is some pixels.
  const auto plain = scene(320, 180);
  for (std::size_t id = 1; id <= kPaletteNames.size(); ++id) {
    const auto name = kPaletteNames.at(id - 1);
    EXPECT_EQ(palette(id, "Transparency=0", plain).frame(), plain.frame()) << name;
    const auto whole = palette(id, "", plain);
    double before = 0;
    for (const auto* level : {"20", "50", "80", "100"}) {
      const double now = difference(plain, palette(id, std::string("Transparency=") + level, plain));
      EXPECT_GT(now, before) << name << " at level " << level;
      before = now;
    }
    EXPECT_GT(apart(plain, whole), 2) << name << " is seen";
    const auto changes = [&](const std::string& params) { return apart(whole, palette(id, params, plain)); };
    for (int control = 1; control <= 8; ++control) {
      const auto value = "Control" + std::to_string(control) + "Value=";
      const double some = changes(value + "50");
      EXPECT_GT(some, 0.05) << name << ", " << value;
      if (control >= 5) {
        EXPECT_GT(changes(value + "100"), some) << name << ", " << value;
      }
    }
    for (const std::string colour : {"RGBForeColor", "RGBBackColor", "TextureURL"})
      EXPECT_GT(changes(colour + "=MAGENTA"), 0.1) << name << ", " << colour;
  }
  EXPECT_EQ(palette(49, "", plain).frame(), plain.frame());
}

// What each of the 48 does that can be counted. The bounds lie well between what any two of them measure.
TEST(PaletteEffects, EachHasItsMarks) {
  const auto plain = scene(320, 180);
  const auto even = test::plainPicture(320, 180, 128);
  const auto count = [](const Picture& picture, auto which) {
    std::ptrdiff_t sum = 0;
    for (int y = 0; y < picture.height(); ++y)
      sum += std::count_if(picture.row(0, y), picture.row(0, y) + picture.width(), which);
    return static_cast<double>(sum) / (320 * 180);
  };
  const auto tones = [](const Picture& picture) {
    std::set<int> seen;
    for (int y = 0; y < picture.height(); ++y)
      seen.insert(picture.row(0, y), picture.row(0, y) + picture.width());
    return static_cast<double>(seen.size());
  };
  std::string all;
  for (std::size_t id = 1; id <= kPaletteNames.size(); ++id) {
    const auto p = palette(id, "", plain);
    const double light = mean(p) - mean(plain);
    const double rough = detail(p, 0, 1) / detail(plain, 0, 1);
    const std::pair<const char*, bool> marks[] = {
        {"grey", difference(p, even, 1) + difference(p, even, 2) < 2},
        {"of two tones", count(p, [](int v) { return v < 40 || v > 210; }) > 0.62},
        {"of few tones", tones(p) / tones(plain) < 0.6},
        {"much darker", light < -22},
        {"darker", light >= -22 && light < -4},
        {"lighter", light > 4 && light <= 24},
        {"much lighter", light > 24},
        {"calmer", rough < 0.89},
        {"rougher", rough > 1.06 && rough <= 4.6},
        {"much rougher", rough > 4.6},
        {"with lights",
         count(p, [](int v) { return v > 228; }) - count(plain, [](int v) { return v > 228; }) > 0.15},
        {"of a weave", detail(p, 1, 1) / detail(p, 2, 0) > 1.35},
        {"leaves what is even", difference(even, palette(id, "", even)) < 3},
    };
    all += std::string(kPaletteNames.at(id - 1)) + "\n";
    for (const auto& [name, holds] : marks) all += holds ? std::string("  ") + name + "\n" : "";
  }
  test::expectGolden("palette-marks.txt", all);
}

// Every kind of effect, and each of the palette, by one set of parameters: what is drawn is another picture
// for each, the same at every drawing.
TEST(Effects, AreToldApart) {
  std::vector<std::pair<std::string, Picture>> pictures = {{"none", scene(kWidth, kHeight)}};
  for (const auto& kind : effectKinds()) {
    const bool isPalette = kind.clsid == ids::kPalette;
    for (std::size_t id = 1; id <= (isPalette ? kPaletteNames.size() : 1); ++id) {
      const auto draw = [&] {
        return drawn(kind.clsid,
                     "xray=1 PixelRadius=6 Strength=24 Direction=90 age=80 MaxSquare=8 Tolerance=60 OffX=12 "
                     "Color=FF8080 opacity=30 Red=0.5 InternalName=Standard EffectID=" +
                         std::to_string(id),
                     scene(kWidth, kHeight), {3, 4});
      };
      const auto name = std::string(kind.name) + (isPalette ? std::string(kPaletteNames.at(id - 1)) : "");
      pictures.emplace_back(name, draw());
      EXPECT_EQ(apart(pictures.back().second, draw()), 0) << name;
    }
  }
  for (std::size_t a = 0; a < pictures.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b) {
      const double distance = apart(pictures[a].second, pictures[b].second);
      const bool twice = pictures[a].first == "FadeToBlack" && pictures[b].first == "Fade";
      EXPECT_EQ(distance <= 1, twice) << pictures[a].first << " and " << pictures[b].first;
    }
  }
  EXPECT_EQ(findEffect("{no such class}"), nullptr);
}

TEST(Effects, TakeNonsense) {
  const auto small = scene(16, 16);
  for (const std::string value : {"= ", "=-1 ", "=1e9 ", "=-1e9 ", "=x "}) {
    std::string params;
    for (const std::string name :
         {"rotation", "PixelRadius", "Strength", "Direction", "age", "MaxSquare", "Tolerance", "OffX", "OffY",
          "opacity", "Style", "ScaleA", "MoveSpeedA", "Contrast", "Gamma", "Red", "Threshold", "Color",
          "ExponentialProgressDuration"}) {
      params += name + value;
    }
    for (const auto& kind : effectKinds()) {
      EXPECT_TRUE(drawn(kind.clsid, params, small)) << kind.name << value;
      EXPECT_TRUE(drawn(kind.clsid, params + "InternalName=Standard", withAlpha(small)))
          << kind.name << value;
    }
  }
  for (const auto side : {2, 4, 8}) {
    for (std::size_t id = 1; id <= kPaletteNames.size(); ++id)
      EXPECT_TRUE(palette(id, "Control1Value=100", scene(side, side))) << id;
  }
}

}  // namespace
}  // namespace kvo::engine::effects_drawn
