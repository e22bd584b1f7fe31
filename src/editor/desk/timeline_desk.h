// What the hand does on the timeline, carried out as the lists' own commands do it: each is one step of the
// history.
#pragma once

#include "editor/desk/editor_desk.h"
#include "editor/timeline/timeline_acts.h"
#include "program/mailbox.h"

#include <functional>
#include <string>
#include <vector>

namespace kvo {

class TimelineDesk : public TimelineActs {
 public:
  /// What other rooms do for it.
  struct Doors {
    std::function<void(double seconds)> seek;                   ///< the preview goes there
    std::function<void(const TimelineRange&)> setRange;         ///< of preview and render
    std::function<void(const std::string&, double)> showFrame;  ///< of a file, in the preview's place
    std::function<void()> endFrame;                             ///< what was shown before
    std::function<void(int clip, int x, int y)> openMenu;       ///< 0 for that of the list
  };
  struct Parts {
    EditorDesk& desk;
    const Editing& editing;
    ListCommands& commands;
    Mailbox& mailbox;
  };
  /// All of it outlives the object.
  TimelineDesk(const Parts& parts, Doors doors) : parts_(parts), doors_(std::move(doors)) {}

  void select(int clip) override;
  void moveTo(int clip, int before) override;
  void setMark(const MarkGesture& mark) override;
  void setTransIn(const TransInGesture& transition) override;
  void setFade(const FadeGesture& fade) override;
  void seek(double seconds) override { doors_.seek(seconds); }
  void setRange(const TimelineRange& range) override { doors_.setRange(range); }
  void showFrame(int clip, double seconds) override;
  void endFrame() override { doors_.endFrame(); }
  void insertFiles(const std::vector<std::string>& files, int before) override {
    parts_.mailbox.takeForMovie(files, before);
  }
  void remove(int clip) override { parts_.commands.Removeit(clip); }
  std::string copy(int clip) override;
  std::string split(int clip) override;
  void openTab(int tab, int clip) override;
  void openTrimmer(int clip) override;
  void openMenu(int clip, int x, int y) override { doors_.openMenu(clip, x, y); }

 private:
  [[nodiscard]] bool has(int clip) const { return clip >= 1 && clip <= parts_.editing.clips().count(); }

  Parts parts_;
  Doors doors_;
};

}  // namespace kvo
