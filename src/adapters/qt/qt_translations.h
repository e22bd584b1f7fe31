// The language of the user, by the translators that Qt has.
#pragma once

#include "ports/translations.h"

namespace kvo {

class QtTranslations : public Translations {
 public:
  [[nodiscard]] std::string of(const char* text) const override;
};

}  // namespace kvo
