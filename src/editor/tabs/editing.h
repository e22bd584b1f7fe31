// The open collection in the editor's hands: what its operations read and write. Owned by whoever runs the
// editor; the compiler itself sees none of it.
#pragma once

#include "base/paths.h"
#include "core/records/collection.h"
#include "core/records/settings.h"
#include "core/telling/error_log.h"
#include "editor/tabs/editor_state.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/media_contents.h"
#include "ports/message_boxes.h"

#include <cstdint>
#include <string_view>

namespace kvo {

/// Bytes: a file of the editor's tables that is larger is none of its own.
inline constexpr std::uint64_t kMaxTableFile = 1U << 20U;
/// Of the movie's total times.
inline constexpr std::string_view kTotalMask = "000.000";

struct Editing {
  Collection& collection;
  KVO2& settings;
  EditorState& editor;
  MediaContents& streams;
  Files& files;
  MessageBoxes& boxes;
  const ProgramFolder& folder;
  ErrorLog& log;
  const Clock& clock;

  [[nodiscard]] RecordList<Movie>& clips() const { return collection.MovieList; }
};

}  // namespace kvo
