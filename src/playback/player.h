// The player as everything else sees it: one face, whatever plays behind it. Places are in twips of the
// window, sizes of a source in pixels. Nothing here fails aloud: what cannot be done leaves the player as it
// is.
#pragma once

#include "playback/geometry.h"

#include <string>

namespace kvo {

/// A number of plays that stands for no end.
inline constexpr int kForEver = 30000;

/// What the player shows, as data: the window draws it.
struct PlayerState {
  Place place;           ///< the picture is drawn fitted into what the window has of it, its shape kept
  bool visible = false;  ///< parked players may be visible: see Place::parked
  std::string path;  ///< full path of the clip in the player, of which the first frame is shown; else empty
  int clip = 0;      ///< its number; 0 for none
  int sourceWidth = 0;   ///< pixels; 0 for a clip without picture
  int sourceHeight = 0;  ///< pixels
  int displaySize =
      0;              ///< 0 the source's own size, 1 half, 2 the double or the screen, 4 fitted to the place
  int playCount = 1;  ///< how often the clip plays
  bool fullScreen = false;  ///< the picture alone covers the screen, whatever the face of the window
  bool IsPlaying = false;
  bool IsPaused = false;  ///< by the user or between two clips
  bool operator==(const PlayerState&) const = default;
};

/// As engines tell it.
enum class PlayerPlayState { Stopped = 0, Paused = 1, Playing = 2 };

class Player {
 public:
  Player() = default;
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  virtual ~Player() = default;

  /// Puts clip `index` of the collection, whose full path is `path`, into the player. The player takes the
  /// size of the source.
  virtual void PlayerSetFilename(const std::string& path, int index) = 0;
  /// Takes the clip out of the player.
  virtual void PlayerClear() = 0;
  /// True while no clip is loaded that could be played.
  [[nodiscard]] virtual bool PlayerIsEmpty() const = 0;
  /// Which of the two kinds of engine the clip is on.
  [[nodiscard]] virtual bool UsingCorona() const = 0;

  virtual void GlobalMediaPlay() = 0;
  virtual void PlayerPause() = 0;
  virtual void PlayerStop() = 0;
  [[nodiscard]] virtual PlayerPlayState PlayerGetPlayState() const = 0;
  virtual void PlayerSetPlayCount(int times) = 0;

  virtual void PlayerShow() = 0;
  virtual void PlayerHide() = 0;
  /// Parks the player out of sight, where it goes on with what it does.
  virtual void SendPlayerFarLeft() = 0;

  /// Pixels; 720 by 576 for a DVD clip, 0 for a clip without picture.
  [[nodiscard]] virtual int PlayerGetSourceWidth() const = 0;
  [[nodiscard]] virtual int PlayerGetSourceHeight() const = 0;

  [[nodiscard]] virtual Twips PlayerGetLeft() const = 0;
  [[nodiscard]] virtual Twips PlayerGetTop() const = 0;
  [[nodiscard]] virtual Twips PlayerGetWidth() const = 0;
  [[nodiscard]] virtual Twips PlayerGetHeight() const = 0;
  virtual void PlayerSetLeft(Twips left) = 0;
  virtual void PlayerSetTop(Twips top) = 0;
  virtual void PlayerSetWidth(Twips width) = 0;
  virtual void PlayerSetHeight(Twips height) = 0;

  /// See PlayerState::displaySize. 0 gives the player the size of its source.
  virtual void PlayerSetDisplaySize(int size) = 0;
  virtual void PlayerSetFullScreenMode(bool on) = 0;
  [[nodiscard]] virtual bool PlayerGetFullScreenMode() const = 0;
};

}  // namespace kvo
