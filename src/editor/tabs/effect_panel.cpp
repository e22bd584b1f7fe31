#include "editor/tabs/effect_panel.h"

#include "base/text.h"
#include "editor/tabs/keyframe_edits.h"
#include "vocabulary/effects.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kFirstSlot = static_cast<int>(EffectSwitch::FirstPaletteSlot);
constexpr int kLastSlot = static_cast<int>(EffectSwitch::LastPaletteSlot);
constexpr Integer kMotionStrength = 14;
constexpr Integer kMotionDirection = 20;  // degrees
constexpr std::string_view kOlderSystems[] = {"ME", "98", "NT3", "2K", "NT4", "95"};

void switchOnBlur(Movie& clip, EffectControls& controls) {
  if (controls.Sld_Blur != 0) return;
  controls.Sld_Blur = 4;
  clip.BlurInt(4);
}

void switchOnMotionBlur(const Editing& e, Movie& clip, EffectControls& controls) {
  if (controls.Sld_MotionBlurStrength < 2) clip.MBlurStrength(kMotionStrength);
  if (controls.Sld_MotionDir < 2) clip.MBlurDirection(kMotionDirection);
  controls.Sld_MotionBlurStrength = clip.MBlurStrength();
  controls.Sld_MotionDir = clip.MBlurDirection();
  BaseKeyframe base;
  base.name = "MotionBlur";
  base.param[0] = "14";
  base.param[1] = "20";
  WriteBaseKeyFrameToCollection(e, std::move(base), false);
}

void switchOnFilmAge(Movie& clip, EffectControls& controls) {
  if (controls.Sld_FilmAge != 1) return;
  controls.Sld_FilmAge = 35;
  clip.AgeIntensity(35);
}

void applyEase(Movie& clip, Single initialScale, const char* direction) {
  clip.EaseDuration(0);
  clip.ScaleA(1);
  clip.InitialScaleA(initialScale);
  clip.MoveSpeedA(1);
  clip.MoveADirection(direction);
  clip.MoveARotationDirection("");
  clip.RevolveCamera(false);
}

}  // namespace

std::string effectCaption(const Editing& e, int position) {
  if (position < kFirstSlot) return std::string(kBuiltInEffects.at(static_cast<std::size_t>(position - 1)));
  const auto* row = e.editor.effects.slot(position - kFirstSlot + 1);
  return row == nullptr ? std::string() : row->name;
}

int effectNumber(const Editing& e, int position) {
  if (position == static_cast<int>(EffectSwitch::Blur)) return kBlurEffect;
  if (position == static_cast<int>(EffectSwitch::MotionBlur)) return kMotionBlurEffect;
  int id = 0;
  if (position >= kFirstSlot && position <= kLastSlot)
    e.editor.effects.GetEffectIDFromName(effectCaption(e, position), id);
  return id;
}

void CreateStaticClipEffectWord(const Editing& e, const EffectControls& controls, int clipNo) {
  if (clipNo < 1) return;
  for (int i = 1; i <= kLastSlot; ++i) {
    if (controls.switches.isOn(i)) continue;
    removeKeyframes(e, clipNo, effectNumber(e, i));
  }
  e.clips()[clipNo].EffectWord(controls.switches.text());
}

EffectControls DecodeStaticClipEffectWord(const Editing& e, int clipNo) {
  const auto& clip = e.clips()[clipNo];
  return {EffectWord(clip.EffectWord()), clip.BlurInt(), clip.MBlurStrength(), clip.MBlurDirection(),
          std::max<int>(clip.AgeIntensity(), 1)};
}

void ValidateEffectWordfromInterface(const Editing& e, const EffectControls& controls, int clipNo) {
  if (clipNo < 1 || controls.switches.any()) return;
  e.clips()[clipNo].EffectWord("");
  e.clips()[clipNo].HasKeyFrames(false);
  removeKeyframes(e, clipNo, std::nullopt);
}

void switchEffect(const Editing& e, EffectControls& controls, int position, bool on) {
  const int clipNo = e.collection.icurMov;
  if (clipNo < 1) return;
  auto& clip = e.clips()[clipNo];
  controls.switches.set(position, on);
  const int id = effectNumber(e, position);
  if (!on) {
    if (id > 0) removeKeyframes(e, clipNo, id);
    CreateStaticClipEffectWord(e, controls, clipNo);
    ValidateEffectWordfromInterface(e, controls, clipNo);
    return;
  }
  switch (static_cast<EffectSwitch>(position)) {
    case EffectSwitch::Blur:
      switchOnBlur(clip, controls);
      break;
    case EffectSwitch::MotionBlur:
      switchOnMotionBlur(e, clip, controls);
      break;
    case EffectSwitch::FilmAge:
      switchOnFilmAge(clip, controls);
      break;
    default:
      if (id > 0) {
        e.settings.state.KeyframeEffectNo = static_cast<Integer>(id);
        AddSingleBaseKeyFrame(e);
      }
  }
  CreateStaticClipEffectWord(e, controls, clipNo);
}

bool configureEffect(const Editing& e, int position) {
  if (position < kFirstSlot) {
    e.boxes.show({"KVO - No Configurable Options", "There are no configurable options for this effect.",
                  BoxButtons::Ok, BoxIcon::Information});
    return false;
  }
  const int id = effectNumber(e, position);
  e.settings.state.KeyframeEffectNo = static_cast<Integer>(id);
  return id > 0;
}

void applyEaseDefaultIn(Movie& clip) { applyEase(clip, 0.75F, ""); }
void applyEaseDefaultOut(Movie& clip) { applyEase(clip, 1, "out"); }

std::vector<std::string> SetEaseSliderHeadings(const Movie& clip) {
  const auto number = [](Single value, std::string_view mask) {
    return FormatMask(ToNumber(ShortText(value)), mask);
  };
  return {"Ease Progress speed - Log(n) - " + number(clip.EaseDuration(), "0.0##"),
          "Motion Speed - " + number(clip.MoveSpeedA(), "#0.0##"),
          "Starting magnification - " + number(clip.InitialScaleA(), "#0.0##") + "x",
          "Ending magnification - " + number(clip.ScaleA(), "#0.0##") + "x"};
}

void ResetObjForNonEffectOs(Movie& clip, std::string_view systemTag) {
  if (std::find(std::begin(kOlderSystems), std::end(kOlderSystems), systemTag) == std::end(kOlderSystems))
    return;
  clip.Sepia(false);
  clip.Red(0);
  clip.Green(0);
  clip.Blue(0);
  clip.Threshold(0);
}

}  // namespace kvo
