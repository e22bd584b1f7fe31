// Whether a text is a timeline document, and writing one that is.
#pragma once

#include "base/result.h"
#include "ports/files.h"

#include <string>

namespace kvo {

/// Fails, and says where, unless each element is closed in its turn and each attribute is whole, all within
/// one <timeline>. As lenient as the engine: a name may hold "&", "<", ">" and quotes.
Outcome checkDocument(std::string text);

/// Writes a document to `fileName`, in place of what is there. Fails, and writes nothing, when the text is
/// not well formed.
Outcome writeDocument(Files& files, const std::string& fileName, const std::string& text);

}  // namespace kvo
