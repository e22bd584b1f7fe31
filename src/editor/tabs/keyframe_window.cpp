#include "editor/tabs/keyframe_window.h"

#include "base/text.h"
#include "core/telling/translated.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_word.h"
#include "editor/tabs/effect_panel.h"
#include "editor/tabs/effects_file.h"
#include "editor/tabs/keyframe_edits.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace kvo {
namespace {

constexpr int kFullLevelPercent = 100;
constexpr int kBlurMost = 100;       // pixels
constexpr int kDirectionMost = 360;  // degrees
constexpr std::string_view kFrameReading = "00####";
constexpr std::string_view kTextured[] = {"ConteCrayon", "RoughPastel", "Texturizer", "Underpainting"};

Keyframe& keyframeOf(const Editing& e, int line) {
  return e.collection.KeyframeList[keyframesInHand(e)[static_cast<std::size_t>(line)]];
}

Long frameOfLine(const Editing& e, int line) {
  return framesThatCount(e, e.clips()[e.collection.icurMov]).frameOf(keyframeOf(e, line));
}

bool hasLine(const KeyframeWindow& window) { return window.Lst_Keyframes.hasChoice(); }

std::string& colourOf(Keyframe& k, std::size_t index) {
  std::string* const all[kKeyframeColours] = {&k.FC, &k.BC, &k.EC, &k.TextureFile};
  return *all[index];
}

int wholeOf(double value) { return toLongClamped(RoundToWhole(value)); }

// The values that the controls begin with where there is no keyframe yet.
Keyframe valuesWithoutKeyframe(const Editing& e, const KeyframeWindow& window) {
  Keyframe values;
  const auto& clip = e.clips()[window.clipNo];
  if (window.controls == KeyframeControls::Blur) {
    values.Param[0] = Value(clip.BlurInt());
  } else if (window.controls == KeyframeControls::MotionBlur) {
    values.Param[0] = Value(clip.MBlurStrength());
    values.Param[1] = Value(clip.MBlurDirection());
    values.Param[2] = Value(0);
  } else {
    const auto* row = e.editor.effects.named(window.effectName);
    if (row == nullptr) return values;
    for (std::size_t i = 0; i < row->Control.size(); ++i) values.Param[i] = Value(row->Control[i]);
    values.Transparency = static_cast<Single>(ToNumber(row->Transparency));
    values.FC = row->foreColor;
    values.BC = row->backColor;
    values.EC = row->extraColor;
    values.TextureFile = row->texture;
  }
  return values;
}

Keyframe shownValues(const Editing& e, const KeyframeWindow& window) {
  return hasLine(window) ? keyframeOf(e, window.Lst_Keyframes.ListIndex) : valuesWithoutKeyframe(e, window);
}

double levelOf(const KeyframeWindow& window, const Keyframe& k) {
  const double percent =
      window.controls == KeyframeControls::Table ? decimal(k.Transparency) : k.Param[0].number();
  return std::clamp(percent / kFullLevelPercent, 0.0, 1.0);
}

// The whole names of the colours, as the file beside the program lists them.
std::vector<std::string> LoadColorArrays(const Editing& e) {
  std::vector<std::string> names{"None"};
  const auto bytes = e.files.read(e.folder.beside("\\ParamCols.dat"), kMaxTableFile);
  if (!bytes) return names;
  const auto text = textFromBytes(*bytes);
  std::string_view rest(text);
  while (!rest.empty()) {
    if (const auto name = trimmed(nextLine(rest)); !name.empty()) names.emplace_back(name);
  }
  return names;
}

int MatchColortoList(const std::vector<std::string>& names, const std::string& colour) {
  const auto found = std::find(names.begin(), names.end(), colour);
  return found == names.end() ? 0 : static_cast<int>(found - names.begin());
}

ClipSlider keyframeSlider(int max, double value, std::string heading) {
  const int whole = wholeOf(value);
  return {std::min(0, whole), std::max(max, whole), whole, true, std::move(heading)};
}

void loadControls(const Editing& e, KeyframeWindow& window) {
  auto values = shownValues(e, window);
  auto& sliders = window.sliders;
  switch (window.controls) {
    case KeyframeControls::Blur:
      sliders[0] = keyframeSlider(kBlurMost, values.Param[0].number(), "Blur radius");
      return;
    case KeyframeControls::MotionBlur:
      sliders[0] = keyframeSlider(kBlurMost, values.Param[0].number(), "Strength");
      sliders[1] = keyframeSlider(kDirectionMost, values.Param[1].number(), "Direction");
      window.Chk_MblurAddative = values.Param[2].number() != 0;
      return;
    case KeyframeControls::Table:
      break;
  }
  sliders[0] = keyframeSlider(kFullLevelPercent, decimal(values.Transparency), "Effect Level");
  for (std::size_t i = 0; i < values.Param.size(); ++i)
    sliders[i + 1] = keyframeSlider(kFullLevelPercent, values.Param[i].number(),
                                    translated("Control %1", {std::to_string(i + 1)}));
  for (std::size_t i = 0; i < kKeyframeColours; ++i)
    window.Cmb_ParamColor[i].chosen = MatchColortoList(window.colours, colourOf(values, i));
  const bool isTextured =
      std::find(std::begin(kTextured), std::end(kTextured), window.effectName) != std::end(kTextured);
  window.Cmb_ParamColor.back().whyNot = isTextured ? "" : "This effect has no texture";
}

// Loads the controls from the chosen keyframe, or from where there is none yet.
void SetEffectParams(const Editing& e, KeyframeWindow& window) {
  window.sliders.fill({});
  loadControls(e, window);
  for (std::size_t i = 0; i < kKeyframeSliders; ++i) {
    const bool isLevel = i == 0 && window.controls == KeyframeControls::Table;
    window.readings[i] = std::to_string(window.sliders[i].Value) + (isLevel ? "%" : "");
  }
}

void UpdateFrameDisplay(KeyframeWindow& window) {
  window.Lbl_Frame =
      translated("Current Frame = %1 of %2", {FormatMask(window.Sld_FramePosMaster.Value, kFrameReading),
                                              FormatMask(window.Sld_FramePosMaster.Max, kFrameReading)});
}

void ScaleSlider(const Editing& e, KeyframeWindow& window) {
  const auto range = framesThatCount(e, e.clips()[window.clipNo]);
  auto& master = window.Sld_FramePosMaster;
  const Long last = std::max(range.first, range.last);
  master = {range.first, last, std::clamp<int>(master.Value, range.first, last), true, {}};
  UpdateFrameDisplay(window);
}

void fillKeyframes(const Editing& e, KeyframeWindow& window) {
  const auto range = framesThatCount(e, e.clips()[window.clipNo]);
  auto& list = window.Lst_Keyframes;
  list.texts.assign(AddKeyFramesToList(e));
  const int last = static_cast<int>(list.rows().size()) - 1;
  list.ListIndex = std::min(std::max(list.ListIndex, 0), last);
  window.whyNoDelete = last > 0 ? "" : "The first keyframe stays";
  window.ignored.clear();
  window.points.clear();
  for (int line = 0; line <= last; ++line) {
    const auto& k = keyframeOf(e, line);
    const Long frame = range.frameOf(k);
    const bool isOutside = frame > range.last || frame < range.first;
    window.ignored.push_back(isOutside);
    if (!isOutside) window.points.push_back({line, frame, levelOf(window, k)});
  }
  std::stable_sort(window.points.begin(), window.points.end(),
                   [](const auto& a, const auto& b) { return a.frame < b.frame; });
}

void readKeyframes(const Editing& e, KeyframeWindow& window) {
  ScaleSlider(e, window);
  fillKeyframes(e, window);
  SetEffectParams(e, window);
}

void PreviewKeyFrame(const KeyframeWindow& window, TabHost& host) {
  if (window.instantPreview) host.sample(Sample::Keyframe, window.clipNo);
}

// One step of the history on the keyframes of the clip, and what the window shows behind it.
void changeKeyframes(const Editing& e, KeyframeWindow& window, TabHost& host, std::string_view act,
                     const std::function<void()>& work) {
  if (host.edit(act, window.clipNo, 0, work)) PreviewKeyFrame(window, host);
  readKeyframes(e, window);
}

void storeInTable(const Editing& e, const KeyframeWindow& window, Keyframe values) {
  EffectRow row;
  row.name = window.effectName;
  for (std::size_t i = 0; i < row.Control.size(); ++i) row.Control[i] = values.Param[i].text();
  row.Transparency = ShortText(values.Transparency);
  std::string* const colours[kKeyframeColours] = {&row.foreColor, &row.backColor, &row.extraColor,
                                                  &row.texture};
  for (std::size_t i = 0; i < kKeyframeColours; ++i) *colours[i] = colourOf(values, i);
  e.editor.effects.WriteEffectParamsToArray(row);
}

void storeInClip(Movie& clip, KeyframeControls controls, const Keyframe& values) {
  const auto whole = [&](std::size_t i) {
    return toInteger(RoundToWhole(values.Param[i].number())).value_or(0);
  };
  if (controls == KeyframeControls::Blur) return clip.BlurInt(whole(0));
  clip.MBlurStrength(whole(0));
  clip.MBlurDirection(whole(1));
}

// Values that a control has changed: into the chosen keyframe, or where there is none into the effect's row
// of the table, or the clip's own.
void storeValues(const Editing& e, KeyframeWindow& window, TabHost& host,
                 const std::function<void(Keyframe&)>& set) {
  if (hasLine(window)) {
    const int line = window.Lst_Keyframes.ListIndex;
    changeKeyframes(e, window, host, "Keyframe", [&] { set(keyframeOf(e, line)); });
    return;
  }
  auto values = valuesWithoutKeyframe(e, window);
  set(values);
  if (window.controls != KeyframeControls::Table) {
    changeKeyframes(e, window, host, window.effectName,
                    [&] { storeInClip(e.clips()[window.clipNo], window.controls, values); });
    return;
  }
  changeKeyframes(e, window, host, window.effectName, [&] { storeInTable(e, window, std::move(values)); });
}

// The line of a frame; -1 for none.
int lineOfFrame(const Editing& e, Long frame) {
  const auto own = keyframesInHand(e);
  const auto range = framesThatCount(e, e.clips()[e.collection.icurMov]);
  const auto found = std::find_if(
      own.begin(), own.end(), [&](int i) { return range.frameOf(e.collection.KeyframeList[i]) == frame; });
  return found == own.end() ? -1 : static_cast<int>(found - own.begin());
}

// Whether the clip has the effect.
bool isSwitchedOn(const Editing& e, const KeyframeWindow& window) {
  const EffectWord word(e.clips()[window.clipNo].EffectWord());
  for (int position = 1; position <= EffectWord::kSwitches; ++position) {
    if (word.isOn(position) && effectNumber(e, position) == window.effectNo) return true;
  }
  return false;
}

std::string effectNameOf(const Editing& e, int effectNo) {
  if (effectNo == kBlurEffect) return "Blur";
  if (effectNo == kMotionBlurEffect) return "Motion blur";
  return e.editor.effects.GetEffectNameFromID(effectNo);
}

}  // namespace

