#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace kvo {
namespace {

char upperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char lowerChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool sameLetter(char a, char b) { return upperChar(a) == upperChar(b); }

bool isFigure(char c) { return c >= '0' && c <= '9'; }

// The number that `text` begins with, without leading zeros; `text` goes on behind it.
std::string_view takeDigits(std::string_view& text) {
  const auto length = std::min(text.find_first_not_of("0123456789"), text.size());
  auto digits = text.substr(0, length);
  text.remove_prefix(length);
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

void appendUtf8(std::string& out, std::uint32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0U | (code >> 6U));
    out += static_cast<char>(0x80U | (code & 0x3FU));
  } else {
    out += static_cast<char>(0xE0U | (code >> 12U));
    out += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
    out += static_cast<char>(0x80U | (code & 0x3FU));
  }
}

// Windows-1252 differs from Latin-1 in 0x80 to 0x9F; the five holes keep their own number.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Length of the well-formed UTF-8 sequence at the start of `s` (RFC 3629), 0 when there is none.
std::size_t sequenceLength(std::string_view s) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(s[i]); };
  const auto follows = [&](std::size_t i) { return i < s.size() && (at(i) & 0xC0U) == 0x80U; };
  const unsigned char b = at(0);
  if (b < 0x80) return 1;
  if (b >= 0xC2 && b <= 0xDF) return follows(1) ? 2 : 0;
  if (b >= 0xE0 && b <= 0xEF) {
    if (!follows(1) || !follows(2)) return 0;
    if ((b == 0xE0 && at(1) < 0xA0) || (b == 0xED && at(1) > 0x9F)) return 0;
    return 3;
  }
  if (b >= 0xF0 && b <= 0xF4) {
    if (!follows(1) || !follows(2) || !follows(3)) return 0;
    if ((b == 0xF0 && at(1) < 0x90) || (b == 0xF4 && at(1) > 0x8F)) return 0;
    return 4;
  }
  return 0;
}

bool beginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }

}  // namespace

std::string_view trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string upper(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), upperChar);
  return out;
}

std::string lower(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), lowerChar);
  return out;
}

bool naturalLess(std::string_view a, std::string_view b) {
  auto x = a;
  auto y = b;
  while (!x.empty() && !y.empty()) {
    if (isFigure(x.front()) && isFigure(y.front())) {
      const auto one = takeDigits(x);
      const auto other = takeDigits(y);
      if (one != other) return one.size() != other.size() ? one.size() < other.size() : one < other;
      continue;
    }
    const auto one = static_cast<unsigned char>(lowerChar(x.front()));
    const auto other = static_cast<unsigned char>(lowerChar(y.front()));
    if (one != other) return one < other;
    x.remove_prefix(1);
    y.remove_prefix(1);
  }
  return x.size() != y.size() ? x.size() < y.size() : a < b;
}

bool sameText(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), sameLetter);
}

bool holdsText(std::string_view text, std::string_view part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(), sameLetter) != text.end() ||
         part.empty();
}

bool endsInText(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && sameText(text.substr(text.size() - end.size()), end);
}

std::string replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string out;
  if (from.empty()) return std::string(text);
  for (auto at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
    out.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
  return out.append(text);
}

std::size_t characterCount(std::string_view text) {
  if (!isUtf8(text)) return text.size();
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

std::string_view cutTo(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  if (!isUtf8(text)) return text.substr(0, count);
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    if (beginsCharacter(text[end]) && count-- == 0) break;
  }
  return text.substr(0, end);
}

std::string_view nextLine(std::string_view& text) {
  const auto end = std::min(text.find('\n'), text.size());
  auto line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::string quoted(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 2);
  return out.append(1, '"').append(text).append(1, '"');
}

LineField nextField(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  LineField field;
  std::size_t end = 0;
  if (line.starts_with('"')) {
    const auto close = std::min(line.find('"', 1), line.size());
    field.text = field.toLineEnd = line.substr(1, close - 1);
    end = std::min(line.find(',', close), line.size());
  } else {
    end = std::min(line.find(','), line.size());
    field.text = trimmed(line.substr(0, end));
    field.toLineEnd = line;
  }
  field.isLast = end == line.size();
  line.remove_prefix(std::min(end + 1, line.size()));
  return field;
}

std::vector<std::string> commaFields(std::string_view line) {
  std::vector<std::string> fields;
  for (bool more = true; more;) {
    const auto field = nextField(line);
    fields.emplace_back(field.text);
    more = !field.isLast;
  }
  return fields;
}

std::string blanks(std::size_t count) { return std::string(count, ' '); }

std::string extensionOf(std::string_view name) {
  auto last = name.substr(name.size() - std::min<std::size_t>(3, name.size()));
  if (const auto stop = last.rfind('.'); stop != std::string_view::npos) last.remove_prefix(stop + 1);
  return upper(last);
}

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    // Most text is ASCII: eight bytes at a time.
    std::uint64_t eight = 0;
    if (bytes.size() >= sizeof eight) {
      std::memcpy(&eight, bytes.data(), sizeof eight);
      if ((eight & 0x8080808080808080U) == 0) {
        bytes.remove_prefix(sizeof eight);
        continue;
      }
    }
    const auto length = sequenceLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string lineFromBytes(std::string_view bytes) {
  if (isUtf8(bytes)) return std::string(bytes);
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto b = static_cast<unsigned char>(c);
    appendUtf8(out, b >= 0x80 && b <= 0x9F ? kWindows1252.at(b - 0x80U) : b);
  }
  return out;
}

void dropByteOrderMark(std::string& bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
}

std::string textFromBytes(std::string bytes) {
  dropByteOrderMark(bytes);
  if (isUtf8(bytes)) return bytes;
  std::string out;
  for (std::string_view rest(bytes); !rest.empty();) {
    const auto before = rest;
    nextLine(rest);
    out += lineFromBytes(before.substr(0, before.size() - rest.size()));  // with its end
  }
  return out;
}

}  // namespace kvo
