// Every transition on two plain pictures: nothing of the second at 0, all of it at 1, ever more between, and
// a shape of its own.
#include "vocabulary/transitions.h"

#include "engine/params_of.h"
#include "engine/transitions/registry.h"
#include "engine/transitions/smpte_patterns.h"
#include "media/pixel_rows.h"
#include "support/pictures.h"
#include "support/real_world.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 90;
constexpr int kBelow = 50;
constexpr int kAbove = 200;

struct Kind {
  std::string_view name;
  std::string_view clsid;
  std::vector<std::pair<const char*, const char*>> params{};
};

constexpr auto kSmpte = transition_ids::kSmpteWipe;
constexpr auto kSpace = transition_ids::kParticlesAnd3D;
constexpr auto kIris = transition_ids::kIris;
constexpr auto kSlide = transition_ids::kSlide;
constexpr auto kStretch = transition_ids::kStretch;
constexpr auto kPlacing = transition_ids::kPlacing;

const std::vector<Kind>& kinds() {
  static const std::vector<Kind> kAll = {
      {"fade", transition_ids::kFade},
      {"dissolve", transition_ids::kDissolve},
      {"barn", transition_ids::kBarn},
      {"blinds", transition_ids::kBlinds},
      {"five blinds up", transition_ids::kBlinds, {{"bands", "5"}, {"direction", "Up"}}},
      {"checkerboard", transition_ids::kCheckerboard},
      {"iris", kIris, {{"irisStyle", "CIRCLE"}}},
      {"iris square", kIris, {{"irisStyle", "SQUARE"}}},
      {"iris plus", kIris, {{"irisStyle", "PLUS"}}},
      {"iris cross", kIris, {{"irisStyle", "CROSS"}}},
      {"iris star", kIris, {{"irisStyle", "STAR"}}},
      {"clock", transition_ids::kRadialWipe},
      {"wedge", transition_ids::kRadialWipe, {{"wipestyle", "wedge"}}},
      {"radial", transition_ids::kRadialWipe, {{"wipestyle", "radial"}}},
      {"spiral", transition_ids::kSpiral},
      {"wheel", transition_ids::kWheel},
      {"wheel of ten", transition_ids::kWheel, {{"spokes", "10"}}},
      {"wipe", transition_ids::kWipe},
      {"zigzag", transition_ids::kZigzag},
      {"inset", transition_ids::kInset},
      {"curtains", transition_ids::kCurtains},
      {"roll down", transition_ids::kRollDown},
      {"pixelate", transition_ids::kPixelate},
      {"slide", kSlide},
      {"slide hide", kSlide, {{"slideStyle", "HIDE"}}},
      {"slide push", kSlide, {{"slideStyle", "PUSH"}, {"bands", "3"}}},
      {"slide swap", kSlide, {{"slideStyle", "SWAP"}}},
      {"stretch", kStretch},
      {"stretch hide", kStretch, {{"stretchStyle", "hide"}}},
      {"stretch push", kStretch, {{"stretchStyle", "push"}}},
      {"circle", kSmpte, {{"MaskNum", "119"}}},
      {"eight circles", kSmpte, {{"MaskNum", "119"}, {"ReplicateX", "4"}, {"ReplicateY", "2"}}},
      {"soft wipe", kSmpte, {{"MaskNum", "1"}, {"Borderwidth", "1"}, {"Bordersoftness", "60"}}},
      {"barn vertical", kSmpte, {{"MaskNum", "22"}}},
      {"heart", kSmpte, {{"MaskNum", "130"}}},
      {"matrix", kSmpte, {{"MaskNum", "303"}}},
      {"whirlwind",
       kSpace,
       {{"InternalName", "ParticleSystem"}, {"MaxParticles", "60"}, {"BothDirections", "true"}}},
      {"shatter down",
       kSpace,
       {{"InternalName", "ParticleSystem"}, {"ScatterDirection", "down"}, {"ParticleSpeed", "3.5"}}},
      {"shatter in",
       kSpace,
       {{"InternalName", "ParticleSystem"}, {"ScatterDirection", "out"}, {"ParticleSpeed", "40"}}},
      {"spin out",
       kSpace,
       {{"InternalName", "Simple3D"}, {"ScaleA", "smaller"}, {"RotateA", "left"}, {"FadeStartA", "0.2"}}},
      {"roll out",
       kSpace,
       {{"InternalName", "Simple3D"}, {"RotateA", "right"}, {"RotateCenterA", "lowerright"}}},
      {"page curl",
       kSpace,
       {{"InternalName", "Simple3D"}, {"PageCurlA", "lowerleft"}, {"ShowABack", "true"}}},
  };
  return kAll;
}