KeyframeParts partsOf(KeyframeControls controls) {
  switch (controls) {
    case KeyframeControls::Blur:
      return {.sliders = 1};
    case KeyframeControls::MotionBlur:
      return {.sliders = 2, .additive = true};
    case KeyframeControls::Table:
      break;
  }
  return {.sliders = kKeyframeSliders, .colours = true};
}

bool ActivateKeyFrameForm(const Editing& e, KeyframeWindow& window, TabHost& host) {
  const int clipNo = e.collection.icurMov;
  const int effectNo = e.settings.state.KeyframeEffectNo;
  if (clipNo < 1 || effectNo < 1) return false;
  const auto& clip = e.clips()[clipNo];
  if (clip.IsStill() && clip.DurationFrames().number() <= 0 && clip.LoopEndFrames() <= 0) {
    e.boxes.show({"KVO5 - Clip format Error", "The duration of this clip is reported as 0 seconds",
                  BoxButtons::Ok, BoxIcon::Warning});
    return false;
  }
  host.UpDateFrmFileOpen(clipNo, false);
  const bool instantPreview = window.instantPreview;
  window = KeyframeWindow();
  window.instantPreview = instantPreview;
  window.visible = true;
  window.controls = effectNo == kBlurEffect         ? KeyframeControls::Blur
                    : effectNo == kMotionBlurEffect ? KeyframeControls::MotionBlur
                                                    : KeyframeControls::Table;
  window.clipNo = clipNo;
  window.clipKey = clip.KeyID();
  window.effectNo = effectNo;
  window.clipName = listedName(clip);
  window.effectName = effectNameOf(e, effectNo);
  window.colours = LoadColorArrays(e);
  window.Sld_FramePosMaster.Value = 0;  // it comes up to the first
  e.settings.state.KeyframeMode = kFlagOn;
  e.settings.state.KeyframePreview = window.instantPreview;
  readKeyframes(e, window);
  return true;
}

