#include "sketches/sketch_words.h"

#include <algorithm>
#include <charconv>

namespace kvo {
namespace {

constexpr std::string_view kDataWord = "data ";
constexpr std::size_t kBytesOfLine = 16U << 10U;
constexpr std::string_view kDigits = "0123456789abcdef";

}  // namespace

// "picture 1500 loud /v/a.avi"
std::string orderText(const SketchOrder& order) {
  return std::string(order.kind == SketchOrder::Kind::Picture ? "picture " : "peaks ")
      .append(std::to_string(order.milliseconds))
      .append(order.quiet ? " quiet " : " loud ")
      .append(order.path);
}

std::optional<SketchOrder> readOrder(std::string_view text) {
  const auto word = [&] {
    const auto end = std::min(text.find(' '), text.size());
    const auto found = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return found;
  };
  const auto kind = word();
  const auto number = word();
  const auto manner = word();
  SketchOrder order;
  if (kind == "peaks") order.kind = SketchOrder::Kind::Peaks;
  if (manner == "quiet") order.quiet = true;
  const auto* end = number.data() + number.size();
  const auto read = std::from_chars(number.data(), end, order.milliseconds);
  order.path = text;
  const bool fits = (kind == "peaks" || kind == "picture") && (manner == "quiet" || manner == "loud") &&
                    read.ec == std::errc() && read.ptr == end && !order.path.empty();
  return fits ? std::optional(std::move(order)) : std::nullopt;
}

void sketchLines(std::string_view data, const std::function<void(std::string_view)>& line) {
  std::string text;
  for (; !data.empty(); data.remove_prefix(std::min(kBytesOfLine, data.size()))) {
    text = kDataWord;
    for (const char c : data.substr(0, kBytesOfLine)) {
      const auto byte = static_cast<unsigned char>(c);
      text += kDigits[byte >> 4U];
      text += kDigits[byte & 15U];
    }
    line(text);
  }
  line(kSketchEnd);
}

void readSketchLine(std::string_view line, std::string& data) {
  if (!line.starts_with(kDataWord)) return;
  line.remove_prefix(kDataWord.size());
  for (; line.size() >= 2; line.remove_prefix(2)) {
    const auto high = kDigits.find(line[0]);
    const auto low = kDigits.find(line[1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return;
    data += static_cast<char>(high << 4U | low);
  }
}

}  // namespace kvo
