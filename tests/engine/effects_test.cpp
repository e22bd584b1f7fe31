// Every effect on a picture in memory: nothing at level 0, ever more with the level, and what its name says.
#include "vocabulary/effects.h"

#include "engine/effects/registry.h"
#include "engine/params_of.h"
#include "media/colour.h"
#include "support/pictures.h"
#include "vocabulary/palette.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

using media::Picture;
using test::detail;
using test::difference;
using test::mean;
using test::scene;

constexpr int kWidth = 192;
constexpr int kHeight = 108;

constexpr auto kBasic = effect_ids::kBasicImage;
constexpr auto kBlur = effect_ids::kBlur;
constexpr auto kMotionBlur = effect_ids::kMotionBlur;
constexpr auto kFilmAge = effect_ids::kFilmAge;
constexpr auto kPixelate = effect_ids::kPixelate;
constexpr auto kChroma = effect_ids::kChroma;
constexpr auto kShadow = effect_ids::kDropShadow;
constexpr auto kAlpha = effect_ids::kAlpha;
constexpr auto kAdjust = effect_ids::kEase;
constexpr auto kPalette = effect_ids::kPalette;

using Values = std::vector<std::pair<std::string, std::string>>;

Picture drawn(std::string_view clsid, const Values& values, const Picture& picture = scene(kWidth, kHeight),
              const EffectMoment& moment = {1, 4}) {
  return findEffect(clsid)->make(paramsOf(values), picture.width(), picture.height())(picture, moment);
}

TEST(Effects, DoNothingAtLevelNoneAndMoreWithMore) {
  struct Row {
    const char* name;
    std::string_view clsid;
    Values fixed;
    const char* level;
    std::vector<const char*> values;  // from nothing up
  };
  const Row rows[] = {
      {"blur", kBlur, {}, "PixelRadius", {"0", "2", "6", "12", "40", "100"}},
      {"motion blur", kMotionBlur, {{"Direction", "90"}}, "Strength", {"0", "4", "10", "30", "80"}},
      {"film age", kFilmAge, {}, "age", {"0", "20", "50", "100"}},
      {"pixelate", kPixelate, {}, "MaxSquare", {"1", "3", "8", "24"}},
      {"threshold", kAdjust, {{"InternalName", "Standard"}}, "Threshold", {"0", "0.2", "0.5", "0.9"}},
      {"contrast", kAdjust, {{"InternalName", "Standard"}}, "Contrast", {"0", "0.5", "1.5", "4"}},
      {"gamma", kAdjust, {{"InternalName", "Standard"}}, "Gamma", {"0", "2", "10", "40"}},
      {"red", kAdjust, {{"InternalName", "Standard"}}, "Red", {"0", "0.1", "0.4", "0.96"}},
      {"green", kAdjust, {{"InternalName", "Standard"}}, "Green", {"0", "0.1", "0.4", "0.96"}},
      {"ease out",
       kAdjust,
       {{"InternalName", "Simple3D"}, {"MoveA", "out"}},
       "MoveSpeedA",
       {"0", "0.2", "1", "3"}},
      {"ease right",
       kAdjust,
       {{"InternalName", "Simple3D"}, {"MoveA", "right"}},
       "MoveSpeedA",
       {"0", "0.2", "1"}},
      {"chroma", kChroma, {{"Color", "FF8080"}}, "Tolerance", {"0", "25", "60"}},
  };
  const auto plain = scene(kWidth, kHeight);
  for (const auto& row : rows) {
    double before = -1;
    for (const auto* value : row.values) {
      auto values = row.fixed;
      values.emplace_back(row.level, value);
      const auto picture = drawn(row.clsid, values, plain, {4, 4});
      const double now = difference(plain, picture);
      // A round trip through colours costs a rounding.
      if (before < 0) {
        EXPECT_LT(now, 0.7) << row.name;
      } else {
        EXPECT_GT(now, before) << row.name << " at " << value;
      }
      before = std::max(now, 0.0);
    }
  }
}

