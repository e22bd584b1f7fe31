// Everything a compile step may touch, handed from step to step; owned by whoever starts the compile.
#pragma once

#include "base/paths.h"
#include "core/collection.h"
#include "core/error_log.h"
#include "core/settings.h"
#include "editor/timeline/editor_state.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/frame_source.h"
#include "platform/message_boxes.h"

namespace kvo {

struct Compilation {
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
