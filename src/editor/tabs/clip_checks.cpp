#include "editor/tabs/clip_checks.h"

#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/translated.h"

namespace kvo {

bool IsAudioBeforeVideo(const Editing& e) {
  for (int i = 1; i <= e.clips().count(); ++i) {
    if (extensionOf(e.clips()[i].MovieName()) == "WAV") e.clips()[i].MovieHeight(0);
  }
  const int misplaced = misplacedSound(TimelineClips(e.collection, e.streams));
  if (misplaced == 0) return false;
  e.boxes.show({"KVO - Incorrectly placed Audio track",
                "Audio tracks should be grouped together and placed at the end of the collection !\r\n"
                "Please move the audio track :-\r\n<" +
                    e.clips()[misplaced].MovieName() + ">\r\nto the end of the collection.",
                BoxButtons::Ok, BoxIcon::Warning});
  return true;
}

int firstSound(const Collection& collection) {
  for (int i = 1; i <= collection.MovieList.count(); ++i)
    if (isSoundByName(collection.MovieList[i].MovieName())) return i;
  return 0;
}

std::string missingText(const std::string& name) {
  return translated("%1 has been moved or no longer exists", {name});
}

int GetIndividualClipNo(std::string_view row) {
  const auto text = trimmed(row);
  const int number = toLongClamped(ToNumber(text.substr(text.rfind(' ') + 1)));
  return number == 0 ? 1 : number;
}

}  // namespace kvo
