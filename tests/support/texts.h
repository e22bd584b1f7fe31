// Texts that tests compare, and what they hold.
#pragma once

#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace kvo::test {

/// The values with blanks between them: 1 and 0 for true and false, six digits of a number. A state as one
/// line.
template <class... Values>
std::string lineOf(const Values&... values) {
  std::ostringstream line;
  const char* between = "";
  ((line << std::exchange(between, " ") << values), ...);
  return line.str();
}

inline bool holds(std::string_view text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

inline std::size_t countOf(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

}  // namespace kvo::test
