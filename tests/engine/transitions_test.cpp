// Every transition on two plain pictures: nothing of the second at 0, all of it at 1, ever more between, and
// a shape of its own.
#include "vocabulary/transitions.h"

#include "engine/params_of.h"
#include "engine/transitions/registry.h"
#include "engine/transitions/smpte_patterns.h"
#include "support/golden.h"
#include "support/pictures.h"
#include "support/real_world.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine::transitions_drawn {
namespace {

namespace ids = transition_ids;
using media::Picture;

constexpr int kWidth = 160;
constexpr int kHeight = 90;
constexpr int kBelow = 50;
constexpr int kAbove = 200;

struct Kind {
  std::string_view name;
  std::string_view clsid;
  std::string params{};
};

const std::string kParticles = "InternalName=ParticleSystem ";
const std::string kSimple3D = "InternalName=Simple3D ";

// Each transition as it is by itself, and in the forms that its options give it.
std::vector<Kind> allKinds() {
  std::vector<Kind> all = {
      {"five blinds up", ids::kBlinds, "bands=5 direction=Up"},
      {"iris square", ids::kIris, "irisStyle=SQUARE"},
      {"iris plus", ids::kIris, "irisStyle=PLUS"},
      {"iris cross", ids::kIris, "irisStyle=CROSS"},
      {"iris star", ids::kIris, "irisStyle=STAR"},
      {"wedge", ids::kRadialWipe, "wipestyle=wedge"},
      {"radial", ids::kRadialWipe, "wipestyle=radial"},
      {"wheel of ten", ids::kWheel, "spokes=10"},
      {"slide hide", ids::kSlide, "slideStyle=HIDE"},
      {"slide push", ids::kSlide, "slideStyle=PUSH bands=3"},
      {"slide swap", ids::kSlide, "slideStyle=SWAP"},
      {"stretch hide", ids::kStretch, "stretchStyle=hide"},
      {"stretch push", ids::kStretch, "stretchStyle=push"},
      {"circle", ids::kSmpteWipe, "MaskNum=119"},
      {"eight circles", ids::kSmpteWipe, "MaskNum=119 ReplicateX=4 ReplicateY=2"},
      {"soft wipe", ids::kSmpteWipe, "MaskNum=1 Borderwidth=1 Bordersoftness=60"},
      {"whirlwind", ids::kParticlesAnd3D, kParticles + "MaxParticles=60 BothDirections=true"},
      {"shatter down", ids::kParticlesAnd3D, kParticles + "ScatterDirection=down ParticleSpeed=3.5"},
      {"shatter in", ids::kParticlesAnd3D, kParticles + "ScatterDirection=out ParticleSpeed=40"},
      {"spin out", ids::kParticlesAnd3D, kSimple3D + "ScaleA=smaller RotateA=left FadeStartA=0.2"},
      {"roll out", ids::kParticlesAnd3D, kSimple3D + "RotateA=right RotateCenterA=lowerright"},
      {"page curl", ids::kParticlesAnd3D, kSimple3D + "PageCurlA=lowerleft ShowABack=true"},
  };
  for (const auto& kind : transitionKinds()) {
    if (kind.drawn.coversAll == nullptr) all.push_back({kind.name, kind.clsid});  // it has a way
  }
  return all;
}

Picture plain(int value) { return test::plainPicture(kWidth, kHeight, value); }

// A picture that is seen to have moved.
Picture ramp() {
  auto canvas = copyOf(plain(kAbove));
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) canvas.row(0, y)[x] = static_cast<std::uint8_t>(40 + x);
  }
  return share(std::move(canvas));
}

Picture drawn(std::string_view clsid, const Params& params, const Moment& moment, const Picture& below,
              const Picture& above) {
  auto canvas = media::Canvas::makeLike(below);
  const auto paint = findTransition(clsid)->drawn.make(params, kWidth, kHeight);
  EXPECT_TRUE(paint) << paint.error().text;
  (*paint)(below, above, moment, canvas);
  return share(std::move(canvas));
}

