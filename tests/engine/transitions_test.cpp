// Every transition on two plain pictures: nothing of the second at 0, all of it at 1, ever more between, and
// a shape of its own.
#include "engine/transitions/registry.h"
#include "media/pixel_rows.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 90;
constexpr int kBelow = 50;
constexpr int kAbove = 200;

struct Kind {
  const char* name;
  const char* clsid;
  TransitionParams params{};
};

const std::vector<Kind>& kinds() {
  static const std::vector<Kind> kAll = {
      {"fade", "{16B280C5-EE70-11D1-9066-00C04FD9189D}"},
      {"dissolve", "{F7F4A1B6-8E87-452f-A2D7-3077F508DBC0}"},
      {"barn", "{C3BDF740-0B58-11d2-A484-00C04F8EFB69}"},
      {"blinds", "{9A4A4A51-FB3A-4F4B-9B57-A2912A289769}"},
      {"five blinds up", "{9A4A4A51-FB3A-4F4B-9B57-A2912A289769}", {{"bands", "5"}, {"direction", "Up"}}},
      {"checkerboard", "{B3EE7802-8224-4787-A1EA-F0DE16DEABD3}"},
      {"iris", "{3F69F351-0379-11D2-A484-00C04F8EFB69}", {{"irisstyle", "CIRCLE"}}},
      {"iris square", "{3F69F351-0379-11D2-A484-00C04F8EFB69}", {{"irisstyle", "SQUARE"}}},
      {"iris plus", "{3F69F351-0379-11D2-A484-00C04F8EFB69}", {{"irisstyle", "PLUS"}}},
      {"iris cross", "{3F69F351-0379-11D2-A484-00C04F8EFB69}", {{"irisstyle", "CROSS"}}},
      {"iris star", "{3F69F351-0379-11D2-A484-00C04F8EFB69}", {{"irisstyle", "STAR"}}},
      {"clock", "{424B71AF-0695-11D2-A484-00C04F8EFB69}"},
      {"wedge", "{424B71AF-0695-11D2-A484-00C04F8EFB69}", {{"wipestyle", "wedge"}}},
      {"radial", "{424B71AF-0695-11D2-A484-00C04F8EFB69}", {{"wipestyle", "radial"}}},
      {"spiral", "{ACA97E00-0C7D-11d2-A484-00C04F8EFB69}"},
      {"wheel", "{5AE1DAE0-1461-11d2-A484-00C04F8EFB69}"},
      {"wheel of ten", "{5AE1DAE0-1461-11d2-A484-00C04F8EFB69}", {{"spokes", "10"}}},
      {"wipe", "{AF279B30-86EB-11D1-81BF-0000F87557DB}"},
      {"zigzag", "{E6E73D20-0C8A-11d2-A484-00C04F8EFB69}"},
  };
  return kAll;
}

media::Picture plain(int value) {
  auto picture = media::Picture::make(kWidth, kHeight);
  for (int plane = 0; plane < 3; ++plane) {
    std::fill_n(picture.plane(plane),
                static_cast<std::ptrdiff_t>(picture.stride(plane)) * (plane == 0 ? kHeight : kHeight / 2),
                static_cast<std::uint8_t>(value));
  }
  return picture;
}

class Drawn {
 public:
  Drawn(const std::string& name, double progress) {
    const auto kind =
        std::find_if(kinds().begin(), kinds().end(), [&](const auto& k) { return k.name == name; });
    findTransition(kind->clsid)(kind->params, kWidth, kHeight)(plain(kBelow), plain(kAbove), progress,
                                                               picture_);
  }

  /// The share of the second picture at a point, 0 to 1; coordinates run from 0 to 1.
  [[nodiscard]] double at(double x, double y, int plane = 0) const {
    const int side = plane == 0 ? 1 : 2;
    const int column = std::min(static_cast<int>(x * kWidth), kWidth - 1) / side;
    const int row = std::min(static_cast<int>(y * kHeight), kHeight - 1) / side;
    const auto value =
        picture_.plane(plane)[static_cast<std::ptrdiff_t>(row) * picture_.stride(plane) + column];
    return (value - kBelow) / static_cast<double>(kAbove - kBelow);
  }
  [[nodiscard]] double share(int plane = 0) const {
    double sum = 0;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) sum += at((x + 0.5) / kWidth, (y + 0.5) / kHeight, plane);
    }
    return sum / (kWidth * kHeight);
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

 private:
  media::Picture picture_ = media::Picture::make(kWidth, kHeight);
};