// A picture that is seen to have moved.
media::Picture ramp() {
  auto canvas = copyOf(test::plainPicture(kWidth, kHeight, kAbove));
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) canvas.row(0, y)[x] = static_cast<std::uint8_t>(40 + x);
  }
  return share(std::move(canvas));
}

PaintTransition painterOf(const Kind& kind) {
  auto made = findTransition(kind.clsid)->make(paramsOf(kind.params), kWidth, kHeight);
  EXPECT_TRUE(made) << kind.name;
  return std::move(*made);
}

media::Picture paintedBy(const Kind& kind, double progress, const media::Picture& below,
                         const media::Picture& above) {
  auto canvas = media::Canvas::makeLike(below);
  painterOf(kind)(below, above, {progress, progress}, canvas);
  return share(std::move(canvas));
}

class Drawn {
 public:
  Drawn(const Kind& kind, double progress, const media::Picture& below, const media::Picture& above)
      : picture_(paintedBy(kind, progress, below, above)) {}
  Drawn(const std::string& name, double progress)
      : Drawn(*std::find_if(kinds().begin(), kinds().end(), [&](const auto& k) { return k.name == name; }),
              progress, test::plainPicture(kWidth, kHeight, kBelow),
              test::plainPicture(kWidth, kHeight, kAbove)) {}

  /// The share of the second picture at a point, 0 to 1; coordinates run from 0 to 1.
  [[nodiscard]] double at(double x, double y, int plane = 0) const {
    const int side = media::Picture::isChroma(plane) ? 2 : 1;
    const int column = std::min(static_cast<int>(x * kWidth), kWidth - 1) / side;
    const int row = std::min(static_cast<int>(y * kHeight), kHeight - 1) / side;
    return (picture_.row(plane, row)[column] - kBelow) / static_cast<double>(kAbove - kBelow);
  }
  [[nodiscard]] double share(int plane = 0) const {
    return (test::mean(picture_, plane) - kBelow) / (kAbove - kBelow);
  }
  /// How often the picture changes along a circle about the middle.
  [[nodiscard]] int edgesAround(double radius) const {
    int edges = 0;
    double last = -1;
    for (int i = 0; i <= 720; ++i) {
      const double angle = i * 3.14159265 / 360 + 0.001;
      const double now =
          at(0.5 + radius * std::cos(angle) * kHeight / kWidth, 0.5 + radius * std::sin(angle)) > 0.5 ? 1 : 0;
      if (last >= 0 && now != last) ++edges;
      last = now;
    }
    return edges;
  }
  [[nodiscard]] const media::Picture& picture() const { return picture_; }

 private:
  media::Picture picture_;
};

