#include "editor/tabs/effect_tab.h"

#include "base/text.h"
#include "core/telling/translated.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/keyframes.h"
#include "editor/tabs/keyframe_edits.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kFirstPaletteSlot = static_cast<int>(EffectSwitch::FirstPaletteSlot);
constexpr int kLastPaletteSlot = static_cast<int>(EffectSwitch::LastPaletteSlot);
constexpr int kEasePosition = static_cast<int>(EffectSwitch::Ease);
constexpr int kFilmAgePosition = static_cast<int>(EffectSwitch::FilmAge);
constexpr Integer kMembershipChanged = 99;
constexpr int kAudioTab = 2;
constexpr double kHundred = 100;

constexpr std::string_view kMoves[] = {"", "in", "out", "left", "right", "up", "down"};
constexpr std::string_view kRotations[] = {"", "left", "right", "up", "down"};

struct LevelRange {
  EffectSwitch effect;
  int min, max;
  const char* name;
};
constexpr LevelRange kLevelRanges[kEffectLevels] = {
    {EffectSwitch::Blur, 0, 100, "Blur"},
    {EffectSwitch::MotionBlur, 0, 100, "Motion blur strength"},
    {EffectSwitch::MotionBlur, 0, 360, "Motion blur direction"},
    {EffectSwitch::FilmAge, 1, 100, "Film age"}};

struct EaseRange {
  const char* name;
  int max;  // hundredths
  const Single& (Movie::*get)() const;
  void (Movie::*set)(Single);
};
constexpr EaseRange kEaseRanges[kEaseLevels] = {
    {"Ease progress", 100, &Movie::EaseDuration, &Movie::EaseDuration},
    {"Motion speed", 500, &Movie::MoveSpeedA, &Movie::MoveSpeedA},
    {"Starting magnification", 500, &Movie::InitialScaleA, &Movie::InitialScaleA},
    {"Ending magnification", 500, &Movie::ScaleA, &Movie::ScaleA}};

std::size_t indexOf(EffectLevel level) { return static_cast<std::size_t>(level); }
std::size_t indexOf(EaseLevel level) { return static_cast<std::size_t>(level); }

// The place of a direction in its list, in any case; none for one that is not there.
int placeOf(std::span<const std::string_view> list, const std::string& direction) {
  const auto found = std::find_if(list.begin(), list.end(),
                                  [&](std::string_view entry) { return sameText(entry, direction); });
  return found == list.end() ? 0 : static_cast<int>(found - list.begin());
}

std::string captionOf(const Editing& e, int position) {
  switch (static_cast<EffectSwitch>(position)) {
    case EffectSwitch::Blur:
    case EffectSwitch::MotionBlur:
      return "Blur On / Off";
    case EffectSwitch::FilmAge:
      return "Age On / Off";
    case EffectSwitch::Ease:
      return "On\\Off";
    default:
      return effectCaption(e, position);
  }
}

// What a step of the history is called by.
std::string actOf(const Editing& e, int position) {
  switch (static_cast<EffectSwitch>(position)) {
    case EffectSwitch::Blur:
      return "Blur";
    case EffectSwitch::MotionBlur:
      return "Motion blur";
    case EffectSwitch::FilmAge:
      return "Film age";
    case EffectSwitch::Ease:
      return "Ease";
    default:
      return effectCaption(e, position);
  }
}

ClipSlider sliderOf(int min, int max, int value, bool enabled) {
  return {std::min(min, value), std::max(max, value), value, enabled, {}};
}

void readEase(const Movie& clip, bool on, EasePanel& ease) {
  ease.whyNot = on ? "" : "Switch the effect on first";
  ease.EaseIN = clip.EaseIN();
  const auto headings = SetEaseSliderHeadings(clip);
  for (std::size_t i = 0; i < kEaseLevels; ++i) {
    const auto& range = kEaseRanges[i];
    ease.sliders[i] =
        sliderOf(0, range.max, toLongClamped(RoundToWhole(decimal((clip.*range.get)()) * kHundred)), on);
    ease.sliders[i].heading = headings[i];
  }
  ease.direction = placeOf(kMoves, clip.MoveADirection());
  ease.rotation = placeOf(kRotations, clip.MoveARotationDirection());
  ease.Chk_RotateCam = clip.RevolveCamera();
}

