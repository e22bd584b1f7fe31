// What stands in the preview's place while nothing plays there: the clip in hand at the playhead, or the
// frame at which a mark is dragged or the window of keyframes stands.
#pragma once

#include "core/records/collection.h"
#include "editor/compiler/sample_documents.h"
#include "editor/preview/preview_state.h"
#include "ports/files.h"
#include "ports/last_wish.h"
#include "ports/media_contents.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kvo {

class StandingPicture {
 public:
  /// All of it outlives the object. `draw` hears of another picture.
  StandingPicture(PreviewState& state, MediaContents& streams, const Files& files, EventLoop& loop,
                  std::function<void()> draw);

  /// What a file has at `seconds`, while a mark is dragged there; then what was shown before.
  void showMark(const std::string& file, double seconds);
  void endMark();

  /// What a clip has at a frame of the movie, of which there are `rate` a second; until the window of
  /// keyframes closes.
  void showKeyframe(const Movie& clip, Long frame, double rate);

  /// Ahead of each drawing; `form` is the size of the picture. A frame gives way to a preview that plays and
  /// to another clip in hand; where there is neither preview nor frame, the clip in hand stands in, at
  /// `seconds` of its file.
  void settle(const Collection& collection, bool keyframesOpen, double seconds, const SampleForm& form);

  /// The picture has gone with a preview, or the files are others than they were.
  void forget();

 private:
  enum class Owner { Mark, Keyframes };
  struct Wish {
    std::string file;
    double seconds = 0;
    SampleForm form;
    bool operator==(const Wish&) const = default;
  };

  void show(Owner owner, Wish wish);
  void endFrame();
  void standIn(const Movie& clip, double seconds);
  void arrived(const Wish& wish, const Result<FramePicture>& picture);

  PreviewState& state_;
  const Files& files_;
  std::function<void()> draw_;
  std::optional<Owner> frame_;            // whose frame is shown
  std::shared_ptr<const Bitmap> before_;  // what it stands in the place of
  std::optional<Wish> standIn_;           // what stands in the place of a preview, or will
  std::string failure_;                   // why there is no picture of standIn_; empty for none
  bool isGone_ = false;                   // its file
  int inHand_ = 0;                        // the clip
  SampleForm form_;
  LastWish<Wish, Result<FramePicture>> frames_;
};

}  // namespace kvo