TEST(Transitions, BeginWithTheFirstPictureAndEndWithTheSecond) {
  for (const auto& kind : kinds()) {
    const bool inSpace = kind.clsid == kSpace;  // light, shade, and pieces that cross what is uncovered
    const auto below = test::plainPicture(kWidth, kHeight, kBelow);
    const auto above = test::plainPicture(kWidth, kHeight, kAbove);
    const Drawn first(kind, 0, below, above);
    const Drawn last(kind, 1, below, above);
    for (int plane = 0; plane < 3; ++plane) {
      EXPECT_EQ(test::difference(first.picture(), below, plane), 0) << kind.name << " plane " << plane;
      EXPECT_EQ(test::difference(last.picture(), above, plane), 0) << kind.name << " plane " << plane;
    }
    double before = 0;
    for (int i = 1; i < 20; ++i) {
      const double share = Drawn(kind, i / 20.0, below, above).share(inSpace ? 1 : 0);
      EXPECT_GE(share, before - (inSpace ? 0.02 : 0)) << kind.name << " at " << i;
      before = share;
    }
    EXPECT_NEAR(Drawn(kind, 0.5, below, above).share(), 0.5, 0.45) << kind.name;
    // With alpha it is the same picture.
    const Drawn opaque(kind, 0.4, withAlpha(below), withAlpha(above));
    EXPECT_LT(test::difference(opaque.picture(), Drawn(kind, 0.4, below, above).picture()), 0.5) << kind.name;
    EXPECT_EQ(test::mean(opaque.picture(), 3), 255) << kind.name;
  }
}

// All kinds, in the middle of their way: what is drawn is another picture for each.
TEST(Transitions, AreToldApart) {
  auto all = kinds();
  for (const auto& kind : transitionKinds()) {
    const auto sameClass = [&](const Kind& other) { return other.clsid == kind.clsid; };
    if (std::none_of(all.begin(), all.end(), sameClass)) all.push_back({kind.name, kind.clsid});
  }
  const auto below = test::scene(kWidth, kHeight);
  const auto above = ramp();
  std::vector<media::Picture> pictures;
  for (const auto& kind : all) {
    pictures.push_back(Drawn(kind, 0.4, below, above).picture());
    for (std::size_t other = 0; other + 1 < pictures.size(); ++other) {
      const double apart = test::difference(pictures[other], pictures.back());
      if (all[other].name == "iris" && kind.name == "circle") {
        EXPECT_LT(apart, 1) << "one shape, as a class of its own and by its mask";
      } else if (all[other].name == kind.name) {
        EXPECT_EQ(apart, 0) << kind.name << " has two class ids";
      } else {
        EXPECT_GT(apart, 1) << all[other].name << " and " << kind.name;
      }
    }
  }
}

TEST(Transitions, HaveTheirOwnShapes) {
  using Points = std::vector<std::pair<double, double>>;
  struct Row {
    const char* name;
    double progress;
    Points changed;
    Points still;
  };
  const Row rows[] = {
      {"barn", 0.4, {{0.5, 0.1}}, {{0.1, 0.5}, {0.9, 0.5}}},
      {"barn vertical", 0.5, {{0.1, 0.5}, {0.9, 0.5}}, {{0.5, 0.1}, {0.5, 0.9}}},
      {"wipe", 0.5, {{0.45, 0.5}}, {{0.55, 0.5}}},
      {"iris plus", 0.2, {{0.5, 0.02}, {0.02, 0.5}}, {{0.1, 0.1}}},
      {"clock", 0.25, {{0.75, 0.25}}, {{0.25, 0.25}, {0.25, 0.75}, {0.75, 0.75}}},
      {"wedge", 0.25, {{0.45, 0.1}, {0.55, 0.1}}, {{0.5, 0.9}}},
      {"five blinds up",
       0.5,
       {{0.5, 0.18}, {0.5, 0.58}, {0.5, 0.98}},
       {{0.5, 0.02}, {0.5, 0.42}, {0.5, 0.82}}},
      {"spiral", 0.3, {{0.1, 0.05}}, {{0.5, 0.5}}},
      {"zigzag", 0.5, {{0.5, 0.1}}, {{0.5, 0.9}}},
      {"eight circles", 0.3, {{0.125, 0.25}, {0.875, 0.75}}, {{0.005, 0.02}, {0.755, 0.52}, {0.505, 0.02}}},
  };
  for (const auto& row : rows) {
    const Drawn drawn(row.name, row.progress);
    for (const auto& [x, y] : row.changed) EXPECT_EQ(drawn.at(x, y), 1) << row.name << ": " << x << ", " << y;
    for (const auto& [x, y] : row.still) EXPECT_EQ(drawn.at(x, y), 0) << row.name << ": " << x << ", " << y;
  }
  EXPECT_NEAR(Drawn("dissolve", 0.3).share(), 0.3, 0.02);
  EXPECT_EQ(Drawn("wheel", 0.5).edgesAround(0.4), 8) << "four spokes";
  EXPECT_EQ(Drawn("wheel of ten", 0.5).edgesAround(0.4), 20);
}