void SuspendKeyframeForm(const Editing& e, KeyframeWindow& window) {
  window.visible = false;
  e.settings.state.KeyframeMode = 0;
  e.settings.state.KeyframePreview = false;
}

void followKeyframes(const Editing& e, KeyframeWindow& window) {
  if (!window.visible) return;
  const int inHand = e.collection.icurMov;
  const bool isSameClip = inHand >= 1 && e.clips()[inHand].KeyID() == window.clipKey;
  window.clipNo = inHand;
  if (!isSameClip || e.settings.state.KeyframeEffectNo != window.effectNo || !isSwitchedOn(e, window))
    return SuspendKeyframeForm(e, window);
  readKeyframes(e, window);
}

void moveToFrame(KeyframeWindow& window, int frame) {
  auto& master = window.Sld_FramePosMaster;
  master.Value = std::clamp(frame, master.Min, master.Max);
  UpdateFrameDisplay(window);
}

void chooseKeyframe(const Editing& e, KeyframeWindow& window, TabHost& host, int line) {
  window.Lst_Keyframes.ListIndex = line;
  if (!hasLine(window)) return;
  moveToFrame(window, frameOfLine(e, line));
  SetEffectParams(e, window);
  PreviewKeyFrame(window, host);
}

void addKeyframeHere(const Editing& e, KeyframeWindow& window, TabHost& host) {
  const Long frame = window.Sld_FramePosMaster.Value;
  if (KeyFrameExists(e, window.clipNo, frame, window.effectNo)) {
    tellTakenFrame(e, frame);
    return;
  }
  changeKeyframes(e, window, host, "New keyframe", [&] {
    CheckKeyFrameZeroInitValue(e);  // and the controls with it
    AddKeyFrame(e, frame, shownValues(e, window));
  });
  if (const int line = lineOfFrame(e, frame); line >= 0) window.Lst_Keyframes.ListIndex = line;
  SetEffectParams(e, window);
}

