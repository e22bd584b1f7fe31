#include "playback/display/screens.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace kvo {
namespace {

constexpr Twips kMoreWidth = 500;  // by which a covering window reaches past the screen
constexpr Twips kMoreHeight = 200;

constexpr int kFarthest = 100000;  // pixels: a place beyond this is no place

int right(const ScreenArea& area) { return area.left + area.width; }
int bottom(const ScreenArea& area) { return area.top + area.height; }

std::int64_t shared(const ScreenArea& a, const ScreenArea& b) {
  const std::int64_t width = std::min(right(a), right(b)) - std::max(a.left, b.left);
  const std::int64_t height = std::min(bottom(a), bottom(b)) - std::max(a.top, b.top);
  return width > 0 && height > 0 ? width * height : 0;
}

std::int64_t distance(const ScreenArea& a, const ScreenArea& b) {
  const std::int64_t x = std::max({0, a.left - right(b), b.left - right(a)});
  const std::int64_t y = std::max({0, a.top - bottom(b), b.top - bottom(a)});
  return x * x + y * y;
}

// One side of a window of `length`, that stood at `at` on a screen from `from` of `extent`, on another
// screen. Of one that stood further outside no more is asked than the edge.
int moved(int at, int from, int extent, int length, int newFrom, int newExtent) {
  if (extent == newExtent || extent <= length) return newFrom + (at - from);
  const double share = std::clamp(static_cast<double>(at - from) / (extent - length), 0.0, 1.0);
  return newFrom + static_cast<int>(RoundToWhole(share * (newExtent - length)));
}

// Moved in as far as it lies outside; one that is too large begins where the screen does.
int inside(int at, int length, int from, int extent) {
  return std::max(from, std::min(at, from + extent - length));
}

const Screen& screenFor(std::span<const Screen> screens, const std::optional<RememberedPlace>& remembered) {
  if (!remembered) return screens.front();
  const auto named = std::ranges::find(screens, remembered->screen, &Screen::name);
  if (named != screens.end()) return *named;
  return screens[static_cast<std::size_t>(screenOf(screens, remembered->place))];
}

}  // namespace

std::string text(const RememberedPlace& place) {
  std::string line;
  for (const int number :
       {place.place.left, place.place.top, place.place.width, place.place.height, place.screenPlace.left,
        place.screenPlace.top, place.screenPlace.width, place.screenPlace.height}) {
    line += std::to_string(number) + ",";
  }
  return line + quoted(place.screen);
}

std::optional<RememberedPlace> rememberedPlace(std::string_view text) {
  const auto fields = commaFields(text);
  std::array<int, 8> numbers{};
  if (fields.size() != numbers.size() + 1) return std::nullopt;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const double number = ToNumber(fields[i]);
    if (number < -kFarthest || number > kFarthest) return std::nullopt;
    numbers[i] = static_cast<int>(number);
  }
  const auto& n = numbers;
  if (n[2] <= 0 || n[3] <= 0 || n[6] <= 0 || n[7] <= 0) return std::nullopt;
  return RememberedPlace{{n[0], n[1], n[2], n[3]}, fields.back(), {n[4], n[5], n[6], n[7]}};
}

int screenOf(std::span<const Screen> screens, const ScreenArea& place) {
  int best = -1;
  std::int64_t bestShared = -1;
  std::int64_t bestDistance = std::numeric_limits<std::int64_t>::max();
  for (std::size_t i = 0; i < screens.size(); ++i) {
    const auto part = shared(screens[i].whole, place);
    const auto away = distance(screens[i].whole, place);
    if (part < bestShared || (part == bestShared && away >= bestDistance)) continue;
    best = static_cast<int>(i);
    bestShared = part;
    bestDistance = away;
  }
  return best;
}

RememberedPlace remember(std::span<const Screen> screens, const ScreenArea& place) {
  const int index = screenOf(screens, place);
  if (index < 0) return {place, "", {}};
  const auto& screen = screens[static_cast<std::size_t>(index)];
  return {place, screen.name, screen.whole};
}

ScreenArea placeWindow(std::span<const Screen> screens, const std::optional<RememberedPlace>& remembered,
                       int width, int height, bool sizable) {
  if (sizable && remembered) {
    width = remembered->place.width;
    height = remembered->place.height;
  }
  if (screens.empty()) return {0, 0, width, height};
  const auto& screen = screenFor(screens, remembered);
  const auto& room = screen.available;
  if (sizable) {
    width = std::min(width, room.width);
    height = std::min(height, room.height);
  }
  int left = room.left + (room.width - width) / 2;
  int top = room.top + (room.height - height) / 2;
  if (remembered) {
    const auto& then = remembered->screenPlace;
    const auto& now = screen.whole;
    left = moved(remembered->place.left, then.left, then.width, width, now.left, now.width);
    top = moved(remembered->place.top, then.top, then.height, height, now.top, now.height);
  }
  return {inside(left, width, room.left, room.width), inside(top, height, room.top, room.height), width,
          height};
}

Place coverScreen(const Screen& screen, Twips twipsPerPixel, Twips border) {
  return {-border, -border, screen.whole.width * twipsPerPixel + 2 * border + kMoreWidth,
          screen.whole.height * twipsPerPixel + kMoreHeight};
}

}  // namespace kvo
