// The rows of the clip, animation and keyframe sections of a collection file, in file order. The order is the
// format: a reader goes by row number, and new rows are only ever added at a section's end.
#pragma once

#include "core/movie.h"
#include "core/small_records.h"

#include <span>
#include <string>
#include <string_view>

namespace kvo {

template <class Record>
struct FieldRow {
  std::string_view key;  ///< as written, up to and with the blank behind the equals sign
  std::string (*text)(const Record&);
  void (*take)(Record&, std::string_view);  ///< null for a row that is written and not read back
};

std::span<const FieldRow<Movie>> movieMainRows();
std::span<const FieldRow<Movie>> movieAudioRows();
std::span<const FieldRow<Movie>> movieLoopingRows();
std::span<const FieldRow<Movie>> movieDisplayRows();
std::span<const FieldRow<AudMovies>> audMovieRows();
std::span<const FieldRow<Keyframe>> keyframeRows();

}  // namespace kvo
