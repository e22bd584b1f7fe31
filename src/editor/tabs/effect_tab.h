// The tab Effect: what it shows of the clip that is chosen in its list, and what its controls do.
#pragma once

#include "editor/tabs/clip_lists.h"
#include "editor/tabs/editor_parts_state.h"
#include "editor/tabs/effect_panel.h"
#include "editor/tabs/name_choice.h"
#include "editor/tabs/tab_host.h"

#include <array>
#include <string>

namespace kvo {

/// A switch of the tab, by its place in the word: 1 to 46.
struct EffectSwitchFace {
  std::string caption;
  std::string tip;  ///< composed
  bool isOn = false;
  bool isKeyframed = false;  ///< its values move from keyframe to keyframe
  bool operator==(const EffectSwitchFace&) const = default;
};

enum class EffectLevel { Blur, MotionStrength, MotionDirection, FilmAge };
inline constexpr std::size_t kEffectLevels = 4;

enum class EaseLevel { Progress, MotionSpeed, StartScale, EndScale };
inline constexpr std::size_t kEaseLevels = 4;

/// The panel of Ease, in the place of the effects while it is open. Its sliders are in hundredths.
struct EasePanel {
  bool open = false;
  bool EaseIN = false;  ///< Opt_Ease: In, else Out
  std::array<ClipSlider, kEaseLevels> sliders;
  int direction = 0;  ///< of moveDirections()
  int rotation = 0;   ///< of rotationDirections()
  bool Chk_RotateCam = false;
  std::string whyNot;  ///< the effect is not on; whole, empty where it is
  bool operator==(const EasePanel&) const = default;
};

struct EffectTab {
  NameChoice names;  ///< of the effects 1 to 42
  ListBox Lst_Clips;
  bool enabled = false;  ///< a clip is chosen
  EffectControls controls;
  std::array<EffectSwitchFace, EffectWord::kSwitches + 1> faces;  ///< the first is none
  std::array<ClipSlider, kEffectLevels> levels;
  EasePanel ease;
};

/// What a clip can move to and turn to while it eases; the first of each is none.
std::span<const std::string_view> moveDirections();
std::span<const std::string_view> rotationDirections();

/// The tab is opened.
void enterTab(const Editing& e, EffectTab& tab, TabHost& host);

/// A change was heard of while it is open. A clip of sound has no effects: goes to the tab Audio then, and
/// with no clip at all to the first.
void followTab(const Editing& e, EffectTab& tab, TabHost& host, bool rebuild);

/// A row of Lst_Clips, from 0.
void chooseEffectClip(const Editing& e, EffectTab& tab, TabHost& host, int row);

/// One of the 46 switches.
void tickEffect(const Editing& e, EffectTab& tab, TabHost& host, int position, bool on);

/// The names of the effects 1 to 42, in list order.
std::vector<std::string> effectNames(const EffectTab& tab);

/// One of these, whose name is noted as used.
void tickNamed(const Editing& e, EffectTab& tab, TabHost& host, NameChooser& names, int position, bool on);

/// What a right click on one of them comes to.
struct Configured {
  bool showsKeyframes = false;  ///< those of its effect are to be shown
  std::string whyNot;           ///< there is nothing to be shown
};
/// A right click on one of them: its options. A box tells of an effect that has none.
Configured configure(const Editing& e, EffectTab& tab, TabHost& host, int position);

void moveEffectLevel(const Editing& e, EffectTab& tab, TabHost& host, EffectLevel level, int value);

/// The panel of Ease takes the place of the effects, or gives it back.
void showEaseOpts(const Editing& e, EffectTab& tab, TabHost& host, bool open);
void chooseEase(const Editing& e, EffectTab& tab, TabHost& host, bool in);
void moveEase(const Editing& e, EffectTab& tab, TabHost& host, EaseLevel level, int hundredths);
void chooseMoveDirection(const Editing& e, EffectTab& tab, TabHost& host, int direction);
void chooseRotation(const Editing& e, EffectTab& tab, TabHost& host, int rotation);
void tickRotateCam(const Editing& e, EffectTab& tab, TabHost& host, bool on);
void pressEaseDefault(const Editing& e, EffectTab& tab, TabHost& host, bool in);

}  // namespace kvo