// The edge lies at one distance from the middle in every direction, at any progress.
TEST(Transitions, CirclesAreRound) {
  for (const auto* name : {"circle", "iris"}) {
    for (const double progress : {0.2, 0.4, 0.55}) {
      const Drawn circle(name, progress);
      const double wanted = progress * std::hypot(kWidth, kHeight) / 2;
      for (int degrees = 0; degrees < 360; degrees += 15) {
        const double right = std::cos(degrees * 3.14159265 / 180);
        const double down = std::sin(degrees * 3.14159265 / 180);
        if (std::fabs(wanted * down) > kHeight / 2.0 - 2) continue;  // cut off
        double radius = 0;
        while (radius < 200 && circle.at(0.5 + radius * right / kWidth, 0.5 + radius * down / kHeight) > 0.5)
          radius += 0.25;
        EXPECT_NEAR(radius, wanted, 1.5) << name << ", " << degrees << " degrees at " << progress;
      }
    }
  }
}

TEST(Transitions, HeartsHaveTwoHumpsAndSoftEdgesAreSoft) {
  const Drawn heart("heart", 0.25);
  const auto top = [&](double x) {
    double y = 0;
    while (y < 1 && heart.at(x, y) < 0.5) y += 0.01;
    return y;
  };
  EXPECT_GT(top(0.5), top(0.42) + 0.04) << "a notch between two humps";
  EXPECT_NEAR(top(0.42), top(0.58), 0.02);
  const auto width = [&](double y) {
    double sum = 0;
    for (double x = 0; x < 1; x += 0.01) sum += heart.at(x, y);
    return sum;
  };
  EXPECT_GT(width(0.45), 3 * width(0.74)) << "a point below";
  EXPECT_GT(width(0.74), 0);
  const Drawn soft("soft wipe", 0.5);
  double last = 1;
  for (double x = 0.35; x < 0.65; x += 0.02) {
    EXPECT_LE(soft.at(x, 0.5), last);
    last = soft.at(x, 0.5);
  }
  EXPECT_NEAR(soft.at(0.5, 0.5), 0.5, 0.05);
}

