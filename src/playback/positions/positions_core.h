// What all rules of positions work on, owned elsewhere, and the few rules that all of them need.
#pragma once

#include "playback/buttons.h"
#include "playback/clip_kinds.h"
#include "playback/play_timers.h"
#include "playback/positions/displays.h"
#include "playback/positions/section.h"
#include "playback/transport/transport_commands.h"
#include "ports/message_boxes.h"

#include <functional>
#include <string>
#include <string_view>

namespace kvo {

/// The floors above, as the positions see them.
class PositionsHost {
 public:
  PositionsHost() = default;
  PositionsHost(const PositionsHost&) = delete;
  PositionsHost& operator=(const PositionsHost&) = delete;
  virtual ~PositionsHost() = default;

  /// Lets `change` give the clip in hand other values, as an act of the user's that can be undone: "Mark-In
  /// of" names it. Changes of one `series` that follow each other are one act. False when that cannot be now.
  virtual bool edit(std::string_view act, Integer changeCode, const std::function<void(Movie&)>& change,
                    std::string_view series) = 0;
  /// The main window is seen.
  [[nodiscard]] virtual bool windowVisible() const = 0;
  /// The details of the clip in hand as they are shown.
  virtual void Displaymovieinfo() = 0;
  virtual void ShowSliderStuff() = 0;
  /// Ends an animation behind sound; a waiting one goes on with playing.
  virtual void EndAnim() = 0;
};

/// What rooms do that may not be there. What is empty is not offered.
struct PositionDoors {
  std::function<void()> StripWavFromCurrentVideo{};   ///< makes a wave file of the clip in hand
  std::function<void()> remotePanel{};                ///< shows the remote control, or hides it
  std::function<void()> UpdateKeyFramesIfWeHaveTo{};  ///< of the editor
  std::function<void()> AddMoviesm{};                 ///< adds media that the user chooses
};

struct PositionParts {
  EventLoop& loop;
  Player& player;
  PlayTimers& timers;
  Buttons& buttons;
  DisplayModeState& mode;
  PositionsState& state;
  SliderState& sliderState;
  DisplayState& glass;
  std::string& label;  ///< the position label
  KVO2& settings;
  Collection& collection;
  MessageBoxes& boxes;
  TransportCommands& transport;
  PositionsHost& host;
};

/// Change codes of an edit.
inline constexpr Integer kLevelChangeCode = 1;
inline constexpr Integer kMarksChangeCode = 96;
inline constexpr Integer kSpeedChangeCode = 98;

struct PositionsCore : PositionParts {
  explicit PositionsCore(const PositionParts& parts, PositionDoors offered = {})
      : PositionParts(parts), doors(std::move(offered)) {}

  PositionDoors doors;
  DiscPosition* disc = nullptr;
  Section section{player, collection};
  PositionSlider slider{{loop, player, collection, mode, sliderState, state.held}};
  Displays displays{{player, collection, settings, sliderState, glass, label}, slider};

  /// The clip in hand, which is the one in the player; null for none, and between two clips.
  [[nodiscard]] Movie* clip() const { return mode.player.clipWaits ? nullptr : clipInHand(collection); }
  /// The kind of the clip in hand by its name, in capitals; empty for none.
  [[nodiscard]] std::string kind() const;
  [[nodiscard]] bool isTrack() const { return kind() == "CDA"; }
  [[nodiscard]] bool isDVD() const;
  /// There is a clip, and it is a file that plays.
  [[nodiscard]] bool isFileInHand() const;
  [[nodiscard]] bool hasPicture() const { return player.PlayerGetSourceWidth() > 0; }
  [[nodiscard]] bool canSeek() const {
    return !mode.player.clipWaits && !player.PlayerIsEmpty() && player.canSeek();
  }

  /// Goes there and shows it; seconds.
  void seekSeconds(double seconds);
  /// Goes to a frame and shows it.
  void seekFrame(double frame);
};

}  // namespace kvo
