// What plays, told to whatever steers media players from outside, and what is asked from there, turned into
// commands. Whoever draws the window calls settled() behind it: the state is whole then.
#pragma once

#include "core/records/collection.h"
#include "playback/player.h"
#include "playback/transport/transport_commands.h"
#include "ports/event_loop.h"
#include "ports/files.h"
#include "ports/media_controls.h"
#include "program/menus.h"

#include <chrono>
#include <functional>
#include <string>

namespace kvo {

/// Knows where the position is to be if all goes on as it is, and so sees a jump.
class JumpWatch {
 public:
  /// The position at this time. True when it cannot have come there from the one before by playing at `rate`,
  /// or by standing: `plays` says which from now on. A position that stays for a while is none: it is that of
  /// the picture that is shown, and pictures may be long.
  bool sees(std::chrono::milliseconds now, double position, bool plays, double rate);

 private:
  std::chrono::milliseconds then_{0};  // when `expected_` held
  double expected_ = 0;                // where it was to be at that time
  double position_ = 0;                // as it was told last
  double rate_ = 0;                    // 0 while it stands
};

/// The picture that stands for a clip: a still's own, or one beside a sound that is named as covers are.
/// Empty for none.
std::string coverOf(const Files& files, const Movie& clip);

class OutsideControls : public MediaRequests {
 public:
  struct Parts {
    MainWindowState& window;
    const Collection& collection;
    const Files& files;
    Player& player;
    EventLoop& loop;
    TransportCommands& transport;
    ListCommands& list;
    MainMenu& menu;
    ShutDown& shutDown;
    Mailbox& mailbox;
    std::function<void(double rate)> setRate;
  };

  OutsideControls(Parts parts, MediaControls& controls) : parts_(std::move(parts)), controls_(controls) {}

  /// Begins to tell and to hear.
  void begin();
  void settled();

  void play() override;
  void pause() override;
  void playPause() override;
  void stop() override;
  void next() override;
  void previous() override;
  void seek(double seconds) override;
  void setPosition(int track, double seconds) override;
  void setVolume(double volume) override;
  void setRate(double rate) override;
  void setRepeating(Repeating repeating) override;
  void raise() override;
  void quit() override;
  void open(const std::string& fileOrAddress) override;
  [[nodiscard]] double position() const override;

 private:
  void later(std::function<void()> command);
  [[nodiscard]] MediaTold toTell() const;
  void takeClip();
  void goTo(double seconds);

  Parts parts_;
  MediaControls& controls_;
  bool listens_ = false;
  bool stopped_ = false;  // by a stop from outside; else what stands is paused
  MediaTold told_;
  MediaFacts clip_;  // the one in hand
  int clipNumber_ = 0;
  int tracks_ = 0;  // so many have been in hand
  JumpWatch jumps_;
};

}  // namespace kvo