// Of each pattern, points in the order in which they change over.
TEST(SmptePatterns, ChangeWhereTheirNamesSay) {
  struct Row {
    const char* name;
    int code;
    std::vector<std::pair<double, double>> order;
  };
  const Row rows[] = {
      {"Inset Left Top", 3, {{0.1, 0.1}, {0.2, 0.5}, {0.6, 0.3}, {0.9, 0.9}}},
      {"Inset Right Top", 4, {{0.9, 0.1}, {0.5, 0.2}, {0.1, 0.9}}},
      {"Inset Right Bottom", 5, {{0.9, 0.9}, {0.5, 0.6}, {0.1, 0.1}}},
      {"Inset Left Bottom", 6, {{0.1, 0.9}, {0.4, 0.5}, {0.9, 0.1}}},
      {"Four Corners", 7, {{0.95, 0.95}, {0.2, 0.2}, {0.5, 0.1}}},
      {"Barn Vertical", 22, {{0.1, 0.5}, {0.9, 0.3}, {0.5, 0.05}}},
      {"TopCenter", 23, {{0.5, 0.1}, {0.3, 0.3}, {0.5, 0.9}}},
      {"Bow Tie Vertical", 43, {{0.5, 0.05}, {0.5, 0.95 - 0.4}, {0.05, 0.5}}},
      {"Bow Tie Horizontal", 44, {{0.05, 0.5}, {0.45, 0.5}, {0.5, 0.05}}},
      {"Diamond", 48, {{0.5, 0.5}, {0.3, 0.5}, {0.2, 0.2}}},
      {"SawLeft", 71, {{0.1, 0.4}, {0.5, 0.4}, {0.9, 0.4}}},
      {"SawTop", 72, {{0.4, 0.1}, {0.4, 0.9}}},
      {"SawVert", 73, {{0.5, 0.4}, {0.1, 0.4}}},
      {"SawHoriz", 74, {{0.4, 0.5}, {0.4, 0.1}}},
      {"Filled V Up", 103, {{0.5, 0.95}, {0.5, 0.5}, {0.1, 0.5}, {0.1, 0.1}}},
      {"Filled V Right", 104, {{0.05, 0.5}, {0.5, 0.5}, {0.5, 0.1}}},
      {"Filled V Down", 105, {{0.5, 0.05}, {0.5, 0.5}, {0.1, 0.5}}},
      {"Filled V Left", 106, {{0.95, 0.5}, {0.5, 0.5}, {0.5, 0.1}}},
      {"Circle1", 119, {{0.5, 0.5}, {0.5, 0.2}, {0.1, 0.5}, {0.05, 0.05}}},
      {"Star4", 127, {{0.5, 0.2}, {0.66, 0.2}}},
      {"Star5", 128, {{0.5, 0.1}, {0.5, 0.9}}},
      {"Star6", 129, {{0.5, 0.1}, {0.72, 0.15}}},
      {"Heart", 130, {{0.5, 0.8}, {0.75, 0.8}}},
      {"Keyhole", 131, {{0.5, 0.36}, {0.5, 0.75}, {0.3, 0.75}}},
      {"Diagonal Rotate", 225, {{0.9, 0.02}, {0.6, 0.6}, {0.02, 0.9}}},
      {"Fold", 228, {{0.98, 0.9}, {0.4, 0.6}, {0.1, 0.02}}},
      {"Radial Box", 263, {{0.05, 0.1}, {0.4, 0.5}, {0.05, 0.9}}},
      {"Matrix Diag", 303, {{0.02, 0.02}, {0.4, 0.4}, {0.98, 0.98}}},
      {"Matrix2x", 341, {{0.02, 0.02}, {0.45, 0.02}, {0.02, 0.98}}},
      {"Matrix4x", 344, {{0.02, 0.02}, {0.45, 0.02}, {0.45, 0.45}}},
      {"Waterfall Left", 350, {{0.02, 0.02}, {0.02, 0.6}, {0.98, 0.02}}},
      {"Waterfall Right", 351, {{0.98, 0.02}, {0.98, 0.6}, {0.02, 0.02}}},
  };
  for (const auto& row : rows) {
    const auto pattern = smptePattern(row.code, 16.0 / 9);
    for (std::size_t i = 1; i < row.order.size(); ++i) {
      const auto& [x0, y0] = row.order[i - 1];
      const auto& [x1, y1] = row.order[i];
      EXPECT_LT(pattern(x0, y0), pattern(x1, y1)) << row.name << ", point " << i;
    }
  }
  // Random: neighbouring cells have nothing to do with each other, and no two runs differ.
  const auto random = smptePattern(409, 1);
  int rising = 0;
  for (int i = 0; i < 15; ++i) rising += random((i + 0.5) / 16, 0.5) < random((i + 1.5) / 16, 0.5) ? 1 : 0;
  EXPECT_NEAR(rising, 7.5, 5);
}

