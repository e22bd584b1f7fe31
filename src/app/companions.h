// Who goes along with what the main window shows: the screen that stays awake, the place where a long clip
// was left, the small picture over the slider. Wiring, and no rules.
#pragma once

#include "program/hover_preview.h"
#include "program/keep_awake.h"
#include "program/resume.h"

namespace kvo {

class Companions {
 public:
  struct Parts {
    FrameSource& streams;
    Desktop& desktop;
    Resume::Parts resume;
  };
  explicit Companions(const Parts& parts)
      : window_(parts.resume.window),
        hover_(parts.streams, parts.resume.loop, parts.resume.window),
        resume_(parts.resume),
        awake_(parts.resume.window, parts.desktop) {}

  [[nodiscard]] HoverPreview& hover() { return hover_; }
  [[nodiscard]] Resume& resume() { return resume_; }

  /// The state is whole, unless a command is under way.
  void settled() {
    if (window_.busy()) return;
    resume_.settled();
    awake_.settled();
  }

  /// The program ends.
  void leave() { resume_.leave(); }

 private:
  const MainWindowState& window_;
  HoverPreview hover_;
  Resume resume_;
  KeepAwake awake_;
};

/// Where the places are kept at which the user left long clips: KVO5/Places in `$XDG_STATE_HOME`, by default
/// `~/.local/state`; empty without a home. `environment` gives a variable's text, empty when unset.
std::string placesFile(const std::function<std::string(const char*)>& environment);

}  // namespace kvo
