// The kinds of movie that are on offer, in the order of their rows. A new kind is a row here.
#pragma once

#include "render/render_state.h"

#include <span>
#include <string_view>

namespace kvo {

/// Texts are whole.
struct OutputKindRow {
  OutputKind kind = OutputKind::Wmv;
  const char* extension = "";  ///< of the file, in capitals; the sign of the row
  const char* icon = "";       ///< of the theme
  const char* title = "";
  const char* brief = "";  ///< on the row: what it is good for
  const char* hint = "";   ///< the same in full, lines joined by CR LF; empty where a list of profiles tells
  bool hasPicture = true;
};

/// Opt_CompressorType.
std::span<const OutputKindRow> outputKinds();

const OutputKindRow& kindRow(OutputKind kind);

/// The kind by its extension, as it is remembered; nothing for another text.
const OutputKindRow* kindNamed(std::string_view extension);

}  // namespace kvo
