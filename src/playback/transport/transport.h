// Makes a collection play: loads the clip that the list selects on the surface that is right for it, carries
// out play, pause and stop, and has its parts decide when a clip has ended and what follows. It writes a
// TransportState and never touches a window; what it needs of the rest it asks of a TransportHost.
#pragma once

#include "playback/transport/monitor.h"
#include "playback/transport/sequencer.h"
#include "playback/transport/stream_opening.h"
#include "playback/transport/transport_commands.h"
#include "playback/transport/transport_core.h"

#include <cstdint>
#include <memory>

namespace kvo {

/// How the play key was pressed.
struct PlayPress {
  bool right = false;  ///< by the right button
  bool shift = false;
};

enum class PictureButton { Left, Middle, Right };

class Transport : public TransportCommands {
 public:
  /// Takes the ticks of Timer1, Timer6 and StillTimer, and hears the ends of both engines.
  explicit Transport(const TransportParts& parts);

  /// Who takes part from now on.
  void guests(const TransportGuests& guests) { core_.guests = guests; }

  /// Numbers that are not there change nothing. Whether the clip plays at once depends on what it is, and on
  /// IsPaused.
  void PreviewMovie(int index) override;
  /// The last clip has gone: player and still are empty.
  void empty();
  /// A command is to work on the collection: the player is stopped, and nothing follows by itself.
  void halt();

  void NextMovie() override;
  void Img_Play_Click() override;
  void Lbl_PlayGraphic_Click() override { playPressed({}); }
  void Lbl_PauseGraphic_Click() override;
  void Image8_Click() override;
  /// The play key: with the right button it gives a moving picture its own rate back, with Shift it plays
  /// backwards, frame by frame and from the first on at the last, until anything else plays, stops or seeks.
  /// A still that nothing follows by itself gives way to the next clip.
  void playPressed(const PlayPress& press);
  /// The first clip plays, and what follows it, whatever was in hand or paused.
  void playAll();
  /// A click on the picture.
  void pictureClicked(PictureButton button);

  /// The tick of mnu_Looping, and its setting LoopPreviews, are others now: what loops begins to play.
  void mnu_Looping_Click();
  /// Another of the ticks that say what follows is.
  void orderChanged();

 private:
  bool loadClip(int number);
  bool follow(int number);
  bool leaveStill(const Movie& clip);
  void playFrom(int number);
  void letGo();
  void load(int number, const Movie& clip);
  void showStill();
  void ShowWeb(const Movie& clip);
  void showDisc(int number);
  void showElsewhere(const Movie& clip);
  void playFile(int number);
  void ShowNormalWMP(int number);
  void WaitForValidDuration();
  void fileLoaded();
  void played(int number);
  void settle();
  void tellOfFile(const Movie& clip);
  void takeSourceSize(Movie& clip);
  void autoRewind();
  void openNextAhead();
  void ended(bool graph);
  void stillTick();
  void tellAnimation();
  void tellWave();
  void playLoaded();
  void togglePlay();
  void stopLoaded();
  bool playBackwards(const Movie& clip);
  void stepBack();

  TransportCore core_;
  Sequencer sequencer_;
  StreamOpening stream_;
  Monitor monitor_;
  std::unique_ptr<Timer> duration_;  // until the player knows how long the clip is
  int durationLooks_ = 0;
  bool follows_ = false;     // the load that comes is not by a choice of the user's
  bool stepsBack_ = false;   // it is the reverse play that drives the player
  std::uint64_t loads_ = 0;  // the last one counts, as opening a file lets events through
  std::uint64_t acts_ = 0;   // loads, and what has driven the player: an end ahead of one is none any more
  std::shared_ptr<bool> lives_ = std::make_shared<bool>(true);
};

}  // namespace kvo
