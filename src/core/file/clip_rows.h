// The rows of the clip, animation and keyframe sections of a collection file, in file order. The order is the
// format: a reader goes by row number, and new rows are only ever added at a section's end.
#pragma once

#include "core/records/movie.h"
#include "core/records/small_records.h"

#include <span>
#include <string>
#include <string_view>

namespace kvo {

template <class Record>
struct FieldRow {
  std::string_view key;  ///< as written, up to and with the blank behind the equals sign
  std::string (*text)(const Record&);
  void (*take)(Record&, std::string_view);  ///< null for a row that is written and not read back
  bool namesFile = false;                   ///< a name or folder of a file, whose bytes count
};

/// Rows that reading comes back to, counted from 0.
inline constexpr std::size_t kSrcPathRow = 33;
inline constexpr std::size_t kSrcNameRow = 34;
inline constexpr std::size_t kMaskNameRow = 59;
inline constexpr std::size_t kTextureFileRow = 15;

/// A folder or name of a file as it was before the writer put "./" to it.
std::string_view folderFromFile(std::string_view stored);
std::string_view nameFromFile(std::string_view stored);

std::span<const FieldRow<Movie>> movieMainRows();
std::span<const FieldRow<Movie>> movieAudioRows();
std::span<const FieldRow<Movie>> movieLoopingRows();
std::span<const FieldRow<Movie>> movieDisplayRows();
std::span<const FieldRow<AudMovies>> audMovieRows();
std::span<const FieldRow<Keyframe>> keyframeRows();

}  // namespace kvo
