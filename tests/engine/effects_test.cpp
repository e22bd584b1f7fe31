// Every effect on a picture in memory: nothing at level 0, ever more with the level, and what its name says.
#include "engine/effects/registry.h"
#include "engine/params_of.h"
#include "media/colour.h"
#include "support/pictures.h"
#include "vocabulary/palette.h"

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

constexpr const char* kBasic = "{16B280C8-EE70-11D1-9066-00C04FD9189D}";
constexpr const char* kBlur = "{7312498D-E87A-11d1-81E0-0000F87557DB}";
constexpr const char* kMotionBlur = "{DD13DE77-D3BA-42D4-B5C6-7745FA4E2D4B}";
constexpr const char* kFilmAge = "{ADEADEB8-E54B-11d1-9A72-0000F875EADE}";
constexpr const char* kPixelate = "{4CCEA634-FBE0-11d1-906A-00C04FD9189D}";
constexpr const char* kChroma = "{421516C1-3CF8-11D2-952A-00C04FA34F05}";
constexpr const char* kShadow = "{ADC6CB86-424C-11D2-952A-00C04FA34F05}";
constexpr const char* kAlpha = "{ADC6CB82-424C-11D2-952A-00C04FA34F05}";
constexpr const char* kAdjust = "{B4DC8DD9-2CC1-4081-9B2B-20D7030234EF}";
constexpr const char* kPalette = "{E673DCF2-C316-4c6f-AA96-4E4DC6DC291E}";

using Values = std::vector<std::pair<std::string, std::string>>;

Picture drawn(const char* clsid, const Values& values, const Picture& picture = scene(kWidth, kHeight),
              const EffectMoment& moment = {1, 4}) {
  return findEffect(clsid)->make(paramsOf(values), picture.width(), picture.height())(picture, moment);
}

TEST(Effects, DoNothingAtLevelNoneAndMoreWithMore) {
  struct Row {
    const char* name;
    const char* clsid;
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
  const auto emboss = drawn("{F515306D-0156-11d2-81EA-0000F87557DB}", {});
  const auto engrave = drawn("{F515306E-0156-11d2-81EA-0000F87557DB}", {});
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

  const auto dark = "{EC85D8F1-1C4E-46e4-A748-7AA04E7C0496}";
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
  const auto lumas = [](const Picture& picture) {
    std::set<int> seen;
    for (int y = 0; y < picture.height(); ++y)
      seen.insert(picture.row(0, y), picture.row(0, y) + picture.width());
    return static_cast<double>(seen.size());
  };
  const auto colourful = [](const Picture& picture) {
    double sum = 0;
    for (const int plane : {1, 2}) {
      for (int y = 0; y < picture.height(plane); ++y) {
        for (int x = 0; x < picture.width(plane); ++x) sum += std::abs(picture.row(plane, y)[x] - 128);
      }
    }
    return sum / (2.0 * picture.width(1) * picture.height(1));
  };
  const auto inTwoTones = [](const Picture& picture) {
    double count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      count += static_cast<double>(std::count_if(picture.row(0, y), picture.row(0, y) + picture.width(),
                                                 [](int v) { return v < 40 || v > 210; }));
    }
    return count / (picture.width() * picture.height());
  };
  const auto highlights = [](const Picture& picture) {
    std::ptrdiff_t count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      count += std::count_if(picture.row(0, y), picture.row(0, y) + picture.width(),
                             [](int v) { return v > 228; });
    }
    return count;
  };
  enum Mark { Grey, TwoTones, Calmer, Rougher, Darker, Lighter, FewTones, Glossy, Moved };
  struct Row {
    int id;
    Mark mark;
  };
  const Row rows[] = {
      {1, Lighter},  {2, Rougher},   {3, Rougher},   {4, Rougher},  {5, Grey},      {6, Grey},
      {7, Grey},     {8, Lighter},   {9, Darker},    {10, Rougher}, {11, FewTones}, {12, Rougher},
      {13, Lighter}, {14, Calmer},   {15, Grey},     {16, Rougher}, {17, Darker},   {18, Lighter},
      {19, Calmer},  {20, Darker},   {21, Rougher},  {22, Grey},    {23, Darker},   {24, Darker},
      {25, Calmer},  {26, Calmer},   {27, Calmer},   {28, Glossy},  {29, Darker},   {30, Moved},
      {31, Grey},    {32, Calmer},   {33, Darker},   {34, Moved},   {35, TwoTones}, {36, Grey},
      {37, Calmer},  {38, TwoTones}, {39, TwoTones}, {40, Calmer},  {41, Rougher},  {42, Darker},
      {43, Moved},   {44, Rougher},  {45, Rougher},  {46, Rougher}, {47, Rougher},  {48, Moved}};
  ASSERT_EQ(std::size(rows), 48U);
  for (const auto& row : rows) {
    const auto picture = drawn(kPalette, {{"EffectID", std::to_string(row.id)}}, plain);
    const auto name = kPaletteNames[static_cast<std::size_t>(row.id - 1)];
    const double change =
        detail(picture, 1, 0) + detail(picture, 0, 1) - detail(plain, 1, 0) - detail(plain, 0, 1);
    switch (row.mark) {
      case Grey:
        EXPECT_LT(colourful(picture), 1) << name;
        break;
      case TwoTones:
        EXPECT_GT(inTwoTones(picture), 0.7) << name;
        break;
      case Calmer:
        EXPECT_LT(change, 0) << name;
        break;
      case Rougher:
        EXPECT_GT(change, 0) << name;
        break;
      case Darker:
        EXPECT_LT(mean(picture), mean(plain) - 1) << name;
        break;
      case Lighter:
        EXPECT_GT(mean(picture), mean(plain) + 1) << name;
        break;
      case Glossy:  // highlights that were not there
        EXPECT_GT(highlights(picture), highlights(plain) + 50) << name;
        break;
      case Moved: {  // what is even stays, what has edges does not
        const auto even = test::plainPicture(320, 180, 128);
        EXPECT_LT(difference(even, drawn(kPalette, {{"EffectID", std::to_string(row.id)}}, even)), 8) << name;
        EXPECT_GT(difference(plain, picture), 5) << name;
        break;
      }
      case FewTones:
        EXPECT_LT(lumas(picture), 0.7 * lumas(plain)) << name;
        break;
    }
  }
}