TEST(Transitions, BeginWithTheFirstPictureAndEndWithTheSecond) {
  for (const auto& kind : kinds()) {
    const Drawn first(kind.name, 0);
    const Drawn last(kind.name, 1);
    for (int plane = 0; plane < 3; ++plane) {
      EXPECT_EQ(first.share(plane), 0) << kind.name << " plane " << plane;
      EXPECT_EQ(last.share(plane), 1) << kind.name << " plane " << plane;
    }
    double before = 0;
    for (int i = 1; i < 20; ++i) {
      const double share = Drawn(kind.name, i / 20.0).share();
      EXPECT_GE(share, before) << kind.name << " at " << i;
      before = share;
    }
    EXPECT_NEAR(Drawn(kind.name, 0.5).share(), 0.5, 0.35) << kind.name;
  }
}

TEST(Transitions, HaveTheirOwnShapes) {
  const Drawn barn("barn", 0.4);
  EXPECT_EQ(barn.at(0.5, 0.1), 1);
  EXPECT_EQ(barn.at(0.1, 0.5) + barn.at(0.9, 0.5), 0);
  const Drawn wipe("wipe", 0.5);
  EXPECT_EQ(wipe.at(0.45, 0.5), 1);
  EXPECT_EQ(wipe.at(0.55, 0.5), 0);
  EXPECT_NEAR(Drawn("dissolve", 0.3).share(), 0.3, 0.02);
  const Drawn circle("iris", 0.3);
  EXPECT_EQ(circle.at(0.5, 0.5), 1);
  EXPECT_EQ(circle.at(0.02, 0.02), 0);
  const double radius = 0.3 * std::hypot(16.0 / 9, 1) / 2;  // of the height
  EXPECT_EQ(circle.at(0.5, 0.5 + radius - 0.03), 1);
  EXPECT_EQ(circle.at(0.5, 0.5 + radius + 0.03), 0);
  EXPECT_EQ(circle.at(0.5 + (radius - 0.03) * 9 / 16, 0.5), 1) << "round, not oval";
  EXPECT_EQ(circle.at(0.5 + (radius + 0.03) * 9 / 16, 0.5), 0);
  const Drawn plus("iris plus", 0.2);
  EXPECT_EQ(plus.at(0.5, 0.02) + plus.at(0.02, 0.5), 2);
  EXPECT_EQ(plus.at(0.1, 0.1), 0);
  EXPECT_EQ(Drawn("wheel", 0.5).edgesAround(0.4), 8) << "four spokes";
  EXPECT_EQ(Drawn("wheel of ten", 0.5).edgesAround(0.4), 20);
  const Drawn clock("clock", 0.25);
  EXPECT_EQ(clock.at(0.75, 0.25), 1) << "the first quarter is the one at the top right";
  EXPECT_EQ(clock.at(0.25, 0.25) + clock.at(0.25, 0.75) + clock.at(0.75, 0.75), 0);
  const Drawn wedge("wedge", 0.25);
  EXPECT_EQ(wedge.at(0.45, 0.1) + wedge.at(0.55, 0.1), 2);
  EXPECT_EQ(wedge.at(0.5, 0.9), 0);
  const Drawn blinds("five blinds up", 0.5);
  for (int band = 0; band < 5; ++band) {
    EXPECT_EQ(blinds.at(0.5, (band + 0.9) / 5), 1) << band;
    EXPECT_EQ(blinds.at(0.5, (band + 0.1) / 5), 0) << band;
  }
  const Drawn spiral("spiral", 0.3);
  EXPECT_EQ(spiral.at(0.1, 0.05), 1);
  EXPECT_EQ(spiral.at(0.5, 0.5), 0);
  const Drawn zigzag("zigzag", 0.5);
  EXPECT_EQ(zigzag.at(0.5, 0.1), 1);
  EXPECT_EQ(zigzag.at(0.5, 0.9), 0);
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
  for (const auto* value : {"", "-3", "0", "1e9", "x"}) {
    EXPECT_GE(countParam({{"bands", value}}, "bands", 10), 1) << value;
    EXPECT_LE(countParam({{"bands", value}}, "bands", 10), 200) << value;
  }
  EXPECT_EQ(findTransition("{no such class}"), nullptr);
}

}  // namespace
}  // namespace kvo::engine
