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
#include "ports/frame_source.h"
#include "ports/message_boxes.h"

namespace kvo {

struct Editing {
  Collection& collection;
  KVO2& settings;
  EditorState& editor;
  FrameSource& streams;
  Files& files;
  MessageBoxes& boxes;
  const ProgramFolder& folder;
  ErrorLog& log;
  const Clock& clock;

  [[nodiscard]] RecordList<Movie>& clips() const { return collection.MovieList; }
};

}  // namespace kvo
