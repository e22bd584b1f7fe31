// What the desk asks of the rooms round it. Wired where the program is put together.
#pragma once

#include "editor/tabs/still_options.h"
#include "editor/tabs/tab_host.h"
#include "program/clip_copies.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace kvo {

inline constexpr int kEditorTabs = 7;

/// The preview, as far as the desk drives it.
class DeskPreview {
 public:
  DeskPreview() = default;
  DeskPreview(const DeskPreview&) = delete;
  DeskPreview& operator=(const DeskPreview&) = delete;
  virtual ~DeskPreview() = default;

  /// Ends whatever is shown.
  virtual void KillPreview() = 0;
  virtual void sample(Sample what, int clipNo) = 0;
  /// The movie plays: not a sample of one clip.
  [[nodiscard]] virtual bool isPlaying() const = 0;
  /// The collection is another than the one that was compiled.
  virtual void movieIsStale() = 0;
  /// The playhead is at `seconds`: what stands of the movie elsewhere, or as it was, goes.
  virtual void standAt(double seconds) = 0;
  /// The clip in hand is to be seen, in the place of a sample or of what stands of the movie.
  virtual void showClip() = 0;
};

/// The rules of a tab, as far as the desk calls them. What is empty is not called.
struct DeskTab {
  std::function<void()> restore{};     ///< the editor opens: as the preferences have it
  std::function<void()> enter{};       ///< the tab is opened
  std::function<void(bool)> follow{};  ///< records have changed under it; true makes its lists anew
};
using DeskTabs = std::array<DeskTab, kEditorTabs>;

/// What the preview asks of controls on the tabs.
struct PreviewControls {
  std::function<StillControls()> stills{};
  std::function<bool()> Chk_AutoRewind{};
};

/// What the main window and its player do for the editor.
struct MainWindowDoors {
  std::function<void(int)> Displaymovieinfo{};          ///< shows the details of a clip
  std::function<void()> PlayerPause{};                  ///< as it is
  std::function<void()> PlayerStop{};                   ///< likewise
  std::function<std::string()> PlayerGetFileName{};     ///< full path of what is in the player, or empty
  std::function<void()> pausePlaying{};                 ///< the pause key, where a clip plays
  std::function<std::optional<PlayerPlace>()> place{};  ///< where the player stands; none while it is empty
  /// What it has at `seconds` of its clip; none while it is empty.
  std::function<std::optional<PlayerPlace>(double)> pictureAt{};
  std::function<void(double)> standPlayer{};      ///< it plays no more, and goes there, seconds
  std::function<void(int)> stepPlayer{};          ///< by so many pictures, or back
  std::function<void()> SetMarkIn{};              ///< where the player stands
  std::function<void()> SetMarkOut{};             ///< likewise
  std::function<void(bool in)> resetMark{};       ///< Mark-In or Mark-Out to its end of the clip
  std::function<void()> ShowSliderStuff{};        ///< the slider comes in sight
  std::function<void()> Pic_DigNumbers_Click{};   ///< the trimmer: the direct positioner
  std::function<void()> mnu_SectionName_Click{};  ///< asks for the clip's name in the list
  /// Adds a file to the collection, ahead of a clip, or at the end with 0.
  std::function<void(const std::string&, int before)> AddMoviesm{};
  std::function<bool()> mnu_SaveShow_Click{};         ///< saves the collection under a name that it asks for
  std::function<bool()> saveAgain{};                  ///< saves it into its own file
  std::function<void()> empty{};                      ///< it has no clip any more
  std::function<void()> haltPlayer{};                 ///< timers stand, the player is stopped
  std::function<void()> parkPlayer{};                 ///< and out of sight, and the positioner closed
  std::function<void(bool)> FrmFileOpenToolsOnOff{};  ///< its tools can be used, or only show
  std::function<void()> draw{};                       ///< what is shown has changed behind no act of the user
};

}  // namespace kvo