TEST(Transitions, OfPlacesMoveWholePictures) {
  const auto below = test::scene(kWidth, kHeight);
  const auto above = ramp();
  const Kind push{"push", kSlide, {{"slideStyle", "PUSH"}}};
  const auto pushed = Drawn(push, 0.25, below, above).picture();
  EXPECT_EQ(pushed.row(0, 9)[100], below.row(0, 9)[60]) << "the first goes on to the right by a quarter";
  EXPECT_EQ(pushed.row(0, 9)[10], above.row(0, 9)[130]) << "and the second follows";
  const Kind bands{"bands", kSlide, {{"slideStyle", "HIDE"}, {"bands", "2"}}};
  const auto hidden = Drawn(bands, 0.5, below, above).picture();
  EXPECT_EQ(hidden.row(0, 10)[90], below.row(0, 10)[10]);
  EXPECT_EQ(hidden.row(0, 80)[10], below.row(0, 80)[90]) << "the second band goes the other way";
  const Kind squeeze{"squeeze", kStretch, {{"stretchStyle", "push"}}};
  const auto squeezed = Drawn(squeeze, 0.5, below, above).picture();
  EXPECT_NEAR(squeezed.row(0, 9)[40], 40 + 80, 2) << "the second in half the width";
  const Kind placed{
      "placed",
      kPlacing,
      {{"OffsetX", "80"}, {"OffsetY", "0"}, {"Width", "80"}, {"Height", "44"}, {"SrcWidth", "80"}}};
  const auto corner = Drawn(placed, 0.5, below, above).picture();
  EXPECT_NEAR(corner.row(0, 20)[120], 40 + 40, 2) << "half of the second, its left, in the upper right";
  EXPECT_EQ(corner.row(0, 20)[70], below.row(0, 20)[70]);
  EXPECT_EQ(corner.row(0, 60)[120], below.row(0, 60)[120]);
}

TEST(Transitions, PlacingFollowsItsKeysAndEndsAsACut) {
  Params params;
  params.add("Width", {"0", {0, {{1, kWidth, true}}}});
  params.add("Height", {"0", {kHeight, {{0.5, kHeight / 2.0, false}, {1, kHeight, false}}}});
  const auto* kind = findTransition(kPlacing);
  const auto paint = *kind->make(params, kWidth, kHeight);
  auto out = media::Canvas::make(kWidth, kHeight);
  paint(test::plainPicture(kWidth, kHeight, kBelow), test::plainPicture(kWidth, kHeight, kAbove), {0.5, 0.25},
        out);
  EXPECT_EQ(out.row(0, 10)[35], kAbove) << "a quarter wide: run to in a line";
  EXPECT_EQ(out.row(0, 10)[45], kBelow);
  EXPECT_EQ(out.row(0, 40)[10], kAbove) << "half as high, as the step says that it is on its way to";
  EXPECT_EQ(out.row(0, 50)[10], kBelow);
  EXPECT_FALSE(kind->coversAll(params, 0.99, kWidth, kHeight));
  EXPECT_TRUE(kind->coversAll(params, 1, kWidth, kHeight));
}

