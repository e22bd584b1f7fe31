#include "core/file/section_reader.h"

#include "base/text.h"

#include <algorithm>

namespace kvo {
namespace {

bool isHeading(std::string_view item, std::string_view name) {
  return item.size() == name.size() + 2 && item.front() == '[' && item.back() == ']' &&
         item.substr(1, name.size()) == name;
}

bool isLastRow(std::string_view item) {
  return item.starts_with("Balance") || item.starts_with("IsStill") || item.starts_with("Size");
}

// A line of its own in brackets, as every section begins.
bool isAnyHeading(std::string_view item) { return item.starts_with('[') && item.ends_with(']'); }

}  // namespace

SectionReader::SectionReader(std::string bytes) : text_(std::move(bytes)), isUtf8_(isUtf8(text_)) {
  dropByteOrderMark(text_);
}

std::string_view SectionReader::inUtf8(std::string_view text) {
  return isUtf8_ || isUtf8(text) ? text : decoded_.emplace_back(lineFromBytes(text));
}

int SectionReader::countSections(std::string_view before, std::string_view behind) const {
  const auto start = std::string("[").append(before);
  const auto end = std::string(behind).append("]");
  const std::string_view text(text_);
  int count = 0;
  for (auto at = text.find(start); at != std::string_view::npos; at = text.find(start, at + 1)) {
    const auto digits = at + start.size();
    const auto past = text.find_first_not_of("0123456789", digits);
    if (past == std::string_view::npos || past == digits) continue;
    const bool ownLine = (at == 0 || text[at - 1] == '\n') && text.substr(past).starts_with(end);
    if (ownLine) ++count;
  }
  return count;
}

bool SectionReader::nextItem(Item& item) {
  if (at_ >= text_.size()) return false;
  if (!insideLine_ || lineFeed_ < at_) lineFeed_ = std::min(text_.find('\n', at_), text_.size());
  const auto feed = lineFeed_;
  const auto lineEnd = feed > at_ && text_[feed - 1] == '\r' ? feed - 1 : feed;
  auto line = std::string_view(text_).substr(at_, lineEnd - at_);
  item.isRest = insideLine_;
  item.isEmptyLine = !insideLine_ && line.find_first_not_of(" \t") == std::string_view::npos;
  const auto field = nextField(line);
  item.text = field.text;
  item.toLineEnd = field.toLineEnd;
  insideLine_ = !line.empty();
  at_ = insideLine_ ? lineEnd - line.size() : std::min(feed + 1, text_.size());
  return true;
}

bool SectionReader::GetSection(std::string_view name, std::vector<SectionRow>& rows, int keepOpen) {
  rows.clear();
  if (!open_ || keepOpen < 1) {
    at_ = 0;
    insideLine_ = false;
  }
  open_ = keepOpen >= 1;

  Item item;
  do {
    if (!nextItem(item)) return false;
  } while (!isHeading(item.text, name));

  for (;;) {
    const auto itemStart = at_;
    const auto wasInside = insideLine_;
    if (!nextItem(item) || item.isEmptyLine) break;
    if (keepOpen >= 1 && item.text.ends_with("Audio]")) {
      at_ = itemStart;  // the next section's heading is left for the call that asks for it
      insideLine_ = wasInside;
      droppedText_ |= !isAnyHeading(item.text);
      break;
    }
    const bool last = keepOpen >= 1 && isLastRow(item.text);
    if (!last && item.text.find('[') != std::string_view::npos &&
        item.text.find('.') == std::string_view::npos) {
      at_ = itemStart;
      insideLine_ = wasInside;
      droppedText_ |= !isAnyHeading(item.text);
      break;
    }
    droppedText_ |= item.isRest && !item.text.empty();
    const auto equals = item.text.find('=');
    if (equals != std::string_view::npos) {
      const auto key = trimmed(item.text.substr(0, equals));
      auto bytes = item.toLineEnd.substr(equals + 1);
      if (bytes.starts_with(' ')) bytes.remove_prefix(1);
      if (!key.empty()) rows.push_back({key, inUtf8(trimmed(item.text.substr(equals + 1))), bytes});
    }
    if (last) break;
  }
  return !rows.empty();
}

}  // namespace kvo
