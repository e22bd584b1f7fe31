// Any text as where long clips were left, and as where a window stood: what is taken and written
// comes back the same (but for quotes inside of a name, which end it), and the window is on a screen.
#include "fuzz/fuzz.h"
#include "playback/display/screens.h"
#include "program/resume_places.h"

#include <array>

void kvo::fuzz(std::string_view bytes) {
  const auto kept = ResumePlaces::read(bytes).text();
  require(ResumePlaces::read(kept).text() == kept);

  const auto place = rememberedPlace(bytes);
  if (!place) return;
  const auto once = rememberedPlace(text(*place));
  require(once && rememberedPlace(text(*once)) == once);
  const std::array screens = {Screen{"DP-1", {0, 0, 1920, 1080}, {0, 30, 1920, 1050}},
                              Screen{"HDMI-1", {1920, -500, 15360, 8640}, {1920, -500, 15360, 8600}}};
  for (const bool sizable : {false, true}) {
    const auto area = placeWindow(screens, place, 800, 600, sizable);
    const auto& room = screens[static_cast<std::size_t>(screenOf(screens, area))].available;
    require(area.left >= room.left && area.left + area.width <= room.left + room.width &&
            area.top >= room.top && area.top + area.height <= room.top + room.height);
  }
}
