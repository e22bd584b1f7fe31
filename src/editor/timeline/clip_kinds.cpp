#include "editor/timeline/clip_kinds.h"

#include "base/text.h"

namespace kvo {

bool isOverlayAudio(std::string_view name) {
  const auto kind = extensionOf(name);
  return kind == "WMA" || kind == "MP3" || kind == "WAV" || kind == "AIF" || kind == "IFF";
}

bool isCut(std::string_view transType) {
  return trimmed(transType).empty() || sameText(trimmed(transType), "CUT");
}

}  // namespace kvo
