// The player as everything else sees it: one face, whatever plays behind it. Places are in twips of the
// window, sizes of a source in pixels. Nothing here fails aloud: what cannot be done leaves the player as it
// is.
#pragma once

#include "core/records/field_types.h"
#include "playback/geometry.h"
#include "ports/control_engine.h"

#include <functional>
#include <string>
#include <vector>

namespace kvo {

/// A number of plays that stands for no end.
inline constexpr int kForEver = 30000;

/// What the player shows, as data: the window draws it.
struct PlayerState {
  Place place;           ///< the picture is drawn fitted into what the window has of it, its shape kept
  bool visible = false;  ///< parked players may be visible: see Place::parked
  std::string path;  ///< full path of the clip in the player, of which the first frame is shown; else empty
  int clip = 0;      ///< its number; 0 for none
  int sourceWidth = 0;      ///< pixels; 0 for a clip without picture
  int sourceHeight = 0;     ///< pixels
  bool fullScreen = false;  ///< the clip's picture covers the screen; of the clip in the player alone
  bool IsPlaying = false;
  bool IsPaused = false;   ///< by the user or between two clips
  bool clipWaits = false;  ///< the list has gone on to a clip that is not loaded yet
  /// A clip is in it, and is not hidden.
  [[nodiscard]] bool shows() const { return visible && !path.empty(); }
  bool operator==(const PlayerState&) const = default;
};

/// What positions are counted in.
enum class DisplayMode { Seconds = 0, Frames = 1 };

/// A place in a clip, as both of its units have it.
struct SeenFrame {
  double seconds = 0;
  Long frame = 0;
};

/// Why the player took the engine that it took.
enum class EngineRoute { NotForced = 0, AviByCorona = 1, MpegOrDvd = 2 };

/// How an address comes in, and what it tells of itself.
struct StreamReport {
  EngineOpening opening = EngineOpening::Closed;
  int buffered = 0;   ///< 0 to 100 per cent of what is needed to go on
  int bandwidth = 0;  ///< bits a second; 0 when it does not tell
  std::string title;
  std::string author;
};

class Player {
 public:
  Player() = default;
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  virtual ~Player() = default;

  // Loading

  /// Puts clip `index` of the collection, whose full path is `path`, into the player, on the engine that is
  /// right for it; what that tells of the clip goes into its record. The player takes the size of the source.
  /// A file that cannot be opened leaves the player empty.
  virtual EngineRoute PlayerSetFilename(const std::string& path, int index) = 0;
  /// Takes the clip out of the player.
  virtual void PlayerClear() = 0;
  /// What came over the net is open now, and only now tells its size and whether it has a picture.
  virtual void streamOpened() = 0;
  /// Empties and parks the player whatever it is at: both engines.
  virtual void Med_previewClear() = 0;
  /// Lets go of the graph of the clip in hand.
  virtual void CoronaClear() = 0;
  /// True while no clip is loaded that could be played.
  [[nodiscard]] virtual bool PlayerIsEmpty() const = 0;
  /// Full path of the clip in hand, or empty.
  [[nodiscard]] virtual std::string PlayerGetFileName() const = 0;
  /// Why the last clip could not be opened, in a line that names its file; empty where it could, or was taken
  /// out since.
  [[nodiscard]] virtual std::string PlayerGetErrorDescription() const { return {}; }
  /// Which of the two engines the clip is on: true for a graph of its own.
  [[nodiscard]] virtual bool UsingCorona() const = 0;
  /// Of an address in the player.
  [[nodiscard]] virtual StreamReport streamReport() const = 0;
  /// What it, or the file in the player, tells of itself beyond that.
  [[nodiscard]] virtual StreamDetails streamDetails() const { return {}; }
  /// Gets clip `index` ready in the background, where it is a file that plays; else lets go of what was
  /// ready.
  virtual void openAhead(int index) = 0;

  // Playing

  /// Plays on from where it stands; from Mark-In when that is the end.
  virtual void GlobalMediaPlay() = 0;
  virtual void PlayerPause() = 0;
  virtual void PlayerStop() = 0;
  [[nodiscard]] virtual EngineState PlayerGetPlayState() const = 0;
  /// 1 is normal. False when the engine refuses it.
  virtual bool PlayerSetRate(double rate) = 0;
  [[nodiscard]] virtual double PlayerGetRate() const = 0;

  // What the engine of properties does at the ends of a clip. A graph plays once: its clip is sent back to
  // Mark-In for more.

  /// How often the section plays before its end is told; kForEver for no end.
  virtual void PlayerSetPlayCount(int times) = 0;
  /// Behind the last play it goes back to the start of the section and stands there.
  virtual void PlayerSetAutoRewind(bool on) = 0;
  /// What is opened plays by itself.
  virtual void PlayerSetAutoStart(bool on) = 0;

