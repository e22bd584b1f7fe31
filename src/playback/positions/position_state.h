// What is shown of the place in the clip in hand, as data: slider, glass, the direct positioner, the index,
// the two displays that fade.
#pragma once

#include "base/revised_list.h"
#include "core/records/small_records.h"

#include <optional>
#include <string>
#include <vector>

namespace kvo {

/// The slider of the clip in hand. Places are parts of its line, 0 to 1.
struct SliderState {
  bool handles = false;  ///< there is a length to stand on
  double length = 0;     ///< of the line, seconds
  double markIn = 0;
  double markOut = 1;
  double position = 0;
  bool operator==(const SliderState&) const = default;
};

/// The glass. Its lamps are ticks of the menu: LOOP mnu_Looping, REWIND mnu_RewAtEnd, ALL mnu_LoopCol.
struct DisplayState {
  std::string digits;  ///< "00:04:0104"; empty leaves them unlit
  std::string digitsTip;
  std::string rate;    ///< "1.0x"; empty as the digits
  int volume = 100;    ///< of the clip in hand, per cent
  bool sound = false;  ///< there is a volume to show
  bool muted = false;
  bool operator==(const DisplayState&) const = default;
};

/// The four steps, which a key repeats while it is held.
enum class Step { Rew5, Rew1, Adv1, Adv5 };

/// What the user holds.
struct HeldState {
  bool BlobDragging = false;
  bool MarkInDragging = false;  ///< while either is, an end of the clip is nobody's affair
  bool MarkOutDragging = false;
  std::optional<Step> ButtonHeld;
  bool ShuttleStepping = false;  ///< the wheel of the shuttle goes backwards by large steps
};

/// What the direct positioner does with the place: Opt_Whatto from the top down.
enum class Whatto { PositionDirectly, SetMarkoutPoint, SetMarkInPoint };

/// How far its keys go: Opt_Increment.
enum class Increment { Tenths, Hundredths, Thousandths, Frames };

/// Frm_Position.
struct PositionerState {
  bool visible = false;
  Whatto Opt_Whatto = Whatto::PositionDirectly;
  Increment Opt_Increment = Increment::Hundredths;
  bool framesOnly = false;  ///< the clip counts in frames alone: the three parts of a second are off
  std::string digits;       ///< seven places: "04.1600"
  std::string typed;        ///< what is being typed in their place; empty while nothing is
  std::string unit;         ///< "seconds" or "frames"
  std::string reading;      ///< the place in the other unit: "00104 of 00310"
  std::string refusal;      ///< why the last that was typed was not taken
  bool operator==(const PositionerState&) const = default;
};

/// Frm_Markers: the index of the file in hand.
struct MarkersState {
  bool available = false;  ///< the index key has something to open
  bool visible = false;
  std::string title = "Index";
  std::vector<clsMarkers> markers;
  RevisedList<std::string> list;  ///< a line for each
  int reached = -1;               ///< from 0: the entry in which the position is; -1 for none
};

/// A display that lies over the picture for a while: Frm_Rate, Frm_AudioLev.
struct FadingDisplay {
  bool visible = false;
  bool faded = false;  ///< its time is up: the window fades it out
  std::string title;
  std::string value;
  int lights = 0;  ///< of ten
  bool operator==(const FadingDisplay&) const = default;
};

struct PositionsState {
  HeldState held;
  PositionerState positioner;
  MarkersState markers;
  FadingDisplay rate;   ///< Frm_Rate
  FadingDisplay level;  ///< Frm_AudioLev
};

}  // namespace kvo
