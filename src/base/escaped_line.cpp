#include "base/escaped_line.h"

namespace kvo {

std::string escapedLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    if (c == '\\') line += "\\\\";
    if (c == '\n') line += "\\n";
    if (c == '\r') line += "\\r";
    if (c != '\\' && c != '\n' && c != '\r') line += c;
  }
  return line;
}

std::string unescapedLine(std::string_view line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '\\' || i + 1 == line.size()) {
      text += line[i];
      continue;
    }
    const char sign = line[++i];
    text += sign == 'n' ? '\n' : sign == 'r' ? '\r' : sign;
  }
  return text;
}

}  // namespace kvo