// Brings all that the tab shows of the chosen clip in line with its record.
void readRecord(const Editing& e, EffectTab& tab) {
  const int clipNo = chosenClip(tab.Lst_Clips);
  tab.enabled = clipNo >= 1 && clipNo <= e.clips().count();
  const bool wasOpen = tab.ease.open;
  tab.controls = tab.enabled ? DecodeStaticClipEffectWord(e, clipNo) : EffectControls();
  for (int i = 1; i <= EffectWord::kSwitches; ++i) {
    auto& face = tab.faces[static_cast<std::size_t>(i)];
    const bool on = tab.controls.switches.isOn(i);
    const int number = effectNumber(e, i);
    face = {
        captionOf(e, i), {}, on, on && number > 0 && KeyframeCount(e, number, tab.enabled ? clipNo : 0) > 1};
    if (i >= kFirstPaletteSlot && i <= kLastPaletteSlot)
      face.tip = translated("Right click to configure %1 options", {face.caption});
  }
  const int values[kEffectLevels] = {tab.controls.Sld_Blur, tab.controls.Sld_MotionBlurStrength,
                                     tab.controls.Sld_MotionDir, tab.controls.Sld_FilmAge};
  for (std::size_t i = 0; i < kEffectLevels; ++i) {
    const auto& range = kLevelRanges[i];
    tab.levels[i] = sliderOf(range.min, range.max, values[i], tab.controls.switches.isOn(range.effect));
    tab.levels[i].whyNot = tab.enabled ? "Switch the effect on first" : "Choose a clip first";
  }
  const bool eases = tab.controls.switches.isOn(EffectSwitch::Ease);
  readEase(tab.enabled ? e.clips()[clipNo] : Movie(), eases, tab.ease);
  tab.ease.open = wasOpen && eases;
}

// One step of the history on the chosen clip, and what the window shows behind it.
void change(const Editing& e, EffectTab& tab, TabHost& host, std::string_view act,
            const std::function<void(Movie&)>& work) {
  const int clipNo = chosenClip(tab.Lst_Clips);
  if (!tab.enabled) return;
  const bool done = host.edit(act, clipNo, 0, [&] { work(e.clips()[clipNo]); });
  readRecord(e, tab);
  if (!done) return;
  host.ShowClipStats();
  host.sample(Sample::Effect, clipNo);
}

void fillList(const Editing& e, EffectTab& tab) {
  tab.Lst_Clips.texts.assign(PopulateMovieListBoxes(e, ListedClips::WithPicture));
  SetMovieLstToMainIndex(e, tab.Lst_Clips);
}

void giveEaseDefault(Movie& clip) {
  if (clip.InitialScaleA() == 0 && clip.ScaleA() == 0) applyEaseDefaultOut(clip);
}

// A clip without effects shows none, and the sample of another must not stand for it.
void sampleEffects(const EffectTab& tab, TabHost& host, bool isOther) {
  if (tab.enabled && tab.controls.switches.any())
    return host.sample(Sample::Effect, chosenClip(tab.Lst_Clips));
  if (isOther) host.KillPreview();
}

// While it is the only one it stands for the sliders.
void updateMotionKeyframe(const Editing& e, const Movie& clip) {
  if (KeyframeCount(e, kMotionBlurEffect, 0) != 1) return;
  BaseKeyframe base;
  base.name = "MotionBlur";
  base.param[0] = std::to_string(clip.MBlurStrength());
  base.param[1] = std::to_string(clip.MBlurDirection());
  const auto& keyframes = e.collection.KeyframeList;
  for (int i = 1; i <= keyframes.count(); ++i) {  // whether it is laid over the picture stays
    const auto& k = keyframes[i];
    if (k.ClipName == clip.KeyID() && k.EffectNo == kMotionBlurEffect) base.param[2] = k.Param[2].text();
  }
  WriteBaseKeyFrameToCollection(e, std::move(base), true);
}

// No clip has a picture.
void leaveEmpty(const Editing& e, EffectTab& tab, TabHost& host) {
  readRecord(e, tab);
  host.Buildtabs(1);
  e.settings.state.ObjectChange = kMembershipChanged;
}

}  // namespace

std::span<const std::string_view> moveDirections() { return kMoves; }
std::span<const std::string_view> rotationDirections() { return kRotations; }

void enterTab(const Editing& e, EffectTab& tab, TabHost& host) {
  tab.ease.open = false;
  fillList(e, tab);
  if (tab.Lst_Clips.rows().empty()) return leaveEmpty(e, tab, host);
  if (!tab.Lst_Clips.hasChoice()) return chooseEffectClip(e, tab, host, 0);
  readRecord(e, tab);
}

void followTab(const Editing& e, EffectTab& tab, TabHost& host, bool rebuild) {
  const int before = chosenClip(tab.Lst_Clips);
  if (rebuild || tab.Lst_Clips.rows().empty()) fillList(e, tab);
  if (tab.Lst_Clips.rows().empty()) return leaveEmpty(e, tab, host);
  SetMovieLstToMainIndex(e, tab.Lst_Clips);
  if (!tab.Lst_Clips.hasChoice()) {
    host.Buildtabs(kAudioTab);
    return;
  }
  readRecord(e, tab);
  if (rebuild) sampleEffects(tab, host, chosenClip(tab.Lst_Clips) != before);
}