Picture drawn(const Kind& kind, double progress, const Picture& below = plain(kBelow),
              const Picture& above = plain(kAbove)) {
  return drawn(kind.clsid, paramsOf(kind.params), {progress, progress}, below, above);
}

// The share of the second picture at a point, 0 to 1; coordinates run from 0 to 1.
double shareAt(const Picture& picture, double x, double y) {
  const int column = std::min(static_cast<int>(x * kWidth), kWidth - 1);
  const int row = std::min(static_cast<int>(y * kHeight), kHeight - 1);
  return (picture.row(0, row)[column] - kBelow) / static_cast<double>(kAbove - kBelow);
}

double shareOf(const Picture& picture, int plane = 0) {
  return (test::mean(picture, plane) - kBelow) / (kAbove - kBelow);
}

TEST(Transitions, BeginWithTheFirstPictureAndEndWithTheSecond) {
  for (const auto& kind : allKinds()) {
    // Light and shade, and pieces that cross what is uncovered: their colour tells how far they are.
    const bool inSpace = kind.clsid == ids::kParticlesAnd3D;
    const bool throughColour = kind.clsid == ids::kColorFade || kind.clsid == ids::kFadeWhite;
    const auto first = drawn(kind, 0);
    const auto last = drawn(kind, 1);
    for (int plane = 0; plane < 3; ++plane) {
      EXPECT_EQ(test::difference(first, plain(kBelow), plane), 0) << kind.name << " plane " << plane;
      EXPECT_EQ(test::difference(last, plain(kAbove), plane), 0) << kind.name << " plane " << plane;
    }
    double before = 0;
    for (int i = 1; i < 20; ++i) {
      const double share = shareOf(drawn(kind, i / 20.0), inSpace || throughColour ? 1 : 0);
      EXPECT_GE(share, before - (inSpace ? 0.02 : 0)) << kind.name << " at " << i;
      before = share;
    }
    // With alpha it is the same picture.
    const auto opaque = drawn(kind, 0.4, withAlpha(plain(kBelow)), withAlpha(plain(kAbove)));
    EXPECT_LT(test::difference(opaque, drawn(kind, 0.4)), 0.5) << kind.name;
    EXPECT_EQ(test::mean(opaque, 3), 255) << kind.name;
  }
}

// In the middle of their way: what is drawn is another picture for each.
TEST(Transitions, AreToldApart) {
  // One shape, as a class of its own and by its mask.
  const std::set<std::pair<std::string_view, std::string_view>> alike = {{"circle", "Iris"},
                                                                         {"SmpteWipe", "Wipe"}};
  std::vector<std::pair<std::string_view, Picture>> pictures;
  for (const auto& kind : allKinds()) {
    const auto picture = drawn(kind, 0.4, test::scene(kWidth, kHeight), ramp());
    for (const auto& [other, its] : pictures) {
      EXPECT_EQ(test::difference(its, picture) < 1, alike.contains({other, kind.name}))
          << other << " and " << kind.name;
    }
    pictures.emplace_back(kind.name, picture);
  }
  EXPECT_EQ(findTransition("{no such class}"), nullptr);
}

// A picture of characters, 64 x 36, of what is to be seen at each point from 0, 0 to 1, 1.
template <class CharacterAt>
std::string charted(std::string_view name, const CharacterAt& at) {
  auto chart = "== " + std::string(name) + "\n";
  for (int y = 0; y < 36; ++y) {
    for (int x = 0; x < 64; ++x) chart += at((x + 0.43) / 64, (y + 0.43) / 36);
    chart += '\n';
  }
  return chart;
}

// What has changed over at two fifths of the way. Those in space are left out: their light is all in between.
TEST(Transitions, HaveTheirOwnShapes) {
  std::string all;
  for (const auto& kind : allKinds()) {
    if (kind.clsid == ids::kParticlesAnd3D) continue;
    const auto picture = drawn(kind, 0.4);
    all += charted(kind.name, [&](double x, double y) {
      const double share = shareAt(picture, x, y);
      return share < 0.02 ? '.' : share > 0.98 ? '#' : '+';
    });
  }
  test::expectGolden("transition-shapes.txt", all);
}

