#include "program/gathered_boxes.h"

#include "base/holding.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/telling/translated.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace kvo {
namespace {

constexpr std::size_t kMostTold = 12;  // files in one box; of more their number is told

using Lines = std::vector<std::string>;

Lines linesIn(std::string_view text) {
  Lines lines;
  while (!text.empty()) lines.emplace_back(nextLine(text));
  return lines;
}

// What is told of one file or of several.
struct Told {
  Lines names;
  Lines lines;
};

// A long name may be told cut.
bool tellsOf(const std::string& name, std::span<const std::string> lines) {
  return std::ranges::any_of(lines, [&](const std::string& line) {
    return !line.empty() && (line.find(name) != std::string::npos || name.starts_with(line));
  });
}

std::vector<Told> toldOf(std::span<const GatheredBoxes::Waiting> boxes) {
  std::vector<Told> all;
  for (const auto& [box, name] : boxes) {
    const auto lines = linesIn(box.text);
    auto told = std::ranges::find(all, lines, &Told::lines);
    if (told == all.end()) told = all.insert(told, {{}, lines});
    if (!name.empty() && !tellsOf(name, lines)) told->names.push_back(name);
  }
  return all;
}

// At the front of texts that differ.
std::size_t linesInCommon(std::span<const Told> texts) {
  if (texts.size() < 2) return 0;
  std::size_t count = 0;
  for (const auto& line : texts.front().lines) {
    if (!std::ranges::all_of(texts,
                             [&](const Told& t) { return count < t.lines.size() && t.lines[count] == line; }))
      break;
    ++count;
  }
  return count;
}

std::string joinedText(std::span<const GatheredBoxes::Waiting> boxes) {
  const auto texts = toldOf(boxes.first(std::min(boxes.size(), kMostTold)));
  const auto common = static_cast<std::ptrdiff_t>(linesInCommon(texts));
  const auto& first = texts.front().lines;
  Lines lines(first.begin(), first.begin() + common);
  for (const auto& text : texts) {
    lines.insert(lines.end(), text.names.begin(), text.names.end());
    lines.insert(lines.end(), text.lines.begin() + common, text.lines.end());
  }
  if (boxes.size() > kMostTold)
    lines.push_back(translated("and %1 more.", {std::to_string(boxes.size() - kMostTold)}));
  std::string text;
  for (const auto& line : lines) text.append(text.empty() ? "" : kCrLf).append(line);
  return text;
}

// The caption without the file's name and what parts them.
std::string captionKind(const GatheredBoxes::Waiting& waiting) {
  std::string_view caption = waiting.box.caption;
  if (waiting.name.empty() || !caption.starts_with(waiting.name)) return waiting.box.caption;
  caption.remove_prefix(waiting.name.size());
  return std::string(caption.substr(std::min(caption.find_first_not_of(" -"), caption.size())));
}

// One alone whose caption names the file stays as it is.
Box oneBoxOf(std::span<const GatheredBoxes::Waiting> boxes) {
  auto box = boxes.front().box;
  auto kind = captionKind(boxes.front());
  if (boxes.size() == 1 && kind != box.caption) return box;
  box.caption = std::move(kind);
  box.text = joinedText(boxes);
  return box;
}

}  // namespace

void GatheredBoxes::about(const std::string& path) { name_ = fileNamePart(path); }

Answer GatheredBoxes::show(const Box& box) {
  if (!gathers_ || box.buttons != BoxButtons::Ok) return boxes_.show(box);
  waiting_.push_back({box, name_});
  return Answer::Ok;
}

void GatheredBoxes::together(const std::function<void()>& work) {
  if (gathers_) return work();
  waiting_.clear();  // what a work left that was thrown out of
  name_.clear();
  {
    const Holding gathers(gathers_);
    work();
  }
  for (auto all = std::exchange(waiting_, {}); !all.empty();) {
    const auto kind = captionKind(all.front());
    const auto others = std::stable_partition(all.begin(), all.end(),
                                              [&](const auto& box) { return captionKind(box) == kind; });
    boxes_.show(oneBoxOf({all.begin(), others}));
    all.erase(all.begin(), others);
  }
}

}  // namespace kvo