TEST(Effects, DoWhatTheirNamesSay) {
  const auto plain = scene(kWidth, kHeight);
  const auto mirrored = drawn(kBasic, {{"mirror", "1"}});
  const auto turned = drawn(kBasic, {{"rotation", "2"}});
  const auto negative = drawn(kBasic, {{"invert", "1"}});
  const auto grey = drawn(kBasic, {{"grayscale", "1"}});
  const auto xray = drawn(kBasic, {{"xray", "1"}});
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
  EXPECT_LT(difference(drawn(kBasic, {{"mirror", "1"}}, mirrored), plain), 0.001) << "twice is not at all";

  // Engraved and embossed are each other's negative, grey where nothing changes.
  const auto emboss = drawn(effect_ids::kEmboss, {});
  const auto engrave = drawn(effect_ids::kEngrave, {});
  EXPECT_NEAR(mean(emboss), 126, 8);
  EXPECT_EQ(mean(emboss, 1), 128);
  int opposite = 0;
  for (int x = 0; x < kWidth; ++x)
    opposite += std::abs(emboss.row(0, 60)[x] + engrave.row(0, 60)[x] - 252) <= 1;
  EXPECT_GT(opposite, kWidth * 8 / 10);

  EXPECT_LT(detail(drawn(kBlur, {{"PixelRadius", "8"}}), 1, 0), detail(plain, 1, 0) / 3);
  EXPECT_NEAR(mean(drawn(kBlur, {{"PixelRadius", "30"}})), mean(plain), 1.5);
  // Drawn out sideways, detail down is kept better than detail across.
  const auto sideways = drawn(kMotionBlur, {{"Strength", "24"}, {"Direction", "90"}});
  EXPECT_LT(detail(sideways, 1, 0) / detail(plain, 1, 0), 0.6 * detail(sideways, 0, 1) / detail(plain, 0, 1));
  const auto added = drawn(kMotionBlur, {{"Strength", "24"}, {"Direction", "90"}, {"Add", "true"}});
  EXPECT_LT(difference(plain, added), 0.6 * difference(plain, sideways)) << "the sharp picture shows through";

  // Squares: within one nothing differs.
  const auto squares = drawn(kPixelate, {{"MaxSquare", "12"}});
  EXPECT_EQ(squares.row(0, 1)[1], squares.row(0, 10)[10]);
  EXPECT_LT(detail(squares, 1, 0), detail(plain, 1, 0) / 2);

  const auto dark = effect_ids::kFadeToBlack;
  EXPECT_EQ(difference(drawn(dark, {}, plain, {1.9, 4}), plain), 0);
  EXPECT_NEAR(mean(drawn(dark, {}, plain, {3, 4})) - 16, (mean(plain) - 16) / 2, 1);
  EXPECT_EQ(mean(drawn(dark, {}, plain, {4, 4})), 16);

  const auto age = [&](double time) { return drawn(kFilmAge, {{"age", "80"}}, plain, {time, 4}); };
  EXPECT_GT(mean(age(1), 2), mean(plain, 2) - 20) << "brown";
  EXPECT_LT(std::abs(mean(age(1), 1) - 118), std::abs(mean(plain, 1) - 118) + 1);
  EXPECT_GT(difference(age(1), age(1.04)), 1) << "another grain in each frame";
  EXPECT_EQ(difference(age(1), age(1)), 0) << "but the same in each render";

  const Values sepia = {{"InternalName", "Standard"}, {"Desaturate", "True"}, {"Red", "0.10"},
                        {"Magenta", "0.09"},          {"Yellow", "0.25"},     {"Contrast", "1.00"}};
  const auto brown = drawn(kAdjust, sepia);
  EXPECT_GT(mean(brown, 2), 132);
  EXPECT_LT(mean(brown, 1), 122);
  EXPECT_GT(mean(drawn(kAdjust, {{"InternalName", "Standard"}, {"Blue", "0.8"}}), 1), mean(plain, 1) + 8);
}