void chooseEffectClip(const Editing& e, EffectTab& tab, TabHost& host, int row) {
  tab.Lst_Clips.ListIndex = row;
  if (tab.Lst_Clips.hasChoice()) host.UpDateFrmFileOpen(chosenClip(tab.Lst_Clips), false);
  SetMovieLstToMainIndex(e, tab.Lst_Clips);
  readRecord(e, tab);
  host.buildClipSliders();
  host.ShowClipStats();
  sampleEffects(tab, host, true);
}

void tickEffect(const Editing& e, EffectTab& tab, TabHost& host, int position, bool on) {
  change(e, tab, host, actOf(e, position), [&](Movie& clip) {
    auto controls = tab.controls;
    switchEffect(e, controls, position, on);
    if (on && position == kEasePosition) giveEaseDefault(clip);
  });
  tab.ease.open = position == kEasePosition && tab.controls.switches.isOn(EffectSwitch::Ease);
}

std::vector<std::string> effectNames(const EffectTab& tab) {
  std::vector<std::string> names;
  for (int i = 1; i <= kLastPaletteSlot; ++i) names.push_back(tab.faces[static_cast<std::size_t>(i)].caption);
  return names;
}

void tickNamed(const Editing& e, EffectTab& tab, TabHost& host, NameChooser& names, int position, bool on) {
  tickEffect(e, tab, host, position, on);
  const auto& face = tab.faces[static_cast<std::size_t>(position)];
  if (face.isOn) names.noteUse(face.caption);
}

Configured configure(const Editing& e, EffectTab& tab, TabHost& host, int position) {
  if (!tab.enabled) return {.showsKeyframes = false, .whyNot = "Choose a clip first"};
  if (!tab.controls.switches.isOn(position))
    return {.showsKeyframes = false, .whyNot = "Switch the effect on first"};
  if (position == kEasePosition) {
    showEaseOpts(e, tab, host, true);
    return {};
  }
  if (position == kFilmAgePosition)
    return {.showsKeyframes = false, .whyNot = "The age of a film has no keyframes"};
  return {.showsKeyframes = configureEffect(e, position), .whyNot = {}};
}

void moveEffectLevel(const Editing& e, EffectTab& tab, TabHost& host, EffectLevel level, int value) {
  change(e, tab, host, kLevelRanges[indexOf(level)].name, [&](Movie& clip) {
    const auto stored = toInteger(value).value_or(0);
    switch (level) {
      case EffectLevel::Blur:
        return clip.BlurInt(stored);
      case EffectLevel::MotionStrength:
        clip.MBlurStrength(stored);
        return updateMotionKeyframe(e, clip);
      case EffectLevel::MotionDirection:
        clip.MBlurDirection(stored);
        return updateMotionKeyframe(e, clip);
      case EffectLevel::FilmAge:
        return clip.AgeIntensity(stored);
    }
  });
}

void showEaseOpts(const Editing& e, EffectTab& tab, TabHost& host, bool open) {
  if (open && tab.enabled) {
    const auto& clip = e.clips()[chosenClip(tab.Lst_Clips)];
    if (clip.InitialScaleA() == 0 && clip.ScaleA() == 0) {
      change(e, tab, host, "Ease", [](Movie& eased) { giveEaseDefault(eased); });
    }
  }
  tab.ease.open = open && tab.controls.switches.isOn(EffectSwitch::Ease);
}

void chooseEase(const Editing& e, EffectTab& tab, TabHost& host, bool in) {
  change(e, tab, host, "Ease", [&](Movie& clip) { clip.EaseIN(in); });
}

void moveEase(const Editing& e, EffectTab& tab, TabHost& host, EaseLevel level, int hundredths) {
  const auto& range = kEaseRanges[indexOf(level)];
  change(e, tab, host, range.name, [&](Movie& clip) {
    (clip.*range.set)(hundredths < 1 ? 0 : static_cast<Single>(hundredths / kHundred));
  });
}

void chooseMoveDirection(const Editing& e, EffectTab& tab, TabHost& host, int direction) {
  change(e, tab, host, "Ease direction",
         [&](Movie& clip) { clip.MoveADirection(std::string(kMoves[static_cast<std::size_t>(direction)])); });
}

void chooseRotation(const Editing& e, EffectTab& tab, TabHost& host, int rotation) {
  change(e, tab, host, "Ease rotation", [&](Movie& clip) {
    clip.MoveARotationDirection(std::string(kRotations[static_cast<std::size_t>(rotation)]));
  });
}

void tickRotateCam(const Editing& e, EffectTab& tab, TabHost& host, bool on) {
  change(e, tab, host, "Ease camera", [&](Movie& clip) { clip.RevolveCamera(on); });
}

void pressEaseDefault(const Editing& e, EffectTab& tab, TabHost& host, bool in) {
  change(e, tab, host, in ? "Ease in" : "Ease out",
         [&](Movie& clip) { in ? applyEaseDefaultIn(clip) : applyEaseDefaultOut(clip); });
}

}  // namespace kvo