// The tenth of the way at which each point changes over.
TEST(SmptePatterns, ChangeWhereTheirNamesSay) {
  std::string all;
  const auto masks = transitionMasks();
  std::vector<NamedMask> patterns(masks.begin(), masks.end());
  patterns.push_back({"of no such code", 999});
  for (const auto& [name, code] : patterns) {
    const auto pattern = smptePattern(code, 16.0 / 9);
    double least = 1e9;
    double most = -1e9;
    charted("", [&](double x, double y) {
      least = std::min(least, pattern(x, y));
      most = std::max(most, pattern(x, y));
      return ' ';
    });
    all += charted(name, [&](double x, double y) {
      return static_cast<char>('0' + std::min(9.0, (pattern(x, y) - least) / (most - least) * 10));
    });
  }
  test::expectGolden("smpte-patterns.txt", all);
}

TEST(Transitions, OfPlacesMoveWholePictures) {
  const auto below = test::scene(kWidth, kHeight);
  const auto moved = [&](std::string_view clsid, const char* params, double progress) {
    return drawn({"", clsid, params}, progress, below, ramp());
  };
  const auto pushed = moved(ids::kSlide, "slideStyle=PUSH", 0.25);
  EXPECT_EQ(pushed.row(0, 9)[100], below.row(0, 9)[60]) << "the first goes on to the right by a quarter";
  EXPECT_EQ(pushed.row(0, 9)[10], 40 + 130) << "and the second follows";
  const auto hidden = moved(ids::kSlide, "slideStyle=HIDE bands=2", 0.5);
  EXPECT_EQ(hidden.row(0, 10)[90], below.row(0, 10)[10]);
  EXPECT_EQ(hidden.row(0, 80)[10], below.row(0, 80)[90]) << "the second band goes the other way";
  const auto squeezed = moved(ids::kStretch, "stretchStyle=push", 0.5);
  EXPECT_NEAR(squeezed.row(0, 9)[40], 40 + 80, 2) << "the second in half the width";
  const auto corner = moved(ids::kPlacing, "OffsetX=80 OffsetY=0 Width=80 Height=44 SrcWidth=80", 0.5);
  EXPECT_NEAR(corner.row(0, 20)[120], 40 + 40, 2) << "half of the second, its left, in the upper right";
  EXPECT_EQ(corner.row(0, 20)[70], below.row(0, 20)[70]);
  EXPECT_EQ(corner.row(0, 60)[120], below.row(0, 60)[120]);
}

TEST(Transitions, PlacingFollowsItsKeysAndEndsAsACut) {
  Params params;
  params.add("Width", {"0", {0, {{1, kWidth, true}}}});
  params.add("Height", {"0", {kHeight, {{0.5, kHeight / 2.0, false}, {1, kHeight, false}}}});
  const auto out = drawn(ids::kPlacing, params, {0.5, 0.25}, plain(kBelow), plain(kAbove));
  EXPECT_EQ(out.row(0, 10)[35], kAbove) << "a quarter wide: run to in a line";
  EXPECT_EQ(out.row(0, 10)[45], kBelow);
  EXPECT_EQ(out.row(0, 40)[10], kAbove) << "half as high, as the step says that it is on its way to";
  EXPECT_EQ(out.row(0, 50)[10], kBelow);
  const auto* kind = findTransition(ids::kPlacing);
  EXPECT_FALSE(kind->drawn.coversAll(params, 0.99, kWidth, kHeight));
  EXPECT_TRUE(kind->drawn.coversAll(params, 1, kWidth, kHeight));
}

