#include "adapters/media/facts_text.h"

#include <array>
#include <charconv>
#include <system_error>

namespace kvo {
namespace {

constexpr char kFactEnd = '\t';
constexpr unsigned kVideo = 1, kAudio = 2, kStill = 4;

template <class Number>
void put(std::string& line, Number number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  line.append(digits.data(), end).push_back(kFactEnd);
}

// The next field; `line` goes on behind it.
std::optional<std::string_view> take(std::string_view& line) {
  const auto end = line.find(kFactEnd);
  if (end == std::string_view::npos) return std::nullopt;
  const auto field = line.substr(0, end);
  line.remove_prefix(end + 1);
  return field;
}

template <class Number>
bool take(std::string_view& line, Number& number) {
  const auto field = take(line);
  if (!field) return false;
  const auto* end = field->data() + field->size();
  const auto read = std::from_chars(field->data(), end, number);
  return read.ec == std::errc() && read.ptr == end;
}

}  // namespace

std::string lineOf(const KnownFile& file) {
  const auto& facts = file.facts;
  if (file.path.find('\n') != std::string::npos) return {};
  std::string line;
  put(line, file.size);
  put(line, file.changed);
  put(line, (facts.hasVideo ? kVideo : 0U) | (facts.hasAudio ? kAudio : 0U) | (facts.isStill ? kStill : 0U));
  for (const int number : {facts.width, facts.height, facts.sampleRate, facts.channels}) put(line, number);
  for (const double number : {facts.frameRate, facts.steadyRate, facts.wholeDuration, facts.duration})
    put(line, number);
  return line.append(facts.codec).append(1, kFactEnd).append(file.path);
}

std::optional<KnownFile> fileIn(std::string_view line) {
  KnownFile file;
  auto& facts = file.facts;
  unsigned kinds = 0;
  const bool isWhole = take(line, file.size) && take(line, file.changed) && take(line, kinds) &&
                       take(line, facts.width) && take(line, facts.height) && take(line, facts.sampleRate) &&
                       take(line, facts.channels) && take(line, facts.frameRate) &&
                       take(line, facts.steadyRate) && take(line, facts.wholeDuration) &&
                       take(line, facts.duration);
  const auto codec = isWhole ? take(line) : std::nullopt;
  if (!codec || line.empty()) return std::nullopt;
  facts.hasVideo = (kinds & kVideo) != 0;
  facts.hasAudio = (kinds & kAudio) != 0;
  facts.isStill = (kinds & kStill) != 0;
  facts.codec = *codec;
  file.path = line;
  return file;
}

}  // namespace kvo
