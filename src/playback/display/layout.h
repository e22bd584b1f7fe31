// The rule that places a clip, as a function: modes, clip and sizes in, a layout out. Whoever asks carries
// the layout out.
#pragma once

#include "playback/display/clip_facts.h"
#include "playback/geometry.h"

#include <optional>
#include <string>

namespace kvo {

inline constexpr Twips kTwipsPerPixel = 15;  ///< at interface size 1
/// Twips of the normal face.
inline constexpr Twips kFaceWidth = 8430;
inline constexpr Twips kFaceHeight = 6150;
inline constexpr Twips kBoxWidth = 6660;  ///< a larger player is cut down to the box
inline constexpr Twips kBoxHeight = 3879;
/// Free Zoom where the clip's own size does not decide.
inline constexpr Twips kZoomWidth = 7590;
inline constexpr Twips kZoomHeight = 6130;
inline constexpr Twips kToolbarHeight = 690;

struct LayoutModes {
  bool IsMiniMode = false;
  bool IsFullScreenWindow = false;
  bool AllDetOff = false;
  bool ShowFillist = true;
  bool editMode = false;
  bool lockAspect = false;
  bool clipFollows = false;  ///< by itself: a window with room for a picture stays as it is
  bool CDAutoAnim = false;
};

struct LayoutSizes {
  Twips twipsPerPixel = 15;
  Place window;                    ///< the inside; left and top do not matter
  Place nameLabel;                 ///< the picture hangs below it, in the middle of it with details
  Place player;                    ///< as it is before
  Twips toolbar = kToolbarHeight;  ///< what toolbar and slider leave to the player below them begins here
  Twips roomWidth = 0;             ///< the most that the screen has for the window; 0: there is no limit
  Twips roomHeight = 0;
};

enum class TimerAct { Leave, Start, Stop };

struct Layout {
  // Modes as they are now
  bool AllDetOff = false;
  bool ShowFillist = true;

  // Which panels are on
  bool details = false;  ///< frames of clip and collection
  bool Lbl_Pos = false;
  bool Fillist = false;
  bool nameLabel = false;
  std::optional<bool> Label2{};    ///< shown or hidden; nothing: as it is
  std::optional<bool> Label2On{};  ///< "Anim ON"
  TimerAct Timer4 = TimerAct::Leave;
  std::optional<std::string> logoCaption{};  ///< nothing: the program's name
  bool noVideo = false;                      ///< the panel that says so stands in the picture's place

  // Where things go
  Place player;
  bool playerVisible = false;
  std::optional<Place> window{};  ///< the size that the window is to take, which is no resize by the user
  std::optional<Place> streamInfo{};
  Twips listHeight = 0;  ///< 0: as it is
  bool operator==(const Layout&) const = default;
};

Layout PositionAndSize(const LayoutModes& modes, const ClipFacts& clip, const LayoutSizes& sizes);

/// The size of the window that shows a clip's picture, moving or still, at `percent` of its own size below
/// and above this much else; as far as the screen has room, the shape of the picture kept. Without a picture
/// 320 by 240 pixels.
Place windowOf(const ClipFacts& clip, const LayoutSizes& sizes, Twips extraHeight, int percent = 100);

/// Where the player goes in a Free Zoom window: over all that the toolbar leaves. On the Corona engine it has
/// the source's shape, but for its width.
Place fullPlayer(const LayoutModes& modes, const ClipFacts& clip, const LayoutSizes& sizes);

/// Where the player goes when it has `percent` of its source's size: in the middle of where it is else, as
/// far as that has room; all of that for a clip without picture.
Place playerAt(int percent, const LayoutModes& modes, const ClipFacts& clip, const LayoutSizes& sizes);

/// The largest rectangle of the source's shape in the middle of `box`; the box for a clip without picture.
Place coronaAspect(const ClipFacts& clip, const Place& box);

/// A layout on one line, for a test or a log.
std::string text(const Layout& layout);

}  // namespace kvo