TEST(Transitions, BordersHaveTheirWidthAndColour) {
  struct Row {
    const char* params;
    int plane;
    std::function<bool(int)> isBorder;
    double width;
  };
  for (const auto& row :
       {Row{"MaskNum=1 BorderWidth=20 BorderColor=FF0000", 2, [](int v) { return v > 200; }, 20},
        Row{"MaskNum=1 BorderWidth=20 BorderColor=", 0, [](int v) { return v < 30; }, 20},  // black
        Row{"MaskNum=1 Borderwidth=20", 0, [](int v) { return v != 128; }, 0}}) {
    const auto picture = drawn({"", ids::kSmpteWipe, row.params}, 0.5, plain(128), plain(128));
    const auto* line = picture.row(row.plane, 20);
    const int width = picture.width(row.plane);
    EXPECT_EQ(line[2] + line[width - 3], 2 * 128) << row.params;
    const auto count = static_cast<double>(std::count_if(line, line + width, row.isBorder));
    EXPECT_NEAR(count * kWidth / width, row.width, row.width * 0.15) << row.params;
  }
}

TEST(Transitions, TakeAPictureForTheirMask) {
  const test::ScratchFolder folder;
  const auto mask = test::makeMedia(
      folder, "mask.jpg",
      {"-f", "lavfi", "-i", "color=white:size=160x90,drawbox=x=0:y=0:w=80:h=90:color=black:t=fill",
       "-frames:v", "1", "-q:v", "2"});
  const auto half = drawn({"masked", ids::kSmpteWipe, "MaskNum=1 MaskName=" + mask}, 0.5);
  EXPECT_EQ(shareAt(half, 0.2, 0.5), 1) << "the dark half has changed over";
  EXPECT_EQ(shareAt(half, 0.8, 0.5), 0);
  const auto missing = findTransition(ids::kSmpteWipe)
                           ->drawn.make(paramsOf("MaskName=" + folder / "none.jpg"), kWidth, kHeight);
  ASSERT_FALSE(missing);
  EXPECT_NE(missing.error().text.find("none.jpg"), std::string::npos);
}

TEST(Transitions, InSpaceHavePerspectiveAndShade) {
  const Kind flip{
      "flip", ids::kParticlesAnd3D,
      kSimple3D + "RevolveCamera=true ShowAFront=true ShowABack=false ShowBFront=false ShowBBack=true"};
  const auto early = drawn(flip, 0.3);
  // The lower edge has come nearer: it is wider than the upper one.
  const auto widthAt = [&](int y) {
    return std::count_if(early.row(0, y), early.row(0, y) + kWidth, [](int v) { return v > 20; });
  };
  int first = 0;
  int last = kHeight - 1;
  while (widthAt(first) < 10) ++first;
  while (widthAt(last) < 10) --last;
  EXPECT_GT(first, 5);
  EXPECT_NE(widthAt(first + 1), widthAt(last - 1));
  EXPECT_LT(early.row(0, kHeight / 2)[kWidth / 2], kBelow) << "the first, in the shade";
  EXPECT_GT(drawn(flip, 0.8).row(0, kHeight / 2)[kWidth / 2], kBelow) << "the second";
  const auto page = drawn({"page curl", ids::kParticlesAnd3D, kSimple3D + "PageCurlA=lowerleft"}, 0.4);
  EXPECT_EQ(page.row(1, kHeight / 2 - 3)[2], kAbove) << "uncovered at the corner";
  EXPECT_EQ(page.row(0, 2)[kWidth - 3], kBelow) << "still in place at the far one";
}

TEST(Transitions, TakeNonsenseForTheirOptions) {
  for (const std::string value : {"=", "=-3", "=0", "=1e9", "=-1e9", "=x"}) {
    for (const std::string name :
         {"bands", "spokes", "MaskNum", "ReplicateX", "ReplicateY", "ScaleY", "BorderWidth", "BorderSoftness",
          "BorderColor", "MaxParticles", "ParticleSpeed", "ScaleA", "OffsetX", "Width", "SrcWidth",
          "maxsquare", "FadeStartA", "ExponentialProgressScale"}) {
      for (const auto& kind : transitionKinds())
        drawn({kind.name, kind.clsid, kParticles + name + value}, 0.5);
      drawn({"odd", ids::kParticlesAnd3D, name + value}, 0.5);
    }
  }
}

}  // namespace
}  // namespace kvo::engine::transitions_drawn