TEST(Effects, LeaveAnAlphaThatSaysWhatIsSeen) {
  const auto plain = scene(kWidth, kHeight);
  const auto alphaAt = [](const Picture& picture, double x, double y) {
    return picture.row(3, static_cast<int>(y * (kHeight - 1)))[static_cast<int>(x * (kWidth - 1))];
  };
  const auto half = drawn(kAlpha, {{"Style", "0"}, {"opacity", "50"}});
  EXPECT_NEAR(alphaAt(half, 0.1, 0.1), 127, 1);
  EXPECT_NEAR(half.row(0, 50)[90], 16 + (plain.row(0, 50)[90] - 16) / 2.0, 1.5) << "premultiplied";
  const auto round = drawn(kAlpha, {{"Style", "2"}, {"opacity", "100"}, {"FinishOpacity", "0"}});
  EXPECT_GT(alphaAt(round, 0.5, 0.5), 250);
  EXPECT_LE(alphaAt(round, 0, 0.5), 2);
  EXPECT_EQ(alphaAt(round, 0.1, 0.1), 0) << "round: nothing in the corners";
  const auto square = drawn(kAlpha, {{"Style", "3"}, {"opacity", "100"}, {"FinishOpacity", "0"}});
  EXPECT_GT(alphaAt(square, 0.14, 0.14), 40) << "the corners go as the sides do";
  EXPECT_NEAR(alphaAt(square, 0.14, 0.14), alphaAt(square, 0.14, 0.5), 4);
  EXPECT_EQ(drawn(kAlpha, {{"opacity", "100"}}, plain).frame(), plain.frame());

  // A green field with a red box: the field goes.
  auto keyed = media::Canvas::make(kWidth, kHeight);
  const auto green = media::yuvOf({0, 255, 0}, kHeight);
  const auto red = media::yuvOf({255, 0, 0}, kHeight);
  for (int plane = 0; plane < 3; ++plane) {
    keyed.fill(plane, plane == 0 ? green.y : plane == 1 ? green.u : green.v);
    for (int y = keyed.height(plane) / 4; y < keyed.height(plane) / 2; ++y) {
      std::fill_n(keyed.row(plane, y) + keyed.width(plane) / 4, keyed.width(plane) / 4,
                  plane == 0   ? red.y
                  : plane == 1 ? red.u
                               : red.v);
    }
  }
  const auto cut = drawn(kChroma, {}, share(std::move(keyed)));
  EXPECT_EQ(alphaAt(cut, 0.8, 0.8), 0);
  EXPECT_EQ(alphaAt(cut, 0.35, 0.35), 255);
  EXPECT_EQ(cut.row(0, 90)[150], 16) << "no colour where nothing is seen";
  const auto shadow = drawn(kShadow, {{"OffX", "12"}, {"OffY", "8"}, {"Color", "FFFFFF"}}, cut);
  EXPECT_EQ(alphaAt(shadow, 0.35, 0.35), 255);
  EXPECT_GT(alphaAt(shadow, 0.52, 0.45), 100) << "to the right of the box";
  EXPECT_LT(alphaAt(shadow, 0.2, 0.35), 30) << "not to its left";
}

TEST(PaletteEffects, AllFollowTheirLevelControlsAndColours) {
  // Large enough that every length is some pixels.
  const auto plain = scene(320, 180);
  const auto& names = kPaletteNames;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto id = std::to_string(i + 1);
    const auto with = [&](const Values& more) {
      Values values = {{"EffectID", id}};
      values.insert(values.end(), more.begin(), more.end());
      return drawn(kPalette, values, plain);
    };
    EXPECT_EQ(with({{"Transparency", "0"}}).frame(), plain.frame()) << names[i];
    const auto whole = with({});
    double before = 0;
    for (const auto* level : {"20", "50", "80", "100"}) {
      const double now = difference(plain, with({{"Transparency", level}}));
      EXPECT_GT(now, before) << names[i] << " at level " << level;
      before = now;
    }
    EXPECT_GT(before + difference(plain, whole, 1) + difference(plain, whole, 2), 2)
        << names[i] << " is seen";
    EXPECT_EQ(difference(whole, with({{"Transparency", "100"}})), 0) << names[i];
    const auto changes = [&](const std::string& name, const char* value) {
      const auto other = with({{name, value}});
      return difference(whole, other) + difference(whole, other, 1) + difference(whole, other, 2);
    };
    for (int control = 1; control <= 8; ++control) {
      const auto name = "Control" + std::to_string(control) + "Value";
      const double some = changes(name, "50");
      EXPECT_GT(some, 0.05) << names[i] << ", control " << control;
      if (control >= 5) {
        EXPECT_GT(changes(name, "100"), some) << names[i] << ", control " << control;
      }
    }
    for (const auto* colour : {"RGBForeColor", "RGBBackColor", "TextureURL"}) {
      EXPECT_GT(changes(colour, "MAGENTA"), 0.1) << names[i] << ", " << colour;
    }
  }
  EXPECT_EQ(drawn(kPalette, {{"EffectID", "49"}}, plain).frame(), plain.frame());
}

