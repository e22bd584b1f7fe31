// A contact sheet: rows of small frames, one row a timeline, for looking at.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"

#include <string>
#include <vector>

namespace kvo::engine {

struct SheetRow {
  std::string label;
  Timeline timeline;
};

struct SheetLayout {
  int frames = 6;        ///< of each row, evenly from the first of the timeline to the last
  int frameHeight = 90;  ///< pixels
};

/// The bytes of a PNG file. Fails with the line of a timeline that cannot be drawn.
Result<std::string> drawSheet(const std::vector<SheetRow>& rows, const SheetLayout& layout = {});

}  // namespace kvo::engine
