#include "program/gathered_boxes.h"

#include "base/holding.h"
#include "base/text.h"
#include "core/telling/translated.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace kvo {
namespace {

constexpr std::size_t kMostTold = 12;  // texts in one box; of more their number is told

using Lines = std::vector<std::string>;

Lines linesIn(std::string_view text) {
  Lines lines;
  while (!text.empty()) lines.emplace_back(nextLine(text));
  return lines;
}

std::size_t linesInCommon(std::span<const Lines> texts) {
  std::size_t count = 0;
  for (; count + 1 < texts.front().size(); ++count) {
    const auto& line = texts.front()[count];
    if (!std::ranges::all_of(texts, [&](const Lines& l) { return count < l.size() && l[count] == line; }))
      break;
  }
  return count;
}

std::string joinedText(std::span<const Lines> texts) {
  const auto common = linesInCommon(texts);
  Lines lines(texts.front().begin(), texts.front().begin() + static_cast<std::ptrdiff_t>(common));
  const auto told = texts.first(std::min(texts.size(), kMostTold));
  for (const auto& text : told)
    lines.insert(lines.end(), text.begin() + static_cast<std::ptrdiff_t>(std::min(common, text.size())),
                 text.end());
  if (told.size() < texts.size())
    lines.push_back(translated("and %1 more.", {std::to_string(texts.size() - told.size())}));
  std::string text;
  for (const auto& line : lines) text.append(text.empty() ? "" : kCrLf).append(line);
  return text;
}

}  // namespace

Answer GatheredBoxes::show(const Box& box) {
  if (!gathers_ || box.buttons != BoxButtons::Ok) return boxes_.show(box);
  waiting_.push_back(box);
  return Answer::Ok;
}

void GatheredBoxes::together(const std::function<void()>& work) {
  if (gathers_) return work();
  waiting_.clear();  // what a work left that was thrown out of
  {
    const Holding gathers(gathers_);
    work();
  }
  const auto all = std::exchange(waiting_, {});
  for (std::size_t first = 0; first < all.size(); ++first) {
    const auto same = [&](const Box& box) { return box.caption == all[first].caption; };
    if (std::any_of(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(first), same)) continue;
    std::vector<Lines> texts;
    for (const auto& box : all) {
      if (same(box)) texts.push_back(linesIn(box.text));
    }
    auto told = all[first];
    if (texts.size() > 1) told.text = joinedText(texts);
    boxes_.show(told);
  }
}

}  // namespace kvo
