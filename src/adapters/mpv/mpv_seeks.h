// The way of a core to a wanted picture: one seek at a time, and the last wish counts. The core seeks to the
// first picture at a time or behind it; wanted is the one that stands there. Data and rules, without the
// core. For this room only.
#pragma once

#include <cstddef>
#include <optional>

namespace kvo {

/// What the core is to be told next. Times are seconds from the first picture.
struct MpvOrder {
  enum class Kind { None, Seek, StepOn, StepBack };
  Kind kind = Kind::None;
  double time = 0;   ///< of Seek: the first picture that begins here or behind is shown
  double ahead = 0;  ///< seconds ahead of there from which the core looks for a key picture
};

class MpvSeeks {
 public:
  /// Nothing is wanted or on its way, of a file of another rate: see setRate.
  void reset() { *this = {}; }
  /// Pictures a second; 0 where they do not come at a constant rate.
  void setRate(double steadyRate) { rate_ = steadyRate; }

  /// The picture that stands at `seconds` is wanted.
  void want(double seconds);
  /// The core does not find key pictures exactly: it starts well ahead of what is wanted.
  void reachBack() { reach_ = 1; }
  /// The picture so many further than what is shown when all wishes before are carried out.
  void wantStep(int direction) { steps_ += direction; }
  /// True when the picture at `seconds` is the one that begins at `shown`.
  [[nodiscard]] bool isShown(double seconds, double shown) const;

  /// What is to be done now, with the picture shown that begins at `shown`; nothing while the core is at
  /// something. What is given is on its way then.
  MpvOrder next(double shown);
  /// The core has come to the picture that begins at `shown`.
  void arrived(double shown);

  /// True from a wish until its picture is there.
  [[nodiscard]] bool busy() const { return onItsWay_ || wish_ || steps_ != 0 || back_; }
  /// A step to the next picture is on its way.
  [[nodiscard]] bool stepsOn() const { return stepsOn_; }
  /// The place that is wanted, while it is not there: the begin of its picture, where the rate tells that.
  [[nodiscard]] std::optional<double> wanted() const;

 private:
  [[nodiscard]] double beginOf(double seconds) const;
  [[nodiscard]] double askFor(double seconds) const;
  [[nodiscard]] bool missed(double shown) const;

  double rate_ = 0;
  std::optional<double> wish_;    // not on its way yet
  std::optional<double> target_;  // the wish that is on its way
  int steps_ = 0;
  bool onItsWay_ = false;
  bool stepsOn_ = false;
  bool back_ = false;           // what came lies behind the wanted place
  int tries_ = 0;               // to come back to it
  std::optional<double> from_;  // where a step back began
  std::size_t reach_ = 0;       // which of the distances ahead does for this file
};

}  // namespace kvo
