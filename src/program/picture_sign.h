// The sign that stands for a clip without a picture, as the window draws it.
#pragma once

#include "program/main_window_state.h"

#include <string>

namespace kvo {

struct PictureSign {
  enum class Icon { None, Sound, Address, Trouble };
  enum class Tone { Calm, Stream, Trouble, Lit };  ///< of the text

  Icon icon = Icon::None;  ///< None: the picture is shown
  std::string text{};      ///< English; may have several lines
  Tone tone = Tone::Calm;
  bool stops = false;  ///< a click on it stops what plays
  bool operator==(const PictureSign&) const = default;
};

/// The no-video label stands in the picture's place.
[[nodiscard]] bool showsLabel(const MainWindowState& state);

/// The sign of the clip in hand; without an icon where it has a picture, and where there is no clip.
[[nodiscard]] PictureSign pictureSign(const MainWindowState& state);

}  // namespace kvo
