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

std::string_view stretchModeText(Integer mode) {
  switch (mode) {
    case 1:
      return "preserveaspectratio";
    case 2:
      return "preserveaAspectrationoletterbox";
    case 3:
      return "crop";
    default:
      return "stretch";
  }
}

}  // namespace kvo
