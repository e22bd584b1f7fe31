// The place in the clip in digits and words: the glass, the position label, and the formats that all windows
// show places, rates and levels in.
#pragma once

#include "playback/player.h"
#include "playback/positions/slider.h"

#include <string>
#include <string_view>

namespace kvo {

/// "Time = 4.16 of 12.40", seconds
std::string positionLabel(double position, double duration);
/// "Frame = 104 of 310"
std::string framePositionLabel(double frame, double frames);

/// The digits of the glass: minutes, seconds, and frames since the clip's start, "00:04:0104".
std::string digitsOfSeconds(double seconds, double framesPerSecond);
/// The same from the number of a frame, which is the third field as it is: "00:04:104".
std::string digitsOfFrame(double frame, double framesPerSecond);

/// How the seven places of the large digits show a number: the mask by its size. Nothing at all, and 0, are
/// seven noughts.
std::string_view digitalFormat(double x);
/// "04.1600"
std::string digitalText(double x);

/// "1.0x", "0.25x"
std::string rateLabel(double rate);
/// "1.0", of an output level
std::string levelLabel(double level);
/// "02m:05"
std::string markerTime(double seconds);

/// What the glass and the label are written by: the clip's own rate, or that of movies for one whose record
/// does not know its frames.
double countedFramesPerSecond(const Movie& clip, const KVO2& settings);

class Displays {
 public:
  struct Parts {
    Player& player;
    const Collection& collection;
    const KVO2& settings;
    SliderState& sliderState;
    DisplayState& glass;
    std::string& label;  ///< the position label; empty hides it
  };
  Displays(const Parts& parts, PositionSlider& slider) : parts_(parts), slider_(slider) {}

  /// Digits by the player's place, in its present unit. Those of a clip without a length go out.
  void UpdateDigital();
  /// Digits of a given place, in the player's present unit.
  void DisplayDigital(double position);
  /// The position label in the player's present unit; "Waiting for media..." for an empty player.
  void showLabel();
  /// Handle, digits and label by the player's place.
  void showPosition();

 private:
  Parts parts_;
  PositionSlider& slider_;
};

}  // namespace kvo
