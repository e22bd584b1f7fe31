// What the preview shows, as data: the preview engine writes it, the editor's window draws it.
#pragma once

#include "base/revised_list.h"
#include "ports/timeline_player.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kvo {

/// What the player has in hand.
enum class PreviewKind { None, Movie, Transition, Effect, Colour, Keyframe, PictureInPicture };

/// The bar under the picture.
struct RenderRange {
  int Max = 0;        ///< whole seconds
  double Value = 0;   ///< seconds
  bool held = false;  ///< by the user: it does not follow the position
};

inline constexpr const char* kNoPosition = "0:00:0.000";

struct PreviewState {
  PreviewKind kind = PreviewKind::None;
  int clipNo = 0;               ///< of a sample its clip; of the movie the one that is seen; 0 for none
  bool PreviewPlaying = false;  ///< it runs, or has been paused
  bool paused = false;
  std::string failure;  ///< why nothing can be shown; empty when all is well

  std::shared_ptr<const Bitmap> picture;  ///< the newest; null when there is none
  int overlayPosition = 0;                ///< 1 to 15, of a clip that is laid over what is seen; 0 for none
  std::string title;                      ///< of what is seen: a clip, or the two of a transition
  double position = 0;                    ///< seconds, of the picture
  double total = 0;                       ///< seconds of what is in hand

  std::string Lbl_TimePos = kNoPosition;  ///< "00:07.2000"
  std::string Lbl_Remain = kNoPosition;
  std::string Lbl_TotDur = kNoPosition;
  RenderRange FSB_RenderRange;
  RevisedList<double> cuts;  ///< seconds: where the clips of the movie end

  std::uint64_t compiles = 0;  ///< of the movie, to be played

  /// There is nothing to be seen.
  [[nodiscard]] bool isEmpty() const { return picture == nullptr && title.empty(); }
  /// The key pauses it.
  [[nodiscard]] bool runs() const { return PreviewPlaying && !paused; }
  /// Seconds along the bar.
  [[nodiscard]] double length() const { return total > 0 ? total : FSB_RenderRange.Max; }
};

}  // namespace kvo
