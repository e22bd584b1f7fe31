// Whether a file that has been looked into joins the collection, as a function of what is known of it.
#pragma once

#include "intake/image_info.h"
#include "intake/intake_class.h"
#include "ports/media_looker.h"
#include "ports/message_boxes.h"

#include <optional>
#include <string>

namespace kvo {

/// What is known of a file whose name alone does not refuse it.
struct LookedAt {
  std::string name;      ///< without its folder
  bool isEmpty = false;  ///< it has no bytes
  CImageInfo head{};     ///< of what is an image by its name
  LookAnswer answer{};
  bool UseWMPfirst = false;  ///< QuickTime movies go to the player or not at all
};

struct Verdict {
  enum class Kind {
    Join,
    TakeBack,
    AskViewer,  ///< a viewer of its own shows it, and the user says whether that went well
  };
  Kind kind = Kind::Join;
  /// What the user is told; nothing where there is nothing to tell.
  std::optional<Box> box{};
  /// It is told once, and not of every clip of its kind.
  bool once = false;
  /// The box is to say what codec the file asks for.
  bool wantsCodec = false;
};

Verdict judge(const LookedAt& file);

/// What was looked at goes into the record of a clip that joins.
void takeLook(Movie& clip, const MediaLook& look);

/// `DidPlayAdd` was answered with Yes: a viewer of its own shows the clip from now on.
void becomeViewerClip(Movie& clip);

}  // namespace kvo