TEST(PaletteEffects, LookLikeTheirNames) {
  const auto plain = scene(kWidth, kHeight);
  const auto made = [&](int id, Values more = {}) {
    more.emplace_back("EffectID", std::to_string(id));
    return drawn(kPalette, more, plain);
  };
  const auto colours = [](const Picture& picture) {
    std::set<int> seen;
    for (int y = 0; y < kHeight; ++y) seen.insert(picture.row(0, y), picture.row(0, y) + kWidth);
    return seen.size();
  };
  const auto extremes = [](const Picture& picture) {
    int count = 0;
    for (int y = 0; y < kHeight; ++y) {
      count += static_cast<int>(std::count_if(picture.row(0, y), picture.row(0, y) + kWidth,
                                              [](int v) { return v < 40 || v > 210; }));
    }
    return static_cast<double>(count) / (kWidth * kHeight);
  };
  // In ink on paper: stamp, graphic pen, torn edges.
  for (const int id : {35, 38, 39}) EXPECT_GT(extremes(made(id)), 0.85) << id;
  // No colour left: emboss, chrome, charcoal, half tone.
  for (const int id : {7, 6, 15, 22}) {
    EXPECT_NEAR(mean(made(id), 1), 128, 1.5) << id;
    EXPECT_NEAR(mean(made(id), 2), 128, 1.5) << id;
  }
  EXPECT_LT(colours(made(11)), colours(plain) / 2) << "cutout has few colours";
  EXPECT_LT(mean(made(20)), mean(plain) * 0.7) << "glowing edges stand on black";
  EXPECT_GT(mean(made(13)), mean(plain)) << "diffuse glow brightens";
  EXPECT_LT(detail(made(25), 1, 0), detail(plain, 1, 0) * 1.05) << "daubs have no fine detail of their own";
  EXPECT_GT(detail(made(21), 1, 1), detail(plain, 1, 1) * 1.5) << "grain";
  EXPECT_EQ(difference(made(21), made(21)), 0);
  // Angled strokes run along a diagonal: less changes along it than across.
  const auto strokes = made(38);
  EXPECT_LT(detail(strokes, 1, 1) * 0.9, detail(strokes, 2, 0));
  // Mosaic: the tiles repeat with their joints.
  const auto tiles = made(4, {{"Control1Value", "100"}});
  EXPECT_EQ(tiles.row(0, 7)[6], tiles.row(0, 7)[8]);
  // The ink of a stamp is the fore colour, its paper the back colour.
  const auto stamp = made(35, {{"RGBForeColor", "BLUE"}, {"RGBBackColor", "YELLOW"}});
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

TEST(Effects, TakeNonsense) {
  const auto small = scene(16, 16);
  for (const auto* clsid :
       {kBasic, kBlur, kMotionBlur, kFilmAge, kPixelate, kChroma, kShadow, kAlpha, kAdjust}) {
    for (const auto* value : {"", "-1", "1e9", "-1e9", "x"}) {
      Values values;
      for (const auto* name :
           {"rotation", "PixelRadius", "Strength", "Direction", "age", "MaxSquare", "Tolerance", "OffX",
            "OffY", "opacity", "Style", "ScaleA", "MoveSpeedA", "Contrast", "Gamma", "Red", "Threshold",
            "Color", "ExponentialProgressDuration"}) {
        values.emplace_back(name, value);
      }
      EXPECT_TRUE(drawn(clsid, values, small)) << clsid << " of " << value;
      values.emplace_back("InternalName", "Standard");
      EXPECT_TRUE(drawn(clsid, values, withAlpha(small))) << clsid << " of " << value;
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
