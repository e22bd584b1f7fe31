// Everything a compile step may touch, handed from step to step; owned by whoever starts the compile.
#pragma once

#include "base/paths.h"
#include "core/records/collection.h"
#include "core/records/settings.h"
#include "core/telling/error_log.h"
#include "editor/compiler/editor_state.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/frame_source.h"
#include "ports/message_boxes.h"

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