// What each of the 48 does to a picture that can be counted.
TEST(PaletteEffects, EachHasItsMark) {
  const auto plain = scene(320, 180);
  const auto even = test::plainPicture(320, 180, 128);
  const auto made = [](int id, const Picture& picture) {
    return drawn(kPalette, {{"EffectID", std::to_string(id)}}, picture);
  };
  const auto count = [](const Picture& picture, auto which) {
    std::ptrdiff_t sum = 0;
    for (int y = 0; y < picture.height(); ++y)
      sum += std::count_if(picture.row(0, y), picture.row(0, y) + picture.width(), which);
    return static_cast<double>(sum);
  };
  const auto tones = [&](const Picture& picture) {
    double seen = 0;
    for (int tone = 0; tone < 256; ++tone)
      seen += count(picture, [&](int v) { return v == tone; }) > 0 ? 1 : 0;
    return seen;
  };
  const auto rough = [](const Picture& picture) { return detail(picture, 1, 0) + detail(picture, 0, 1); };
  const auto bright = [&](const Picture& picture) { return count(picture, [](int v) { return v > 228; }); };
  const auto grey = test::plainPicture(320, 180, 128);
  struct Mark {
    const char* name;
    std::vector<int> ids;
    std::function<bool(int id, const Picture& picture)> holds;
  };
  const Mark marks[] = {
      {"grey",
       {5, 6, 7, 15, 22, 31, 36},
       [&](int, const Picture& p) { return difference(p, grey, 1) + difference(p, grey, 2) < 2; }},
      {"of two tones",
       {35, 38, 39},
       [&](int, const Picture& p) {
         return count(p, [](int v) { return v < 40 || v > 210; }) > 0.85 * 320 * 180;
       }},
      {"calmer",
       {14, 19, 25, 26, 27, 32, 37, 40},
       [&](int, const Picture& p) { return rough(p) < rough(plain); }},
      {"rougher",
       {2, 3, 4, 10, 12, 16, 21, 41, 44, 45, 46, 47},
       [&](int, const Picture& p) { return rough(p) > rough(plain); }},
      {"of grains", {21}, [&](int, const Picture& p) { return detail(p, 1, 1) > 1.5 * detail(plain, 1, 1); }},
      {"darker",
       {9, 17, 23, 24, 29, 33, 42},
       [&](int, const Picture& p) { return mean(p) < mean(plain) - 1; }},
      {"on black", {20}, [&](int, const Picture& p) { return mean(p) < mean(plain) * 0.7; }},
      {"lighter", {1, 8, 13, 18}, [&](int, const Picture& p) { return mean(p) > mean(plain) + 1; }},
      {"of few tones", {11}, [&](int, const Picture& p) { return tones(p) < 0.5 * tones(plain); }},
      {"with highlights", {28}, [&](int, const Picture& p) { return bright(p) > bright(plain) + 50; }},
      {"moved, but where it is even",
       {30, 34, 43, 48},
       [&](int id, const Picture& p) {
         return difference(even, made(id, even)) < 8 && difference(plain, p) > 5;
       }},
      // Across its strokes, which run along a diagonal, more changes than along them.
      {"of strokes", {38}, [&](int, const Picture& p) { return detail(p, 1, 1) * 0.9 < detail(p, 2, 0); }},
  };
  std::set<int> marked;
  for (const auto& mark : marks) {
    for (const int id : mark.ids) {
      EXPECT_TRUE(mark.holds(id, made(id, plain)))
          << kPaletteNames.at(static_cast<std::size_t>(id - 1)) << " is " << mark.name;
      marked.insert(id);
    }
  }
  EXPECT_EQ(marked.size(), kPaletteNames.size());
}

