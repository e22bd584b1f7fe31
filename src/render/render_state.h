// What the pages of a render show, as plain data: the options, the pre-render, the render and the report.
#pragma once

#include "vocabulary/movie_files.h"

#include <string>
#include <vector>

namespace kvo {

/// The frames, in the order in which they are seen.
enum class RenderFrame {
  None,
  Options,    ///< BuildFileRenderFrame
  Estimate,   ///< BuildEstimateFrame: "Pre-Render - Phase 1"
  Rendering,  ///< BuildRenderingFrame: "Rendering - Phase 2"
  Report,
};

/// Colours of a pie, red in the lowest byte.
inline constexpr int kPieBlue = 0xFF0000;
inline constexpr int kPieGreen = 65280;
inline constexpr int kPieYellow = 65535;

struct RenderPie {
  double percent = 0;  ///< 0 to 100
  int colour = kPieBlue;
  bool operator==(const RenderPie&) const = default;
};

struct RenderState {
  RenderFrame frame = RenderFrame::None;
  bool isRunning = false;  ///< from the question for a name on; KVOBut_AbortRender is enabled meanwhile
  bool RenderAborted = false;

  // The options
  OutputKind kind = OutputKind::Mp4;        ///< until another is chosen
  std::vector<std::string> Lst_WMVFormats;  ///< of a Windows Media kind, else empty
  int profileRow = -1;                      ///< in that list; -1 for none
  bool Chk_UseCodecOutputDimensions = true;
  std::string profileDescription;  ///< lines joined by CR LF

  // While it runs
  std::string caption;  ///< of the window
  std::string heading;
  std::string summary;      ///< what is being made
  std::string countdown;    ///< "About 00.01.30(s) Remaining"
  std::string sizeLabel;    ///< estimated, at the end the file's own
  std::string completed;    ///< how long it took
  std::string progress;     ///< time left and size so far, by what the engine tells
  double movieSeconds = 0;  ///< of the movie that are made; the picture being made stands there
  RenderPie pie;
  double RenderSeconds = 0;     ///< that the render is going to take
  double RemainingSeconds = 0;  ///< of the countdown
  int RenderHours = 0;
  int RenderMinutes = 0;
  int RenderSecs = 0;
  std::vector<std::string> notes;  ///< what the engine could not decode, or not make as asked
  bool operator==(const RenderState&) const = default;
};

}  // namespace kvo
