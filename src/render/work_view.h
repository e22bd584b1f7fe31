// What stands on the page of a render that runs, or has ended.
#pragma once

#include "render/render_state.h"

#include <string>

namespace kvo {

/// Texts are composed.
struct WorkView {
  std::string headline;
  std::string below;
  RenderPie pie;
  std::string pieOf;       ///< what the pie is a part of
  bool isDone = false;     ///< the report: how it ended, in place of what goes on
  bool showsFilm = false;  ///< the movie's clips, and the picture being made
  bool canAbort = false;
  bool canView = false;
  bool operator==(const WorkView&) const = default;
};

/// Which of the four steps from the options to the report a frame is, from 1; 5 when all are done.
[[nodiscard]] int renderStep(RenderFrame frame);

[[nodiscard]] WorkView workView(const RenderState& state);

}  // namespace kvo