  // Place and section

  /// The unit of positions, lengths and the section.
  virtual void PlayerSetDisplayMode(DisplayMode mode) = 0;
  [[nodiscard]] virtual DisplayMode PlayerGetDisplayMode() const = 0;
  [[nodiscard]] virtual double PlayerGetDuration() const = 0;
  [[nodiscard]] virtual bool canSeek() const = 0;
  [[nodiscard]] virtual double PlayerGetCurrentPosition() const = 0;
  /// What stands at `seconds`, whatever unit is in force: from its begin on, where that is known.
  [[nodiscard]] virtual SeenFrame pictureAt(double seconds) const = 0;
  /// A visible clip on a graph of its own is left stopped on the picture: GlobalMediaPlay goes on.
  virtual void PlayerSetCurrentPosition(double position) = 0;
  /// The next picture (+1) or the one before (-1), at which the player then stands.
  virtual void PlayerStep(int direction) = 0;
  [[nodiscard]] virtual double PlayerGetSelectionStart() const = 0;
  virtual void PlayerSetSelectionStart(double position) = 0;
  [[nodiscard]] virtual double PlayerGetSelectionEnd() const = 0;
  virtual void PlayerSetSelectionEnd(double position) = 0;
  /// The control engine may have moved the end of the section by itself: behind Mark-Out of the clip in hand
  /// it comes back there. Nothing while positions are in seconds.
  virtual void holdSelectionEnd() = 0;
  /// Where a graph stops by itself, seconds; nothing for a negative one, or without a graph.
  virtual void ResetCoronaPlayerEnd(double seconds) = 0;
  /// The graph in hand stands exactly where it stops by itself; false without one.
  [[nodiscard]] virtual bool coronaAtStopTime() const = 0;
  /// Pictures a second of clip `index`; 0 or less for the one in hand.
  virtual double PlayerCoronaGetFrameRate(int index) = 0;
  /// The index of the clip in hand: places that have a name, in the order of their times.
  [[nodiscard]] virtual std::vector<EngineMarker> PlayerGetMarkers() const { return {}; }

  // Sound

  /// Hundredths of a decibel, -10000 to 0; and -10000 (left) to 10000 (right).
  virtual void PlayerSetVolume(int hundredths) = 0;
  virtual void PlayerSetBalance(int balance) = 0;
  /// What the sound is multiplied with.
  virtual void PlayerSetOutputLevel(double factor) = 0;
  virtual void PlayerMuteON() = 0;
  virtual void PlayerMuteOFF() = 0;

  // Words, and which of several sounds

  /// The sounds and texts of the clip in hand that can be chosen; empty while none is loaded.
  [[nodiscard]] virtual std::vector<MediaTrack> PlayerGetTracks() const = 0;
  /// Plays this track of its kind; id 0 none of it.
  virtual void PlayerChooseTrack(MediaTrack::Kind kind, int id) = 0;
  /// Whether texts are shown at all: those of the chosen track, or those of the caption file.
  virtual void PlayerSetShowCaptions(bool on) = 0;
  /// The texts of a file beside the clip, by its full path; empty lets go of them. Another clip has none.
  virtual void PlayerSetCaptionFile(const std::string& file) = 0;
  [[nodiscard]] virtual std::string PlayerGetCaptionFile() const = 0;

  // Picture

  virtual void PlayerShow() = 0;
  virtual void PlayerHide() = 0;
  /// Parks the player out of sight, where it goes on with what it does.
  virtual void SendPlayerFarLeft() = 0;
  /// Pixels; 720 by 576 for a DVD clip, 0 for a clip without picture.
  [[nodiscard]] virtual int PlayerGetSourceWidth() const = 0;
  [[nodiscard]] virtual int PlayerGetSourceHeight() const = 0;
  virtual void PlayerSetLeft(Twips left) = 0;
  virtual void PlayerSetTop(Twips top) = 0;
  virtual void PlayerSetWidth(Twips width) = 0;
  virtual void PlayerSetHeight(Twips height) = 0;
  /// 0 gives the player the size of its source, 1 half and 2 the double of it; 4 fits it to its place.
  virtual void PlayerSetDisplaySize(int size) = 0;
  virtual void PlayerSetFullScreenMode(bool on) = 0;
  [[nodiscard]] virtual bool PlayerGetFullScreenMode() const = 0;

  // What it tells

  /// Heard when a clip on the engine of properties has been played as often as told.
  virtual void whenEndOfStream(std::function<void()> heard) = 0;
  /// Heard when a graph has come to its stop time.
  virtual void whenGraphStops(std::function<void()> heard) = 0;
  /// Heard ahead of each play, pause, stop, step and seek.
  virtual void whenDriven(std::function<void()> heard) = 0;
};

}  // namespace kvo
