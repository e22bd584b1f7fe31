// What the pages of a render show, as plain data: the options, the pre-render, the render and the report.
#pragma once

#include "ports/media_contents.h"
#include "vocabulary/movie_files.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

/// The frames, in the order in which they are seen.
enum class RenderFrame {
  None,
  Options,    ///< BuildFileRenderFrame
  PicInPic,   ///< "Render New Picture in Picture Clip", in place of the options
  Estimate,   ///< BuildEstimateFrame: "Pre-Render - Phase 1"
  Rendering,  ///< BuildRenderingFrame: "Rendering - Phase 2"
  Report,
};

/// Colours of a pie, red in the lowest byte.
inline constexpr int kPieBlue = 0xFF0000;
inline constexpr int kPieGreen = 65280;
inline constexpr int kPieYellow = 65535;
inline constexpr int kPieRed = 255;

struct RenderPie {
  double percent = 0;  ///< 0 to 100
  int colour = kPieBlue;
  bool operator==(const RenderPie&) const = default;
};

/// A line of what is told of a movie: its name is whole, its value composed.
struct RenderFact {
  std::string name;
  std::string value;
  bool operator==(const RenderFact&) const = default;
};

/// What the movie is made of, in its order. Seconds of the movie.
struct FilmCut {
  int clip = 0;  ///< its number in the collection
  double from = 0;
  double to = 0;
  bool operator==(const FilmCut&) const = default;
};

/// A choice of what the movie is made for.
struct MadeForRow {
  std::string preset;  ///< name of a MoviePreset; empty for what the Create page says
  std::string title;   ///< whole
  std::string size;    ///< of the picture at most, "1280 x 720"
  bool operator==(const MadeForRow&) const = default;
};

/// Megabytes that a movie can be wished to keep within.
inline constexpr int kLeastMegabytes = 1;
inline constexpr int kMostMegabytes = 4000;

/// The two clips that become one.
struct RenderPair {
  int backdrop = 0;  ///< clip numbers
  int overlay = 0;
  int position = 0;   ///< of the overlay, 1 to 15
  int opacity = 100;  ///< of the overlay at the most, per cent
  bool operator==(const RenderPair&) const = default;
};

struct RenderState {
  RenderFrame frame = RenderFrame::None;
  bool isRunning = false;  ///< behind the question for a name
  bool canAbort = false;   ///< KVOBut_AbortRender is enabled: see MovieRender::canAbort
  bool RenderAborted = false;

  // The options
  OutputKind kind = OutputKind::Mp4;        ///< until another is chosen
  std::vector<std::string> Lst_WMVFormats;  ///< of a Windows Media kind, else empty
  int profileRow = -1;                      ///< in that list; -1 for none
  bool Chk_UseCodecOutputDimensions = true;
  std::string profileDescription;  ///< lines joined by CR LF
  std::string codecSize;           ///< of the profile in hand, "320x240"; empty where it has none of its own
  std::vector<MadeForRow> Lst_MadeFor;  ///< of a kind that presets make, else empty
  int madeForRow = -1;                  ///< in that list; -1 for none
  std::string madeForText;              ///< lines joined by CR LF
  bool hasWishedSize = false;           ///< the chosen one keeps within wishedMegabytes
  int wishedMegabytes = 20;             ///< of 1,000,000 bytes
  std::string caution;       ///< why the movie cannot be made like this, or becomes another; empty for none
  bool canMake = true;       ///< KVOBut_WriteMovie and the queue's key are enabled
  bool hasHardware = false;  ///< an encoder of a device works here
  bool offersHardware = false;  ///< and can make the movie of these options
  bool Chk_Hardware = false;    ///< it does, where it can

  // While it runs
  std::string caption;                   ///< of the window
  std::string heading = "Create Movie";  ///< whole
  std::string summary;                   ///< what is being made
  std::string countdown;                 ///< "About 00.01.30(s) Remaining"
  std::string sizeLabel;                 ///< estimated, at the end the file's own
  std::string completed;                 ///< how long it took
  std::string progress;                  ///< share, time left and size so far, by what the engine tells
  std::vector<RenderFact> facts;
  std::vector<FilmCut> film;
  double filmLength = 0;                            ///< seconds
  std::optional<RenderPair> pair;                   ///< of a picture-in-picture
  std::optional<std::pair<double, double>> sample;  ///< the part that is rendered first, seconds
  double movieSeconds = 0;  ///< where in the movie the engine is; the picture being made stands there
  std::shared_ptr<const std::string> document;  ///< the timeline of what is made; null for none
  std::shared_ptr<const FramePicture> picture;  ///< of about that place; null until there is one
  bool canView = false;                         ///< of the report: the movie is not in the collection yet
  RenderPie pie;
  std::optional<double> reached;  ///< percent that were made, where the engine has ended ahead of the end
  double RenderSeconds = 0;       ///< that the render is going to take
  double RemainingSeconds = 0;    ///< of the countdown
  int RenderHours = 0;
  int RenderMinutes = 0;
  int RenderSecs = 0;
  std::vector<std::string> notes;  ///< what the engine could not decode, or not make as asked
  bool operator==(const RenderState&) const = default;
};

}  // namespace kvo
