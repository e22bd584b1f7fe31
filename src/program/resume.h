// Offers to go on where a long clip was left, and notes where one is left. Never a question: an offer stands
// on the picture for a while.
#pragma once

#include "core/records/collection.h"
#include "core/records/settings.h"
#include "playback/player.h"
#include "ports/event_loop.h"
#include "ports/files.h"
#include "program/main_window_state.h"
#include "program/resume_places.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace kvo {

class Resume {
 public:
  struct Parts {
    MainWindowState& window;
    const Collection& collection;
    const KVO2& settings;
    Player& player;
    EventLoop& loop;
    Files& files;
    /// Full path of the user's file; its folder is made when it is missing. Empty: nothing is kept or
    /// offered.
    std::string placesFile;
  };
  explicit Resume(Parts parts);

  /// The state is whole: another clip may have come in hand, or play may have moved on.
  void settled();
  /// Takes the offer: plays on from there. Nothing without one.
  void take();
  /// The program ends: notes where the clip in hand is left.
  void leave() { note(); }

 private:
  void begin();
  void note();
  void endOffer();
  [[nodiscard]] const Movie* clipInPlayer() const;
  [[nodiscard]] std::optional<ResumePlaces> places() const;
  [[nodiscard]] bool looksAfter() const { return section_.second > 0; }
  [[nodiscard]] bool worthNoting(double seconds) const;

  Parts parts_;
  std::string path_;  // of the clip in the player
  Long clip_ = 0;     // and its KeyID; 0 for none
  FileFacts file_;
  std::pair<double, double> section_;  // that plays, seconds; nothing for a clip that is not long
  double position_ = 0;                // where it was last
  double noted_ = 0;                   // where it was when that was written down
  std::optional<double> offered_;
  std::unique_ptr<Timer> offerEnds_;
};

}  // namespace kvo
