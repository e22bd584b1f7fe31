// The Transition tab: which clip, which transition leads into it, how long that is and how it looks. Its
// rules write the clip's record, each act a step of the history, and ask for a sample of what came of it.
#pragma once

#include "editor/tabs/clip_lists.h"
#include "editor/tabs/name_choice.h"
#include "editor/tabs/tab_host.h"
#include "editor/tabs/transition_panel.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo {

/// The boxes of a transition by a mask, as the clip's record has them.
struct BorderBoxes {
  int BorderWidth = 0;       ///< pixels, 0 to 255
  int BorderSoftness = 0;    ///< pixels, 0 to 255
  unsigned BorderColor = 0;  ///< 0xRRGGBB
  int ReplicateX = 1;        ///< 1 to 255
  int ReplicateY = 1;        ///< 1 to 255
  bool usesMask = false;     ///< "Use a Jpeg Image as a transition Mask"
  bool operator==(const BorderBoxes&) const = default;
};

/// The options of all transitions by particles, as the preferences have them.
struct ParticleBoxes {
  bool Chk_UseParticleDefaults = true;  ///< the sliders are off
  int Sld_ParticleFragments = 64;       ///< 2 to 1000
  int Sld_ParticleMotionSpeed = 35;     ///< 1 to 100
  int Sld_ParticleSpinSpeed = 100;      ///< ten times the preference, 0 to 1000
  int Sld_ExponEntialProgDuration = 9;  ///< tenths, 0 to 10
  int Sld_ExponentialProgScale = 3;     ///< tenths, 0 to 10
  bool operator==(const ParticleBoxes&) const = default;
};

struct TransitionTab {
  NameChoice names;  ///< of Lst_Transitions
  ListBox Lst_TransitionMovies;
  TransitionPanel panel;
  std::string whyNone;  ///< the clip in hand can have none; whole, empty where it can
  int Sld_In = 0;       ///< tenths of a second
  int Sld_InMax = 1;
  std::string inOver;  ///< Label17 2, composed: "In over 2 Secs"
  std::string length;  ///< Label17 1: "2.0"
  std::string Lbl_Tranclips;
  BorderBoxes border;
  std::string firstOption;   ///< digits beside the first caption of panel.options; empty for its default
  std::string secondOption;  ///< one of panel.options.secondValues; empty for the transition's own
  bool particlesOpen = false;
  ParticleBoxes particles;
};

/// What stands at the right of the tab.
enum class TransitionPane { Tiles, Particles, Hint };
TransitionPane paneOf(const TransitionTab& tab);
/// Why no transition can be looked for among the tiles; whole, empty while they are there.
std::string whyNoTiles(const TransitionTab& tab);
/// What stands in their place while the clip has none. Whole.
std::string hintOf(const TransitionTab& tab);

class TransitionRules {
 public:
  /// Of the text of the first option.
  static constexpr std::size_t kMostDigits = 5;

  /// All outlive the object.
  TransitionRules(const Editing& editing, TransitionTab& tab, TabHost& host, UserStore& store);

  /// The tab is entered: the list is made, the row of the main window's clip chosen, its sample shown.
  void enter();
  /// The same when records have changed under it, or the main window has gone to another clip; the list is
  /// made anew with `rebuild`, and there is a new sample where it would look otherwise than the last.
  void show(bool rebuild);

  /// The user has chosen a row.
  void chooseMovie(int row);
  /// What follows from the chosen row: limits, captions, boxes, the sample. Corrections of the record are no
  /// change of the user's.
  void Lst_TransitionMovies_MouseUp();

  /// The user has picked a name.
  void pick(std::string_view name);
  /// Arrow keys in the tiles: `steps` names on among those shown.
  void pickNext(int steps);
  /// The switch: a plain cut, or a transition again: the one that was chosen last.
  void chooseCut(bool cut);
  /// Sld_In, in tenths of a second. Moves of one drag are one step; `letGo` ends it.
  void moveDuration(int tenths);
  void letGo();

  // The boxes of the options.

  void changeBorder(const BorderBoxes& wanted);
  /// An empty path takes the mask away.
  void chooseMask(const std::string& path);
  /// Digits alone; others and those behind the fifth are refused.
  void typeFirstOption(std::string_view text);
  void chooseSecondOption(std::string_view value);

  /// Cmd_ParticleOpts; closed again by the same key.
  void openParticles(bool open);
  void changeParticles(const ParticleBoxes& wanted);

  /// Which names are shown.
  [[nodiscard]] NameChooser& names() { return names_; }

  [[nodiscard]] const EditorState& editor() const { return e_.editor; }

 private:
  [[nodiscard]] Movie* clip() const;
  bool correct(Movie& clip, int number) const;
  void showNoClip();
  void BuildTransitionFrame();
  void PopulateTransOptsFromObj();
  void ApplyExtraParams(Movie& clip) const;
  void editOptions(std::string_view act, const std::function<void(Movie&)>& work);
  void askForSample();
  void tellTooShort();
  void warnOfShort();

  const Editing& e_;
  TransitionTab& tab_;
  TabHost& host_;
  NameChooser names_;
  std::string sampled_;                    // what the sample that was asked for last showed
  std::optional<Long> toldTooShort_;       // the KeyID of the clip that a box has told of
  std::set<std::pair<Long, int>> warned_;  // clips, by their KeyID, and lengths that a box has warned of
};

/// The two clips of a transition as they are named to the user: "beach.avi -->  hills.avi".
std::string transitionClipsText(const Collection& collection, int clipNo);

}  // namespace kvo
