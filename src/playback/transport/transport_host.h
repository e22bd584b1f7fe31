// What the transport asks of the rest of the window, and the guests: rooms that take part in playing when
// they are there.
#pragma once

#include <string>

namespace kvo {

class TransportHost {
 public:
  TransportHost() = default;
  TransportHost(const TransportHost&) = delete;
  TransportHost& operator=(const TransportHost&) = delete;
  virtual ~TransportHost() = default;

  /// The list selects clip `number`, which is then the one in hand. It is not loaded by that.
  virtual void select(int number) = 0;
  /// The details of clip `number` as they are shown.
  virtual void Displaymovieinfo(int number) = 0;
  /// What the frame of the window says, other than the clip's own name.
  virtual void caption(const std::string& text) = 0;
  /// Writes on the spine.
  virtual void FadBorder(const std::string& text) = 0;
  /// The list of clips is seen, or not.
  virtual void showList(bool on) = 0;
  /// There is no clip any more: the empty panel.
  virtual void NoMoviesinCollection() = 0;
  /// A command of the user is under way: the collection is not to be touched.
  [[nodiscard]] virtual bool busy() const = 0;
  /// What played has reached its end. True when it was the start-up video, which is cared for then.
  virtual bool startUpVideoEnded() = 0;
  /// The windows about the clip that is left close: markers and bin.
  virtual void closeClipWindows() = 0;

  // Of the positions

  virtual void SectionToPlay(bool keepPosition) = 0;
  /// A clip has come into the player: levels, rate, handles and index go by it.
  virtual void clipLoaded() = 0;
  /// Handle, digits and position label by the player's place.
  virtual void showPosition() = 0;
  /// A mark is held by the user.
  [[nodiscard]] virtual bool markDragged() const = 0;
  /// Lets go of the marks.
  virtual void endMarkDrag() = 0;
  /// The clip in hand keeps this rate, 1 is normal, as an act of the user's that can be undone.
  virtual void keepSpeed(double rate) = 0;
  /// The remote's next clip.
  virtual void Lbl_NextMov_Click() = 0;
};

/// The audio-CD in the drive.
class DiscPlay {
 public:
  DiscPlay() = default;
  DiscPlay(const DiscPlay&) = delete;
  DiscPlay& operator=(const DiscPlay&) = delete;
  virtual ~DiscPlay() = default;

  /// Sets the window up for the track of clip `number`, and plays it.
  virtual void CDAudioDisplayMode(int number) = 0;
  [[nodiscard]] virtual bool playing() const = 0;
  virtual void resume() = 0;
  virtual void pause() = 0;
  virtual void stop() = 0;
  /// Looks at disc and door.
  virtual void poll() = 0;
};

/// The wave of the clip in hand.
class WavePlay {
 public:
  WavePlay() = default;
  WavePlay(const WavePlay&) = delete;
  WavePlay& operator=(const WavePlay&) = delete;
  virtual ~WavePlay() = default;

  virtual void HideWavSpikes() = 0;
  /// With the editor open a wave takes the place of the clip's player. False for a clip that has none.
  virtual bool showInEditor(int number) = 0;
  /// Behind a load: strips the sound, where it is to be shown, and draws it.
  virtual void clipLoaded(int number) = 0;
  /// Draws the wave at the player's place: of Timer9, while it is shown.
  virtual void ExecWavSpikes() = 0;
};

/// The animation behind sound.
class AudioAnimation {
 public:
  AudioAnimation() = default;
  AudioAnimation(const AudioAnimation&) = delete;
  AudioAnimation& operator=(const AudioAnimation&) = delete;
  virtual ~AudioAnimation() = default;

  /// Begins it, and goes on to its next clip: of Timer4.
  virtual void watch() = 0;
};

/// The remote control panel.
class RemotePanel {
 public:
  RemotePanel() = default;
  RemotePanel(const RemotePanel&) = delete;
  RemotePanel& operator=(const RemotePanel&) = delete;
  virtual ~RemotePanel() = default;

  virtual void show() = 0;
};

/// Null for those who are not there.
struct TransportGuests {
  DiscPlay* disc = nullptr;
  WavePlay* wave = nullptr;
  AudioAnimation* animation = nullptr;
  RemotePanel* remote = nullptr;
};

}  // namespace kvo
