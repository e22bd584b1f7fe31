#include "ports/translations.h"

namespace kvo {

std::locale::id Translations::id;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace kvo
