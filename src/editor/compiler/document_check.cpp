#include "editor/compiler/document_check.h"

#include "base/document_names.h"
#include "base/text.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo {
namespace {

constexpr std::string_view kBehindName = " \t\r\n=<>/\"";

enum class TagEnd { Open, Empty, Broken };

class Tags {
 public:
  explicit Tags(std::string_view text) : text_(text) {}

  Outcome check() {
    for (at_ = text_.find('<'); at_ < text_.size(); at_ = text_.find('<', at_)) {
      const auto begin = at_++;
      const bool closes = take("/");
      const auto name = takeName();
      const auto end = takeAttributes();
      if (name.empty() || end == TagEnd::Broken) return damagedAt(begin, "a tag is not whole");
      if (closes) {
        if (open_.empty() || open_.back() != name)
          return damagedAt(begin, "</" + std::string(name) + "> closes nothing");
        open_.pop_back();
      } else if (open_.empty() && (name != "timeline" || std::exchange(hasRoot_, true))) {
        return damagedAt(begin, "<" + std::string(name) + "> stands outside");
      } else if (end == TagEnd::Open) {
        open_.push_back(name);
      }
    }
    if (!open_.empty()) return damagedAt(text_.size(), "<" + std::string(open_.back()) + "> is not closed");
    return hasRoot_ ? Outcome() : damagedAt(0, "there is no <timeline>");
  }

 private:
  static Outcome damagedAt(std::size_t at, const std::string& what) {
    return Error{"the document would be damaged at byte " + std::to_string(at) + ": " + what};
  }

  bool take(std::string_view word) {
    if (!text_.substr(at_).starts_with(word)) return false;
    at_ += word.size();
    return true;
  }

  std::string_view takeName() {
    const auto begin = at_;
    at_ = std::min(text_.find_first_of(kBehindName, at_), text_.size());
    return text_.substr(begin, at_ - begin);
  }

  TagEnd takeAttributes() {
    for (;;) {
      at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
      if (take("/>")) return TagEnd::Empty;
      if (take(">")) return TagEnd::Open;
      if (takeName().empty() || !take("=\"")) return TagEnd::Broken;
      at_ = text_.find('"', at_);
      if (at_ == std::string_view::npos) return TagEnd::Broken;
      ++at_;
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<std::string_view> open_;
  bool hasRoot_ = false;
};

}  // namespace

Outcome checkDocument(std::string text) {
  hideQuotesInNames(text);
  return Tags(text).check();
}

Outcome writeDocument(Files& files, const std::string& fileName, const std::string& text) {
  if (auto sound = checkDocument(text); !sound)
    return Error{"cannot write " + fileName + ": " + sound.error().text};
  return writeDurably(files, fileName, text);
}

}  // namespace kvo
