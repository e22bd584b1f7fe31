// Where the faces of the main window stand: they share one corner, which is that of the face in sight while
// it does not cover the screen. Lengths are pixels as the desktop counts them.
#pragma once

#include "ports/desktop.h"

#include <cstdint>
#include <optional>

namespace kvo {

struct ScreenPoint {
  int x = 0;
  int y = 0;
  bool operator==(const ScreenPoint&) const = default;
};

/// A face as the desktop has it.
struct FaceOnScreen {
  ScreenPoint corner;     ///< of the frame that the desktop has put about it
  ScreenArea inside;      ///< what it draws
  bool isFramed = false;  ///< there is such a frame now
  bool visible = false;
  bool covers = false;   ///< the screen
  bool isNormal = true;  ///< it is the one with the skin; else Free Zoom
};

/// Times are milliseconds of any clock that only goes on.
class FaceCorner {
 public:
  /// Ahead of a drawing of `face`, by which it may cover the screen, come back or grow.
  void beforeDrawing(const FaceOnScreen& face, std::int64_t now);
  /// Behind it: where it is to be moved to, wholly on the screen; nothing where it stands right.
  [[nodiscard]] std::optional<ScreenPoint> afterDrawing(const FaceOnScreen& face, std::int64_t now);

  /// Another face comes in the place of `left`: where it stands. The normal face comes back to where it was
  /// left, unless the other has been moved.
  ScreenPoint cameFrom(const FaceOnScreen& left, std::int64_t now);
  /// The face that has come stands at `corner`.
  void stands(ScreenPoint corner) { corner_ = corner; }

  /// Where the next start puts the normal face, when the program ends with `face` in sight.
  [[nodiscard]] ScreenPoint atEnd(const FaceOnScreen& face) const;

 private:
  [[nodiscard]] bool settles(std::int64_t now) const;

  ScreenPoint corner_;
  ScreenPoint home_;                       // of the normal face, when it was left
  ScreenPoint toInside_;                   // from the corner to what the face draws
  FaceOnScreen before_;                    // the drawing
  std::optional<std::int64_t> uncovered_;  // when a face came back from covering the screen
};

}  // namespace kvo
