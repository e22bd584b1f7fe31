// The port to a player of timeline documents inside the program: what the editor's preview shows and lets
// hear.
#pragma once

#include "base/result.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kvo {

/// A picture as rows of blue, green and red bytes without gaps.
struct Bitmap {
  int width = 0;  ///< pixels
  int height = 0;
  std::vector<std::uint8_t> bgr{};
};

enum class PlayState {
  Empty,    ///< nothing is loaded
  Stopped,  ///< at the first frame
  Playing,
  Paused,
  Ended,   ///< at the last frame
  Failed,  ///< a clip cannot be shown; failure() says why
};

class TimelinePlayer {
 public:
  /// Hears every frame that is shown, on a thread of the player's own; the bitmap may be kept.
  using ShowFrame = std::function<void(std::int64_t frame, std::shared_ptr<const Bitmap> picture)>;

  TimelinePlayer() = default;
  TimelinePlayer(const TimelinePlayer&) = delete;
  TimelinePlayer& operator=(const TimelinePlayer&) = delete;
  virtual ~TimelinePlayer() = default;

  /// Takes the text of a document in place of the one before, and shows its first frame. Size and rate are
  /// the document's. Fails with the line of a document that makes no sense; then nothing is loaded.
  virtual Outcome load(std::string document) = 0;

  /// Falls silent and lets go of what it has: nothing is loaded.
  virtual void clear() = 0;

  /// Plays on from where it stands; from the start when it has ended.
  virtual void play() = 0;
  virtual void pause() = 0;
  /// Goes back to the first frame and stands there.
  virtual void stop() = 0;
  /// Shows a frame, held within the timeline; plays on from there if it was playing.
  virtual void seek(std::int64_t frame) = 0;

  [[nodiscard]] virtual PlayState state() const = 0;
  [[nodiscard]] virtual std::string failure() const = 0;
  /// The frame that is shown, counted from 0.
  [[nodiscard]] virtual std::int64_t position() const = 0;
  [[nodiscard]] virtual std::int64_t frames() const = 0;
  /// Frames a second; 0 when nothing is loaded.
  [[nodiscard]] virtual double frameRate() const = 0;
};

}  // namespace kvo
