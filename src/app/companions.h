// Who goes along with what the main window shows: the desktop that is told what plays, the screen that stays
// awake, the place where a long clip was left, the small picture over the slider. Wiring, and no rules.
#pragma once

#include "program/hover_preview.h"
#include "program/keep_awake.h"
#include "program/outside_controls.h"
#include "program/resume.h"

namespace kvo {

class Companions {
 public:
  struct Parts {
    Sketches& sketches;
    ScreenSaver& saver;
    Resume::Parts resume;
    OutsideControls::Parts outside;
    MediaControls& controls;
  };
  explicit Companions(const Parts& parts)
      : window_(parts.resume.window),
        hover_(parts.sketches, parts.resume.window),
        resume_(parts.resume),
        awake_(parts.resume.window, parts.saver),
        outside_(parts.outside, parts.controls) {}

  [[nodiscard]] HoverPreview& hover() { return hover_; }
  [[nodiscard]] Resume& resume() { return resume_; }

  /// The window is there: what is asked from outside is heard from now on.
  void begin() { outside_.begin(); }

  /// The state is whole, unless a command is under way.
  void settled() {
    if (window_.busy()) return;
    hover_.settled();
    resume_.settled();
    awake_.settled();
    outside_.settled();
  }

  /// The program ends.
  void leave() { resume_.leave(); }

 private:
  const MainWindowState& window_;
  HoverPreview hover_;
  Resume resume_;
  KeepAwake awake_;
  OutsideControls outside_;
};

/// Where the places are kept at which the user left long clips: KVO5/Places in `$XDG_STATE_HOME`, by default
/// `~/.local/state`; empty without a home. `environment` gives a variable's text, empty when unset.
std::string placesFile(const std::function<std::string(const char*)>& environment);

}  // namespace kvo
