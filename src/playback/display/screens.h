// Where a window goes, as a function of the screens that there are. Lengths are pixels as the desktop counts
// them, over all screens.
#pragma once

#include "playback/geometry.h"
#include "ports/desktop.h"

#include <optional>
#include <span>
#include <string>

namespace kvo {

/// A window's place as it was when it was last closed.
struct RememberedPlace {
  ScreenArea place;
  std::string screen;      ///< name of the screen that had most of it
  ScreenArea screenPlace;  ///< that screen's place then
  bool operator==(const RememberedPlace&) const = default;
};

/// What is kept of a window's place, as one line of text, and back; nothing for a text that is none.
std::string text(const RememberedPlace& place);
std::optional<RememberedPlace> rememberedPlace(std::string_view text);

/// The index of the screen that shows most of `place`; the nearest one when none shows any. -1 without
/// screens.
int screenOf(std::span<const Screen> screens, const ScreenArea& place);

/// What is to be kept of a window that stands at `place`.
RememberedPlace remember(std::span<const Screen> screens, const ScreenArea& place);

/// Where a window of `width` by `height` goes: to its remembered place on the screen of that name, or on the
/// one that is there instead; moved in proportion when the screen has another size now, and moved in as far
/// as it lies outside. Without a remembered place to the middle of the first screen. A window larger than the
/// screen begins at its upper left; with `sizable` it is cut to it, and keeps the size that is remembered.
ScreenArea placeWindow(std::span<const Screen> screens, const std::optional<RememberedPlace>& remembered,
                       int width, int height, bool sizable);

/// The place that covers a screen, in twips and by its own upper left corner: it reaches past the edges by
/// the `border` of the frame, and some more at the right and below.
Place coverScreen(const Screen& screen, Twips twipsPerPixel, Twips border);

}  // namespace kvo
