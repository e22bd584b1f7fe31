// The port to whatever steers media players from outside: media keys, applets of the desktop, a phone beside
// it. The program tells what plays, and is asked to do what a user could do in its window.
#pragma once

#include <string>

namespace kvo {

enum class PlayingState { Stopped, Paused, Playing };

/// What is played again at its end.
enum class Repeating { Nothing, Clip, Collection };

/// The clip in hand, for a display beside the program.
struct MediaFacts {
  int track = 0;  ///< another number for each clip that comes in hand; 0 for none
  std::string title;
  std::string artist;
  std::string album;
  double length = 0;  ///< seconds; 0 for none, and while it is not known
  std::string file;   ///< full path, or a web address
  std::string cover;  ///< full path of a picture; empty for none
  bool operator==(const MediaFacts&) const = default;
};

struct MediaTold {
  PlayingState state = PlayingState::Stopped;
  Repeating repeating = Repeating::Nothing;
  double rate = 1;    ///< 1 is normal
  double volume = 1;  ///< 0 to 1, of the amplitude
  bool canGoNext = false;
  bool canGoPrevious = false;
  bool canPlay = false;  ///< and pause
  bool canSeek = false;
  MediaFacts clip;
  bool operator==(const MediaTold&) const = default;
};

/// What the program is asked; all on its own thread. What cannot be done just now is not done.
class MediaRequests {
 public:
  MediaRequests() = default;
  MediaRequests(const MediaRequests&) = delete;
  MediaRequests& operator=(const MediaRequests&) = delete;
  virtual ~MediaRequests() = default;

  virtual void play() = 0;
  virtual void pause() = 0;
  virtual void playPause() = 0;
  /// Play begins at the clip's start again behind it.
  virtual void stop() = 0;
  virtual void next() = 0;
  virtual void previous() = 0;
  /// By this many seconds from where it is; beyond the end it is as next.
  virtual void seek(double seconds) = 0;
  /// To this place, seconds, of the track that bears the number; nothing if that is no longer the one in
  /// hand.
  virtual void setPosition(int track, double seconds) = 0;
  virtual void setVolume(double volume) = 0;
  virtual void setRate(double rate) = 0;
  virtual void setRepeating(Repeating repeating) = 0;
  virtual void raise() = 0;
  virtual void quit() = 0;
  /// Takes a file, by its full path, or a web address as if it had been added, and plays it.
  virtual void open(const std::string& fileOrAddress) = 0;
  /// Where the clip in hand is, seconds.
  [[nodiscard]] virtual double position() const = 0;
};

class MediaControls {
 public:
  MediaControls() = default;
  MediaControls(const MediaControls&) = delete;
  MediaControls& operator=(const MediaControls&) = delete;
  virtual ~MediaControls() = default;

  /// Begins to hear what is asked; `requests` outlives the controls. False, and nothing is heard, where there
  /// is nobody who could ask.
  virtual bool listen(MediaRequests& requests) = 0;
  /// From now on this holds. Only what differs from what was told before goes out.
  virtual void tell(const MediaTold& told) = 0;
  /// The position has changed otherwise than by playing on: seconds.
  virtual void tellJump(double position) = 0;
};

}  // namespace kvo
