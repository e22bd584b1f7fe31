// Whether a text is a timeline document, for a look at it before it is written.
#pragma once

#include "base/result.h"

#include <string>

namespace kvo {

/// Fails, and says where, unless each element is closed in its turn and each attribute is whole, all within
/// one <timeline>. As lenient as the engine: a name may hold "&", "<", ">" and quotes.
Outcome checkDocument(std::string text);

}  // namespace kvo
