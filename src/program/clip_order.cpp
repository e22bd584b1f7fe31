#include "program/clip_order.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "playback/positions/slider.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <tuple>

namespace kvo {
namespace {

std::vector<int> inOrder(int count) {
  std::vector<int> order(static_cast<std::size_t>(count));
  std::iota(order.begin(), order.end(), 1);
  return order;
}

bool isIn(const std::vector<int>& numbers, int number) {
  return std::binary_search(numbers.begin(), numbers.end(), number);
}

// A number first, then a text.
using Key = std::pair<double, std::string>;

double pixelsOf(const Movie& clip) {
  if (clip.IsStill()) return static_cast<double>(clip.StillW()) * clip.StillH();
  const auto text = clip.Resolution().text();
  const auto by = text.find('x');
  return by == std::string::npos ? 0 : ToNumber(text) * ToNumber(std::string_view(text).substr(by + 1));
}

Key keyOf(const Movie& clip, SortKey key, const Files& files, const std::function<double()>& random) {
  const auto name = upper(clip.MovieName());
  const auto facts = [&] { return files.facts(clipFile(clip)).value_or(FileFacts{}); };
  switch (key) {
    case SortKey::Alpha:
      return {0, upper(listedName(clip))};
    case SortKey::FileDate:
      return {static_cast<double>(facts().changed), name};
    case SortKey::FileType:
      return {0, wholeExtension(clip.MovieName()) + name};
    case SortKey::FileSize:
      return {clip.Size().empty() ? static_cast<double>(facts().size) : ToNumber(clip.Size()), name};
    case SortKey::ClipDur:
      return {trackSeconds(clip.DurationTime().text(), clip.IsExtendedCD()), name};
    case SortKey::Resolution:
      return {pixelsOf(clip), name};
    case SortKey::Shuff:
      break;
  }
  return {random(), {}};
}

}  // namespace

std::vector<int> orderMoved(int count, const std::vector<int>& chosen, int by) {
  auto order = inOrder(count);
  const auto moves = [&](int number) {
    const int to = number + by;
    if (to < 1 || to > count || isIn(chosen, order[static_cast<std::size_t>(to - 1)])) return;
    std::swap(order[static_cast<std::size_t>(number - 1)], order[static_cast<std::size_t>(to - 1)]);
  };
  if (by < 0) std::for_each(chosen.begin(), chosen.end(), moves);
  if (by > 0) std::for_each(chosen.rbegin(), chosen.rend(), moves);
  return order;
}

std::vector<int> orderGathered(int count, const std::vector<int>& chosen, int before) {
  auto order = inOrder(count);
  const auto gap = order.begin() + std::clamp(before - 1, 0, count);
  const auto stays = [&](int number) { return !isIn(chosen, number); };
  std::stable_partition(order.begin(), gap, stays);
  std::stable_partition(gap, order.end(), [&](int number) { return !stays(number); });
  return order;
}

std::vector<int> orderSorted(const RecordList<Movie>& clips, SortKey key, const Files& files,
                             const std::function<double()>& random) {
  std::vector<std::pair<Key, int>> keys;
  keys.reserve(static_cast<std::size_t>(clips.count()));
  for (int i = 1; i <= clips.count(); ++i) keys.emplace_back(keyOf(clips[i], key, files, random), i);
  std::sort(keys.begin(), keys.end());
  std::vector<int> order;
  order.reserve(keys.size());
  for (const auto& [of, number] : keys) order.push_back(number);
  return order;
}

std::vector<int> placesIn(const std::vector<int>& order, const std::vector<int>& numbers) {
  std::vector<int> places;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (isIn(numbers, order[i])) places.push_back(static_cast<int>(i) + 1);
  }
  return places;
}

}  // namespace kvo
