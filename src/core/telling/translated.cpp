#include "core/telling/translated.h"

#include "ports/translations.h"

namespace kvo {

std::string translated(const char* pattern, std::initializer_list<std::string_view> parts) {
  const std::locale process;
  const std::string text =
      std::has_facet<Translations>(process) ? std::use_facet<Translations>(process).of(pattern) : pattern;
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto part =
        text[i] == '%' && i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '1') : parts.size();
    if (part < parts.size()) {
      out += parts.begin()[part];
      ++i;
    } else {
      out += text[i];
    }
  }
  return out;
}

}  // namespace kvo