// The keys of QuartileMove over a way of 0.9 seconds, as documents have them.
TEST(Transitions, QuartileMoveGoesThroughTheQuartersAllTheWay) {
  Params params;
  const auto steps = [&](const char* name, double first, std::vector<Keyed::Key> keys) {
    params.add(name, {"", {first, std::move(keys)}});
  };
  steps("OffsetX", 5,
        {{0.3, 5, false}, {0.45, 75, false}, {0.6, 75, false}, {0.72, 5, false}, {0.9, 0, false}});
  steps("OffsetY", 3,
        {{0.3, 3, false}, {0.45, 3, false}, {0.6, 42, false}, {0.72, 42, false}, {0.9, 0, false}});
  steps("Width", 80, {{0.9, kWidth, false}});
  steps("Height", 45, {{0.9, kHeight, false}});
  const auto* kind = findTransition(kPlacing);
  const auto paint = *kind->make(params, kWidth, kHeight);
  const auto seen = [&](double time) {
    auto out = media::Canvas::make(kWidth, kHeight);
    paint(test::plainPicture(kWidth, kHeight, kBelow), test::plainPicture(kWidth, kHeight, kAbove),
          {0.5, time}, out);
    std::string quarters;
    for (const auto& [x, y] :
         {std::pair{40, 22}, std::pair{120, 22}, std::pair{120, 66}, std::pair{40, 66}}) {
      quarters += out.row(0, y)[x] == kAbove ? '#' : '.';
    }
    return quarters;
  };
  std::vector<std::string> order;
  int stood = 0;
  int longest = 0;
  for (int i = 0; i < 90; ++i) {
    const auto now = seen(i / 100.0);
    if (order.empty() || order.back() != now) {
      order.push_back(now);
      stood = 0;
    }
    longest = std::max(longest, ++stood);
  }
  EXPECT_EQ(order, (std::vector<std::string>{"#...", ".#..", "..#.", "...#", "####"}));
  EXPECT_LE(longest, 31) << "hundredths of a second of 90 that it stands still";
  EXPECT_TRUE(kind->coversAll(params, 0.9, kWidth, kHeight));
}

TEST(Transitions, BordersHaveTheirWidthAndColour) {
  const auto grey = test::plainPicture(kWidth, kHeight, 128);
  const auto bordered = [&](const Kind& wipe, int plane, auto isBorder) {
    const auto picture = Drawn(wipe, 0.5, grey, grey).picture();
    EXPECT_EQ(picture.row(plane, 20)[2], 128);
    EXPECT_EQ(picture.row(plane, 20)[picture.width(plane) - 3], 128);
    const auto count =
        std::count_if(picture.row(plane, 20), picture.row(plane, 20) + picture.width(plane), isBorder);
    return static_cast<double>(count) * kWidth / picture.width(plane);
  };
  const Kind red{"red", kSmpte, {{"MaskNum", "1"}, {"BorderWidth", "20"}, {"BorderColor", "FF0000"}}};
  EXPECT_NEAR(bordered(red, 2, [](int v) { return v > 200; }), 20, 3);
  const Kind empty{"empty", kSmpte, {{"MaskNum", "1"}, {"BorderWidth", "20"}, {"BorderColor", ""}}};
  EXPECT_NEAR(bordered(empty, 0, [](int v) { return v < 30; }), 20, 3)
      << "black where the colour was left empty";
  const Kind none{"none", kSmpte, {{"MaskNum", "1"}, {"Borderwidth", "20"}}};
  EXPECT_EQ(bordered(none, 0, [](int v) { return v != 128; }), 0) << "no colour, no border";
}

TEST(Transitions, TakeAPictureForTheirMask) {
  const test::ScratchFolder folder;
  const auto mask = test::makeMedia(
      folder, "mask.jpg",
      {"-f", "lavfi", "-i", "color=white:size=160x90,drawbox=x=0:y=0:w=80:h=90:color=black:t=fill",
       "-frames:v", "1", "-q:v", "2"});
  const Kind masked{"masked", kSmpte, {{"MaskNum", "1"}, {"MaskName", mask.c_str()}}};
  const Drawn half(masked, 0.5, test::plainPicture(kWidth, kHeight, kBelow),
                   test::plainPicture(kWidth, kHeight, kAbove));
  EXPECT_EQ(half.at(0.2, 0.5), 1) << "the dark half has changed over";
  EXPECT_EQ(half.at(0.8, 0.5), 0);
  Params params;
  params.add("MaskName", {folder / "none.jpg", {}});
  const auto missing = findTransition(kSmpte)->make(params, kWidth, kHeight);
  ASSERT_FALSE(missing);
  EXPECT_NE(missing.error().text.find("none.jpg"), std::string::npos);
}

