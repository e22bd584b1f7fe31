// What the tabs of the editor ask of the desk that they lie on.
#pragma once

#include "core/records/field_types.h"

#include <functional>
#include <string_view>

namespace kvo {

/// What a short preview shows of a clip.
enum class Sample { Transition, Effect, Colour, Keyframe, PictureInPicture };

class TabHost {
 public:
  TabHost() = default;
  TabHost(const TabHost&) = delete;
  TabHost& operator=(const TabHost&) = delete;
  virtual ~TabHost() = default;

  /// The gate of the history. Whatever `work` writes into records, keyframes, preferences and what else is
  /// kept there is one step with the name `act` and clip `clipNo` ("Fade on beach.avi"). While the user holds
  /// a key or the mouse, as when a slider is dragged, edits of one name and clip that follow each other are
  /// one step. `changeCode` is what ObjectChange becomes, 0 leaves it. False when nothing has changed, or
  /// nothing may: a load or another command runs.
  virtual bool edit(std::string_view act, int clipNo, Integer changeCode,
                    const std::function<void()>& work) = 0;

  /// Brings the main window to a clip that was chosen in a list of the editor; with `pause` false the player
  /// is paused on it.
  virtual void UpDateFrmFileOpen(int clipNo, bool pause) = 0;

  /// Shows a sample of a clip. One that is asked for while another is shown takes its place at once.
  virtual void sample(Sample what, int clipNo) = 0;
  virtual void KillPreview() = 0;

  /// The panel of the clip's details, and the sliders of its speed and level, as its record has them.
  virtual void ShowClipStats() = 0;
  virtual void buildClipSliders() = 0;

  /// Goes to a tab, 1 to 7.
  virtual void Buildtabs(int tab) = 0;
};

}  // namespace kvo
