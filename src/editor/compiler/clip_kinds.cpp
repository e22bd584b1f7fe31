#include "editor/compiler/clip_kinds.h"

#include "base/numbers.h"
#include "base/text.h"
#include "core/records/media_kinds.h"

#include <algorithm>

namespace kvo {
namespace {

int numberAtEnd(std::string_view row, std::size_t width) {
  return toLongClamped(ToNumber(trimmed(row.substr(row.size() - std::min(width, row.size())))));
}

}  // namespace

bool isSound(const Compilation& c, const Movie& clip) {
  const auto* kind = mediaKind(clip.MovieName());
  if (kind != nullptr && kind->byNameAlone) return kind->mediaClass == MediaClass::Sound;
  const auto facts = c.streams.facts(clipFile(clip));
  return mediaClass(clip.MovieName(), facts ? &*facts : nullptr) == MediaClass::Sound;
}

bool isMusic(const Compilation& c, const Movie& clip) {
  const auto* kind = mediaKind(clip.MovieName());
  return (kind == nullptr || kind->canBeInMovie) && isSound(c, clip);
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

int GetIndividualClipNo(std::string_view row) {
  const int number = numberAtEnd(row, 4);
  return number == 0 ? 1 : number;
}

int GetEffectClipNo(std::string_view row) { return numberAtEnd(row, 10); }

}  // namespace kvo
