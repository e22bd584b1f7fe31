// The tab Color: seven levels and sepia of the chosen clip.
#pragma once

#include "editor/tabs/clip_lists.h"
#include "editor/tabs/editor_parts_state.h"
#include "editor/tabs/tab_host.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace kvo {

enum class ColourLevel { Red, Green, Blue, Threshold, Contrast, Brightness, Gamma };
inline constexpr std::size_t kColourLevels = 7;

struct ColorTab {
  ListBox Lst_ColorAdjust;
  bool enabled = false;                          ///< a clip is chosen
  std::array<ClipSlider, kColourLevels> levels;  ///< in whole numbers, as the records have them
  bool Chk_Sepia = false;
  bool isAdjusted = false;  ///< not all is at 0
  std::string whyNot;       ///< no clip is chosen; whole, empty where one is
  std::string resetWhyNot;  ///< there is nothing to reset; likewise
};

/// "Red"
std::string_view colourLevelName(ColourLevel level);

/// The tab is opened, or a change was heard of while it is open.
void enterTab(const Editing& e, ColorTab& tab, TabHost& host);
void followTab(const Editing& e, ColorTab& tab, TabHost& host, bool rebuild);

/// A row of Lst_ColorAdjust, from 0.
void chooseColourClip(const Editing& e, ColorTab& tab, TabHost& host, int row);

void moveColourLevel(const Editing& e, ColorTab& tab, TabHost& host, ColourLevel level, int value);
void tickSepia(const Editing& e, ColorTab& tab, TabHost& host, bool on);
/// All levels at 0, and no sepia.
void resetColours(const Editing& e, ColorTab& tab, TabHost& host);

}  // namespace kvo
