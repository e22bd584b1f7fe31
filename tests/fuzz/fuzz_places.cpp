// Any text as where long clips were left, and as where a window stood: what is taken and written
// comes back the same (but for quotes inside of a name, which end it), and the window is on a screen.
#include "playback/display/screens.h"
#include "program/resume_places.h"

#include <array>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto kept = kvo::ResumePlaces::read(text).text();
  if (kvo::ResumePlaces::read(kept).text() != kept) std::abort();

  const auto place = kvo::rememberedPlace(text);
  if (!place) return 0;
  const auto once = kvo::rememberedPlace(kvo::text(*place));
  if (!once || kvo::rememberedPlace(kvo::text(*once)) != once) std::abort();
  const std::array screens = {kvo::Screen{"DP-1", {0, 0, 1920, 1080}, {0, 30, 1920, 1050}},
                              kvo::Screen{"HDMI-1", {1920, -500, 15360, 8640}, {1920, -500, 15360, 8600}}};
  for (const bool sizable : {false, true}) {
    const auto area = kvo::placeWindow(screens, place, 800, 600, sizable);
    const auto& room = screens[static_cast<std::size_t>(kvo::screenOf(screens, area))].available;
    if (area.left < room.left || area.left + area.width > room.left + room.width || area.top < room.top ||
        area.top + area.height > room.top + room.height)
      std::abort();
  }
  return 0;
}
