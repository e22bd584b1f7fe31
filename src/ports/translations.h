// The port to the language of the user. Which that is belongs to the process, as its locale does, and is kept
// there: a program that has a language of the user's to offer puts it there once, at its start,
//   std::locale::global(std::locale(std::locale(), translations));
// and any other shows the texts as they stand in the source.
#pragma once

#include <locale>
#include <string>

namespace kvo {

/// What all texts are filed under.
inline constexpr const char* kTextContext = "kvo";

class Translations : public std::locale::facet {
 public:
  static std::locale::id
      id;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): its place in a locale

  /// `text` in the language of the user; as it is where it has no translation.
  [[nodiscard]] virtual std::string of(const char* text) const = 0;
};

}  // namespace kvo
