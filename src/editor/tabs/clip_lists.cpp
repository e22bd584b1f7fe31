#include "editor/tabs/clip_lists.h"

#include "base/text.h"
#include "core/records/media_kinds.h"
#include "editor/tabs/clip_checks.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kBlanksOfRow = 150;

// Only a name that leaves it open has its file asked whether there is a picture.
bool joins(const Editing& e, const Movie& clip, ListedClips which) {
  const auto* kind = mediaKind(clip.MovieName());
  if (kind == nullptr || !kind->canBeInMovie) return false;
  if (which == ListedClips::AndMusic) return true;
  if (kind->byNameAlone) return kind->mediaClass != MediaClass::Sound;
  const auto facts = e.streams.facts(clipFile(clip));
  return mediaClass(clip.MovieName(), facts ? &*facts : nullptr) != MediaClass::Sound;
}

}  // namespace

std::vector<std::string> PopulateMovieListBoxes(const Editing& e, ListedClips which) {
  std::vector<std::string> rows;
  for (int number = 1; number <= e.clips().count(); ++number) {
    const auto& clip = e.clips()[number];
    if (joins(e, clip, which))
      rows.push_back(listedName(clip) + blanks(kBlanksOfRow) + std::to_string(number));
  }
  return rows;
}

std::string nameOfRow(const std::string& row) {
  const auto blank = row.rfind(blanks(kBlanksOfRow));
  return blank == std::string::npos ? row : row.substr(0, blank);
}

void chooseClip(ListBox& list, int clipNo) {
  const auto found = std::find_if(list.rows().begin(), list.rows().end(),
                                  [&](const auto& row) { return GetIndividualClipNo(row) == clipNo; });
  list.ListIndex = found == list.rows().end() ? -1 : static_cast<int>(found - list.rows().begin());
}

void SetMovieLstToMainIndex(const Editing& e, ListBox& list) { chooseClip(list, e.collection.icurMov); }

int chosenClip(const ListBox& list) {
  return list.hasChoice() ? GetIndividualClipNo(list.rows()[static_cast<std::size_t>(list.ListIndex)]) : 0;
}

}  // namespace kvo
