// What the skin gives the main window, as data.
#pragma once

#include <cstdint>
#include <string>

namespace kvo {

/// A colour as the settings hold it: red in the low byte, then green, then blue.
using ColorRef = std::uint32_t;

/// The colours that a skin leaves to the program.
inline constexpr ColorRef kDefaultColor = 0xC0C000;

struct SkinState {
  std::string picture;      ///< the file that is painted; empty ahead of the first skin
  std::string mask;         ///< the file of the picture that gives the outline; empty for the whole rectangle
  std::string logoCaption;  ///< reads downward on the spine
  ColorRef logoStart = 0x9C2918;          ///< of the spine, at its top: red 24, green 41, blue 156
  ColorRef LogoColor = 0;                 ///< of the spine at its foot, and of the side line
  ColorRef DisplayColor = kDefaultColor;  ///< of the detail labels and the list
  std::string SkinName = "Def";           ///< the built-in skin in use
  bool SkinBusy = false;                  ///< a skin is being applied: the wait icon is shown
  /// Grows with each change of what is painted behind the buttons: picture, outline, spine. A drawer paints
  /// anew when it differs from what it painted last.
  std::uint64_t revision = 0;
};

}  // namespace kvo
