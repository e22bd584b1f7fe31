// The kinds of movie that are on offer, in the order of their rows. A new kind is a row here.
#pragma once

#include "vocabulary/movie_files.h"

#include <span>

namespace kvo {

/// Texts are whole.
struct OutputKindRow {
  OutputKind kind = OutputKind::Wmv;
  const char* icon = "";  ///< of the theme
  const char* title = "";
  const char* brief = "";  ///< on the row: what it is good for
  const char* hint = "";   ///< the same in full, lines joined by CR LF; empty where a list of profiles tells
};

/// Opt_CompressorType.
std::span<const OutputKindRow> outputKinds();

const OutputKindRow& kindRow(OutputKind kind);

}  // namespace kvo