TEST(Transitions, InSpaceHavePerspectiveAndShade) {
  const auto below = test::plainPicture(kWidth, kHeight, kBelow);
  const auto above = test::plainPicture(kWidth, kHeight, kAbove);
  const Kind flip{"flip",
                  kSpace,
                  {{"InternalName", "Simple3D"},
                   {"RevolveCamera", "true"},
                   {"ShowAFront", "true"},
                   {"ShowABack", "false"},
                   {"ShowBFront", "false"},
                   {"ShowBBack", "true"}}};
  const auto early = Drawn(flip, 0.3, below, above).picture();
  // The lower edge has come nearer: it is wider than the upper one.
  const auto widthAt = [](const media::Picture& picture, int y) {
    return std::count_if(picture.row(0, y), picture.row(0, y) + kWidth, [](int v) { return v > 20; });
  };
  int first = 0;
  int last = kHeight - 1;
  while (widthAt(early, first) < 10) ++first;
  while (widthAt(early, last) < 10) --last;
  EXPECT_GT(first, 5);
  EXPECT_NE(widthAt(early, first + 1), widthAt(early, last - 1));
  EXPECT_LT(early.row(0, kHeight / 2)[kWidth / 2], kBelow) << "the first, in the shade";
  EXPECT_GT(Drawn(flip, 0.8, below, above).picture().row(0, kHeight / 2)[kWidth / 2], kBelow) << "the second";
  const Kind curl{
      "curl", kSpace, {{"InternalName", "Simple3D"}, {"PageCurlA", "lowerleft"}, {"ShowABack", "true"}}};
  const auto page = Drawn(curl, 0.4, below, above).picture();
  EXPECT_EQ(page.row(1, kHeight / 2 - 3)[2], kAbove) << "uncovered at the corner";
  EXPECT_EQ(page.row(0, 2)[kWidth - 3], kBelow) << "still in place at the far one";
}

TEST(Transitions, SharesMixExactly) {
  std::vector<std::uint8_t> below(300), above(300), shares(300), out(300);
  for (std::size_t i = 0; i < 300; ++i) {
    below[i] = static_cast<std::uint8_t>(i * 7);
    above[i] = static_cast<std::uint8_t>(i * 13 + 5);
    shares[i] = static_cast<std::uint8_t>(i);
  }
  for (const std::size_t count : {1U, 15U, 16U, 33U, 300U}) {
    media::mixRowByShares(below.data(), above.data(), shares.data(), out.data(), count);
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_NEAR(out[i], below[i] + (above[i] - below[i]) * shares[i] / 255.0, 0.5) << i << " of " << count;
    }
  }
}

TEST(Transitions, TakeNonsenseForTheirOptions) {
  const auto below = test::plainPicture(kWidth, kHeight, kBelow);
  const auto above = test::plainPicture(kWidth, kHeight, kAbove);
  for (const auto* value : {"", "-3", "0", "1e9", "-1e9", "x"}) {
    for (const auto* name :
         {"bands", "spokes", "MaskNum", "ReplicateX", "ReplicateY", "ScaleY", "BorderWidth", "BorderSoftness",
          "BorderColor", "MaxParticles", "ParticleSpeed", "ScaleA", "OffsetX", "Width", "SrcWidth",
          "maxsquare", "FadeStartA", "ExponentialProgressScale"}) {
      for (const auto& kind : transitionKinds()) {
        Drawn({kind.name, kind.clsid, {{"InternalName", "ParticleSystem"}, {name, value}}}, 0.5, below,
              above);
      }
      Drawn({"odd", kSpace, {{name, value}}}, 0.5, below, above);
    }
  }
  EXPECT_EQ(findTransition("{no such class}"), nullptr);
}

}  // namespace
}  // namespace kvo::engine