TEST(PaletteEffects, TilesRepeatAndStampsTakeTheirColours) {
  const auto tiles = drawn(kPalette, {{"EffectID", "4"}, {"Control1Value", "100"}});
  EXPECT_EQ(tiles.row(0, 7)[6], tiles.row(0, 7)[8]);
  // The ink of a stamp is the fore colour, its paper the back colour.
  const auto stamp =
      drawn(kPalette, {{"EffectID", "35"}, {"RGBForeColor", "BLUE"}, {"RGBBackColor", "YELLOW"}});
  int blue = 0;
  int yellow = 0;
  for (int y = 0; y < kHeight / 2; ++y) {
    for (int x = 0; x < kWidth / 2; ++x) {
      blue += stamp.row(1, y)[x] > 200 ? 1 : 0;
      yellow += stamp.row(1, y)[x] < 40 ? 1 : 0;
    }
  }
  EXPECT_GT(blue + yellow, kWidth * kHeight / 4 * 8 / 10);
  EXPECT_GT(std::min(blue, yellow), 100);
}

// Every kind of effect, and each of the palette, by one set of parameters: what is drawn is another picture
// for each, the same at every drawing.
TEST(Effects, AreToldApart) {
  std::vector<std::pair<std::string, Picture>> pictures = {{"none", scene(kWidth, kHeight)}};
  const auto draw = [&](const EffectKind& kind, const std::string& name, const std::string& id) {
    const Values values = {{"xray", "1"},       {"PixelRadius", "6"}, {"Strength", "24"},
                           {"Direction", "90"}, {"age", "80"},        {"MaxSquare", "8"},
                           {"Tolerance", "60"}, {"Color", "FF8080"},  {"OffX", "12"},
                           {"opacity", "30"},   {"Red", "0.5"},       {"InternalName", "Standard"},
                           {"EffectID", id}};
    const auto picture = drawn(kind.clsid, values, pictures.front().second, {3, 4});
    EXPECT_EQ(difference(picture, drawn(kind.clsid, values, pictures.front().second, {3, 4})), 0) << name;
    pictures.emplace_back(name, picture);
  };
  for (const auto& kind : effectKinds()) {
    const bool isPalette = kind.clsid == kPalette;
    for (std::size_t id = 1; id <= (isPalette ? kPaletteNames.size() : 1); ++id) {
      draw(kind, isPalette ? "palette " + std::string(kPaletteNames[id - 1]) : std::string(kind.name),
           std::to_string(id));
    }
  }
  for (std::size_t a = 0; a < pictures.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b) {
      double apart = 0;
      for (int plane = 0; plane < 3; ++plane)
        apart += difference(pictures[a].second, pictures[b].second, plane);
      if (pictures[a].first == pictures[b].first) {
        EXPECT_EQ(apart, 0) << pictures[a].first << " has two class ids";
      } else {
        EXPECT_GT(apart, 1) << pictures[a].first << " and " << pictures[b].first;
      }
    }
  }
}

TEST(Effects, TakeNonsense) {
  const auto small = scene(16, 16);
  for (const auto& kind : effectKinds()) {
    for (const auto* value : {"", "-1", "1e9", "-1e9", "x"}) {
      Values values;
      for (const auto* name :
           {"rotation", "PixelRadius", "Strength", "Direction", "age", "MaxSquare", "Tolerance", "OffX",
            "OffY", "opacity", "Style", "ScaleA", "MoveSpeedA", "Contrast", "Gamma", "Red", "Threshold",
            "Color", "ExponentialProgressDuration"}) {
        values.emplace_back(name, value);
      }
      EXPECT_TRUE(drawn(kind.clsid, values, small)) << kind.name << " of " << value;
      values.emplace_back("InternalName", "Standard");
      EXPECT_TRUE(drawn(kind.clsid, values, withAlpha(small))) << kind.name << " of " << value;
    }
  }
  for (const auto side : {2, 4, 8}) {
    for (int id = 1; id <= 48; ++id) {
      EXPECT_TRUE(
          drawn(kPalette, {{"EffectID", std::to_string(id)}, {"Control1Value", "100"}}, scene(side, side)));
    }
  }
  EXPECT_EQ(findEffect("{no such class}"), nullptr);
}

}  // namespace
}  // namespace kvo::engine
