// The line of the slider: where its handles stand for a place in the clip, and which place they stand for.
// Places on the line are twips; a per cent of it is a whole number of them.
#pragma once

#include "core/records/collection.h"
#include "playback/display/display_mode_state.h"
#include "playback/player.h"
#include "playback/positions/position_state.h"
#include "ports/event_loop.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kvo {

/// Twips of one per cent: the nearest whole number, halves to even. So the end of a line of 250 twips is not
/// quite at its 100 per cent.
Twips percentUnit(const SliderPlace& line);

/// Where on the line this per cent, held within 0 to 100, is.
Twips placeOnLine(const SliderPlace& line, double pct);

/// The per cent of a place on the line, held within 0 to 100.
double percentOnLine(const SliderPlace& line, Twips at);

/// Seconds of a text such as "3m 20s". Of an extended track the first character is none of it.
double trackSeconds(std::string_view text, bool extended = false);

/// The disc in the drive as the positions ask it.
class DiscPosition {
 public:
  DiscPosition() = default;
  DiscPosition(const DiscPosition&) = delete;
  DiscPosition& operator=(const DiscPosition&) = delete;
  virtual ~DiscPosition() = default;

  [[nodiscard]] virtual std::string position() const = 0;     ///< in the track: "01m 20s"
  [[nodiscard]] virtual std::string trackLength() const = 0;  ///< likewise
  virtual void step(int steps) = 0;                           ///< on, or back for a negative number
  virtual void toTrack(int direction) = 0;                    ///< the next track, or the one before
};

class PositionSlider {
 public:
  struct Parts {
    EventLoop& loop;
    Player& player;
    const Collection& collection;
    const DisplayModeState& mode;
    SliderState& state;
    const HeldState& held;
  };
  explicit PositionSlider(const Parts& parts);

  /// Null while there is none.
  void disc(const DiscPosition* disc) { disc_ = disc; }

  /// Per cent of the clip at which the player is; 0 while it has no length. Of a track its disc tells.
  [[nodiscard]] double TimeAsPct() const;
  /// Per cent of a given place, in the player's present unit.
  [[nodiscard]] double TimeAsPctUnfmt(double position) const;

  /// Moves a handle: "IN", "OUT", or for any other word that of the position. `pct` is held within 0 to 100.
  /// The position's first move behind loaded() glides there when it leads to the right; while the user holds
  /// its handle it stays under the hand.
  void SetposAsPct(double pct, std::string_view which);
  /// Moves the position with no glide, as under a hand: a part of the line, 0 to 1.
  void hold(double part);

  /// Where the handle of the position stands, in the player's present unit.
  [[nodiscard]] double PosPctToSecs() const;
  /// The same of a mark: 0 Mark-In, any other Mark-Out.
  [[nodiscard]] double PosPctToSecsMark(int which) const;

  /// Another clip is in the player.
  void loaded() { glideDue_ = true; }

  /// Length of the clip in hand in the player's present unit, by its record while the player is empty.
  [[nodiscard]] double duration() const;

 private:
  void glide();

  Parts parts_;
  const DiscPosition* disc_ = nullptr;
  bool glideDue_ = false;
  int glideSteps_ = 0;
  double glideTo_ = 0;  // per cent
  std::unique_ptr<Timer> gliding_;
};

}  // namespace kvo