void deleteChosenKeyframe(const Editing& e, KeyframeWindow& window, TabHost& host) {
  if (!window.whyNoDelete.empty() || !hasLine(window)) return;
  const int line = window.Lst_Keyframes.ListIndex;
  window.Lst_Keyframes.ListIndex = std::max(line - 1, 0);
  changeKeyframes(e, window, host, "Delete keyframe", [&] { deleteKeyframe(e, line + 1); });
}

void deleteAllKeyframes(const Editing& e, KeyframeWindow& window, TabHost& host) {
  window.Lst_Keyframes.ListIndex = 0;
  changeKeyframes(e, window, host, "Delete all keyframes", [&] { KillAllKeyframeData(e); });
}

void dragKeyframe(const Editing& e, KeyframeWindow& window, TabHost& host, int line, Long frame,
                  double level) {
  window.Lst_Keyframes.ListIndex = line;
  if (!hasLine(window)) return;
  const auto& master = window.Sld_FramePosMaster;
  const Long wanted = std::clamp<Long>(frame, master.Min, master.Max);
  const int percent = wholeOf(std::clamp(level, 0.0, 1.0) * kFullLevelPercent);
  changeKeyframes(e, window, host, "Move keyframe", [&] {
    auto& k = keyframeOf(e, line);
    if (!isBase(k) && lineOfFrame(e, wanted) < 0) placeKeyframe(e, k, wanted);
    if (window.controls == KeyframeControls::Table) {
      k.Transparency = static_cast<Single>(percent);
    } else {
      k.Param[0] = Value(percent);
    }
  });
  moveToFrame(window, frameOfLine(e, line));
}

void moveKeyframeSlider(const Editing& e, KeyframeWindow& window, TabHost& host, std::size_t index,
                        int value) {
  storeValues(e, window, host, [&](Keyframe& k) {
    if (window.controls != KeyframeControls::Table) {
      k.Param[index] = Value(value);
    } else if (index == 0) {
      k.Transparency = static_cast<Single>(value);
    } else {
      k.Param[index - 1] = Value(value);
    }
  });
}

void tickMblurAddative(const Editing& e, KeyframeWindow& window, TabHost& host, bool on) {
  storeValues(e, window, host, [&](Keyframe& k) { k.Param[2] = Value(on ? 1 : 0); });
}

void chooseParamColor(const Editing& e, KeyframeWindow& window, TabHost& host, std::size_t index,
                      int chosen) {
  const auto name = chosen < 1 ? std::string() : window.colours.at(static_cast<std::size_t>(chosen));
  storeValues(e, window, host, [&](Keyframe& k) { colourOf(k, index) = name; });
}

void tickInstantPreview(const Editing& e, KeyframeWindow& window, TabHost& host, bool on) {
  window.instantPreview = on;
  e.settings.state.KeyframePreview = on;
  PreviewKeyFrame(window, host);
}

}  // namespace kvo
