#include "playback/display/screens.h"

#include "playback/display/face_corner.h"
#include "playback/display/interface_size.h"
#include "support/rows.h"

#include <gtest/gtest.h>

namespace kvo {

namespace {

using test::Rows;

Screen screenAt(const char* name, ScreenArea whole, int bar = 0) {
  return {name, whole, {whole.left, whole.top + bar, whole.width, whole.height - bar}, 1};
}

const Screen kLeft = screenAt("left", {0, 0, 1920, 1080}, 30);
const Screen kRight = screenAt("right", {1920, 0, 1280, 1024});
const Screen kLeftLow = screenAt("left", {0, 0, 1024, 768}, 30);

TEST(Screens, AWindowIsPutWhereItCanBeReached) {
  const std::vector<Screen> both{kLeft, kRight}, only{kLeft}, low{kLeftLow}, swapped{kRight, kLeft},
      moved{screenAt("right", {0, 0, 1280, 1024})};
  const auto onLeft = [](int left, int top, int width = 562, int height = 410) {
    return RememberedPlace{{left, top, width, height}, "left", kLeft.whole};
  };
  const RememberedPlace onRight{{2200, 300, 800, 600}, "right", kRight.whole};
  using Window = std::tuple<int, int, bool>;  // its size, and whether it can be sized
  const Window kFixed{562, 410, false}, kSizable{10, 10, true};
  for (const auto& [what, screens, remembered, window, expected] :
       Rows<const char*, std::vector<Screen>, std::optional<RememberedPlace>, Window, ScreenArea>{
           {"first time", both, {}, kFixed, {679, 350, 562, 410}},
           {"as it was", both, onLeft(100, 200), kFixed, {100, 200, 562, 410}},
           {"on the second screen", both, onRight, kSizable, {2200, 300, 800, 600}},
           {"a new size", both, onLeft(100, 200), {702, 512, false}, {100, 200, 702, 512}},
           {"they have moved", moved, onRight, kSizable, {280, 300, 800, 600}},
           {"another main screen", swapped, onLeft(100, 200), kFixed, {100, 200, 562, 410}},
           {"its screen is gone", only, onRight, kSizable, {653, 340, 800, 600}},
           {"over the left edge", both, onLeft(-400, 200), kFixed, {0, 200, 562, 410}},
           {"below the lower edge", both, onLeft(100, 1000), kFixed, {100, 670, 562, 410}},
           {"under the bar of the desktop", both, onLeft(100, 0), kFixed, {100, 30, 562, 410}},
           {"less resolution", low, onLeft(1358, 670), kFixed, {462, 358, 562, 410}},
           {"too large for the screen", low, onLeft(50, 60, 1800, 1000), kSizable, {0, 30, 1024, 738}},
           {"fixed and too large", low, onLeft(100, 200), {1124, 820, false}, {0, 30, 1124, 820}},
           {"no screen at all", {}, onLeft(100, 200), kFixed, {0, 0, 562, 410}}}) {
    const auto& [width, height, sizable] = window;
    EXPECT_EQ(placeWindow(screens, remembered, width, height, sizable), expected) << what;
  }
}

TEST(Screens, WhatIsKeptOfAPlaceComesBack) {
  const std::vector<Screen> both{kLeft, kRight};
  const auto kept = remember(both, {1800, 10, 562, 410});
  EXPECT_EQ(kept.screen, "right") << "it has most of the window";
  EXPECT_EQ(rememberedPlace(text(kept)), kept);
  const RememberedPlace odd{{-5, 0, 1, 1}, "HDMI-1, \xC3\xA4", {0, 0, 9, 9}};
  EXPECT_EQ(rememberedPlace(text(odd)), odd);
  for (const char* bad : {"", "1,2,3", "1,2,0,4,0,0,9,9,\"x\"", "1,2,3,4,0,0,9,1e30,\"x\"",
                          "-200000,2,3,4,0,0,9,9,\"x\"", "a,b,c,d,e,f,g,h,i"}) {
    EXPECT_EQ(rememberedPlace(bad), std::nullopt) << bad;
  }
  EXPECT_EQ(screenOf(both, {5000, 200, 10, 10}), 1) << "the nearest";
  EXPECT_EQ(screenOf({}, {0, 0, 10, 10}), -1);
}

TEST(Screens, TheInterfaceIsAsLargeAsAskedAndAsTheScreenHasRoom) {
  const struct {
    double factor;
    std::optional<double> choice;
    int height;
    double expected;
  } rows[] = {{1, {}, 1080, 1},   {1.2, {}, 1080, 1}, {1.49, {}, 1080, 1.25},  {1.5, {}, 1080, 1.5},
              {3, {}, 2160, 2},   {0.5, {}, 1080, 1}, {2, {1.25}, 1080, 1.25}, {1, {2}, 1080, 2},
              {1, {2}, 768, 1.5}, {1, {}, 300, 1}};
  for (const auto& row : rows) {
    auto screen = screenAt("s", {0, 0, 1920, row.height});
    screen.factor = row.factor;
    EXPECT_EQ(interfaceSize(screen, row.choice), row.expected) << row.factor << " on " << row.height;
    const bool fits = !row.choice || *row.choice == row.expected;
    EXPECT_EQ(sizeFits(std::array{screen}, row.choice.value_or(row.expected)), fits) << row.height;
  }
  const std::array small{screenAt("s", {0, 0, 1920, 1080})};
  EXPECT_EQ(sizeInForce(small, 0, true), 1.25) << "large text";
  EXPECT_EQ(sizeInForce(small, 1, true), 1) << "large text, but the user has chosen";
  EXPECT_EQ(sizeInForce({}, 0, false), 1);
}

// A face that stands at `corner`, with a frame of 4 pixels and a title of 30 about it.
FaceOnScreen framedAt(ScreenPoint corner, int width = 562) {
  return {corner, {corner.x + 4, corner.y + 30, width, 410}, true, true, false, true};
}
FaceOnScreen bareAt(ScreenPoint corner) {
  return {corner, {corner.x, corner.y, 562, 410}, false, true, false, true};
}

TEST(FaceCorner, AFaceThatHasCoveredTheScreenComesBackToWhereItStood) {
  auto covering = bareAt({0, 0});
  covering.covers = true;
  const ScreenPoint place{100, 200}, inside{104, 230}, elsewhere{0, 30};
  FaceCorner corner;
  for (const auto& [what, time, before, after, goal] :
       Rows<const char*, int, FaceOnScreen, FaceOnScreen, std::optional<ScreenPoint>>{
           {"as it stands", 0, framedAt(place), framedAt(place), {}},
           {"it has grown", 10, framedAt(place), framedAt(place, 702), place},
           {"covers", 20, framedAt(place), covering, {}},
           {"and goes on to", 5000, covering, covering, {}},
           {"comes back, without its frame yet", 6000, covering, bareAt(elsewhere), inside},
           {"put elsewhere by the desktop", 6400, bareAt(elsewhere), bareAt(elsewhere), inside},
           {"stands", 6500, bareAt(inside), bareAt(inside), {}},
           {"has its frame, elsewhere", 7000, framedAt(elsewhere), framedAt(elsewhere), place},
           {"moved by the user, later", 7600, framedAt(elsewhere), framedAt(elsewhere), {}},
           {"and it has grown there", 7700, framedAt(elsewhere), framedAt(elsewhere, 702), elsewhere}}) {
    corner.beforeDrawing(before, time);
    EXPECT_EQ(corner.afterDrawing(after, time), goal) << what;
  }
}

TEST(FaceCorner, TheFacesShareItUnlessTheUserMovesOne) {
  const ScreenPoint home{100, 200};
  auto covering = framedAt({0, 0});
  covering.covers = true;
  auto hidden = framedAt({700, 500});
  hidden.visible = false;
  for (auto [what, zoom, back, atEnd] : Rows<const char*, FaceOnScreen, ScreenPoint, ScreenPoint>{
           {"at rest", framedAt(home), home, home},
           {"its frame alone was put elsewhere", framedAt({104, 248}), home, home},
           {"moved", framedAt({100, 249}), {100, 249}, {100, 249}},
           {"covers the screen", covering, home, home},
           {"not in sight", hidden, home, {700, 500}}}) {
    FaceCorner corner;
    corner.beforeDrawing(framedAt(home), 0);
    EXPECT_EQ(corner.cameFrom(framedAt(home), 0), home);
    corner.stands(home);
    zoom.isNormal = false;
    EXPECT_EQ(corner.atEnd(zoom), atEnd) << what;
    EXPECT_EQ(corner.cameFrom(zoom, 10), back) << what;
  }
}

}  // namespace
}  // namespace kvo
