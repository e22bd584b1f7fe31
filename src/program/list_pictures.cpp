#include "program/list_pictures.h"

#include "program/clip_texts.h"

#include <algorithm>

namespace kvo {
namespace {

// Films begin with black more often than not.
constexpr double kBehindMarkIn = 1;        // second, or
constexpr double kBehindMarkInPart = 0.1;  // of the section where that is less
// Peaks of what is longer are made when somebody wants them: the whole file has to be read.
constexpr double kPreparedSeconds = 1200;

bool hasSketch(const Movie& clip) {
  const auto kind = kindOf(clip);
  return kind == ClipKind::Video || kind == ClipKind::Still;
}

double sketchPlace(const Movie& clip) {
  const auto length = playedLength(clip);
  if (!length) return 0;
  const auto [begin, end] = sectionOf(clip, *length);
  return begin + std::min(kBehindMarkIn, std::max(end - begin, 0.0) * kBehindMarkInPart);
}

}  // namespace

Sketches::Picture ListPictures::of(int row) const {
  const auto& clips = parts_.collection.MovieList;
  const auto& rows = parts_.list.Fillist.rows();
  const auto index = static_cast<std::size_t>(row);
  if (index >= rows.size() || row >= clips.count() || rows[index].missing) return nullptr;
  const auto& clip = clips[row + 1];
  if (!hasSketch(clip)) return nullptr;
  return parts_.sketches.picture(clipFile(clip), sketchPlace(clip)).value_or(nullptr);
}

void ListPictures::joined(int number) const {
  const auto& clip = parts_.collection.MovieList[number];
  const auto length = playedLength(clip);
  if (hasSketch(clip)) parts_.sketches.preparePicture(clipFile(clip), sketchPlace(clip));
  if (length && *length <= kPreparedSeconds && hasSound(clip)) parts_.sketches.preparePeaks(clipFile(clip));
}

}  // namespace kvo
