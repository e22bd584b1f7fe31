// Names of files in the text of a timeline document. Nothing is escaped there, so a name may hold quote
// characters; it ends where its tag goes on as such a tag does.
#pragma once

#include <string>

namespace kvo {

inline constexpr char kHiddenQuote = '\x01';  ///< stands for a quote inside a name

/// Puts kHiddenQuote for the quotes inside the names of clips and masks, so that what is left can be taken
/// apart at its quotes. A name of more than 4096 bytes, or one whose end cannot be told, is left alone.
void hideQuotesInNames(std::string& text);

}  // namespace kvo
