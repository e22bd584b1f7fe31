// Reads a timeline document: the XML dialect of `<timeline>`, `<group>`, `<track>`, `<clip>`, `<effect>`,
// `<transition>` and `<param>`. Names stand in it as they are, with no escaping at all.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"

#include <string>

namespace kvo::engine {

inline constexpr std::size_t kMaxDocumentBytes = 256U << 20U;
inline constexpr std::size_t kMaxClips = 65536;  ///< picture and sound together
inline constexpr int kMaxSide = 16384;           ///< pixels

/// Fails with one line that names the fault and, where there is one, the clip.
Result<Timeline> readDocument(std::string text);

}  // namespace kvo::engine
