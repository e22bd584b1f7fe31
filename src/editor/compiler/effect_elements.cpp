#include "editor/compiler/effect_elements.h"

#include "base/text.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_word.h"
#include "editor/compiler/transition_families.h"
#include "vocabulary/effects.h"

#include <array>
#include <cmath>

namespace kvo {
namespace {

constexpr double kPastEnd = 14.0;       // seconds that an effect reaches past its clip
constexpr double kColourPastEnd = 4.0;  // the same of the colour block

struct Span {
  std::string start;
  std::string stop;
};

std::string opening(std::string_view effect, const Span& span, std::string_view end) {
  return blanks(15) + "<effect clsid=" + quoted(GetEffectClsid(effect)) + " start=" + quoted(span.start) +
         " stop=" + quoted(span.stop) + std::string(end) + "\r\n";
}

std::string withParams(std::string_view effect, const Span& span, const std::string& params) {
  return opening(effect, span, " >") + params + blanks(15) + "</effect>\r\n";
}

std::string basicImageParams(const EffectWord& word) {
  struct Row {
    EffectSwitch effect;
    std::string_view name;
    std::string_view value;
  };
  constexpr std::array kRows = {
      Row{EffectSwitch::Mirror, "mirror", "1"}, Row{EffectSwitch::Invert, "invert", "1"},
      Row{EffectSwitch::FlipVertical, "rotation", "2"}, Row{EffectSwitch::XRay, "xray", "1"},
      Row{EffectSwitch::Grayscale, "grayscale", "1"}};
  std::string params;
  for (const auto& row : kRows) {
    if (!word.isOn(row.effect)) continue;
    params += (params.empty() ? blanks(15) : std::string()) + paramLine(row.name, row.value);
  }
  return params;
}

std::string easeParams(const Movie& clip) {
  auto params = paramLine("InternalName", "Simple3D") +
                paramLine("ExponentialProgressDuration", fieldText(clip.EaseDuration())) +
                paramLine("ScaleA", fieldText(clip.ScaleA())) +
                paramLine("InitialScaleA", fieldText(clip.InitialScaleA())) +
                paramLine("MoveA", clip.MoveADirection()) +
                paramLine("MoveSpeedA", fieldText(clip.MoveSpeedA()));
  if (clip.RevolveCamera()) params += paramLine("RevolveCamera", "True") + paramLine("ShowABack", "True");
  if (!clip.MoveARotationDirection().empty()) {
    params += paramLine("RotateA", clip.MoveARotationDirection()) + paramLine("ShowABack", "True");
  }
  return params;
}

constexpr std::array<std::string_view, 13> kPaletteParams = {
    "Control1Value", "Control2Value", "Control3Value", "Control4Value", "Control5Value",
    "Control6Value", "Control7Value", "Control8Value", "Transparency",  "RGBForeColor",
    "RGBBackColor",  "RGBExtraColor", "TextureURL"};

// The values of the table; a field that is empty there writes nothing.
std::string tableParams(const EffectRow& row) {
  std::string params;
  const auto add = [&](std::size_t i, const std::string& value, bool isNumber) {
    if (value.empty()) return;
    params += paramLine(kPaletteParams.at(i), isNumber ? ShortText(ToNumber(value)) : value);
  };
  for (std::size_t i = 0; i < row.Control.size(); ++i) add(i, row.Control.at(i), true);
  add(8, row.Transparency, true);
  add(9, row.foreColor, false);
  add(10, row.backColor, false);
  add(11, row.extraColor, false);
  add(12, row.texture, false);
  return params;
}

std::string paletteElement(const Compilation& c, const KeyframeIndex& keyframes, int clipNo, int position,
                           const Span& span) {
  const auto* row = c.editor.effects.slot(position - static_cast<int>(EffectSwitch::FirstPaletteSlot) + 1);
  int effectNo = 0;
  if (row != nullptr) c.editor.effects.GetEffectIDFromName(row->name, effectNo);
  auto params = paramLine("EffectID", std::to_string(effectNo));
  if (!keyframes.of(c.clips()[clipNo].KeyID(), effectNo).empty()) {
    for (const auto name : kPaletteParams)
      WriteKeyframesToTimeLine(c, keyframes, params, name, clipNo, effectNo);
  } else if (row != nullptr && effectNo >= kFirstFullRow) {
    params += tableParams(*row);
  }
  return blanks(15) + "<effect clsid=" + quoted(effect_ids::kPalette) + " start=" + quoted(span.start) +
         " stop=" + quoted(span.stop) + " >\r\n" + params + blanks(15) + "</effect>\r\n";
}

std::string blurParams(const Compilation& c, const KeyframeIndex& keyframes, int clipNo) {
  const auto& clip = c.clips()[clipNo];
  if (!clip.HasKeyFrames()) return paramLine("PixelRadius", fieldText(clip.BlurInt()));
  std::string params;
  WriteKeyframesToTimeLine(c, keyframes, params, "PixelRadius", clipNo, kBlurEffect);
  return params;
}

std::string motionBlurParams(const Compilation& c, const KeyframeIndex& keyframes, int clipNo) {
  const auto& clip = c.clips()[clipNo];
  const auto& own = keyframes.of(clip.KeyID(), kMotionBlurEffect);
  std::string params;
  if (own.empty() || own.front()->FrameNo != 0) {
    return paramLine("Strength", fieldText(clip.MBlurStrength())) +
           paramLine("Direction", fieldText(clip.MBlurDirection())) + paramLine("Add", "true");
  }
  for (const auto* name : {"Strength", "Direction", "Add"}) {
    WriteKeyframesToTimeLine(c, keyframes, params, name, clipNo, kMotionBlurEffect);
  }
  return params;
}

// Levels rise at half the slope outside of 0 to 128.
Single mappedChannel(Single level) {
  const double scaled = static_cast<double>(level) * 0.0075;
  return static_cast<Single>(level >= 0 && level <= 128 ? scaled : std::fabs(scaled / 2.0));
}

}  // namespace

void CreateBasicImageStringFromEffectWord(const Compilation& c, const KeyframeIndex& keyframes, int clipNo,
                                          const std::string& effectWord, const std::string& start,
                                          std::string& stop, std::string& result) {
  if (!c.settings.state.RenderEffects) return;
  stop = ShortText(ToNumber(stop) + kPastEnd);
  const EffectWord word(effectWord);
  const auto& clip = c.clips()[clipNo];
  const Span span{start, stop};
  result.clear();
  if (const auto params = basicImageParams(word); !params.empty())
    result += withParams("BasicImage", span, params);
  if (word.isOn(EffectSwitch::Engrave)) result += opening("Engrave", span, " />");
  if (word.isOn(EffectSwitch::Emboss)) result += opening("Emboss", span, " />");
  if (word.isOn(EffectSwitch::FadeToBlack)) result += opening("FadeToBlack", span, " />");
  if (word.isOn(EffectSwitch::Blur)) result += withParams("Blur", span, blurParams(c, keyframes, clipNo));
  if (word.isOn(EffectSwitch::MotionBlur)) {
    result += withParams("MotionBlur", span, motionBlurParams(c, keyframes, clipNo));
  }
  if (word.isOn(EffectSwitch::FilmAge)) {
    result += withParams("FilmAge", span, paramLine("age", fieldText(clip.AgeIntensity())));
  }
  if (word.isOn(EffectSwitch::Ease)) result += withParams("Ease", span, easeParams(clip));
  for (int i = static_cast<int>(EffectSwitch::FirstPaletteSlot);
       i <= static_cast<int>(EffectSwitch::LastPaletteSlot); ++i) {
    if (word.isOn(i)) result += paletteElement(c, keyframes, clipNo, i, span);
  }
}

std::string AddColorContrastAdjust(const Compilation& c, int clipNo, const std::string& start) {
  if (!c.settings.state.RenderEffects) return {};
  const auto& clip = c.clips()[clipNo];
  const Span span{start, ShortText(timelineLength(clip) + kColourPastEnd)};
  std::array<Single, 3> channels = {mappedChannel(clip.Red()), mappedChannel(clip.Green()),
                                    mappedChannel(clip.Blue())};
  const auto addToAll = [&](Single amount) {
    for (auto& channel : channels) channel += amount;
  };

  std::string adjustments;
  bool adjusts = false;
  if (clip.Threshold() != 0) {
    adjustments += paramLine("Threshold", ShortText(clip.Threshold() / 1000));
    adjusts = true;
  }
  if (clip.Brightness() != 0) {
    addToAll(clip.Brightness() / 10);
    adjusts = true;
  }
  if (clip.Contrast() != 0) {
    addToAll(clip.Contrast() / 100);
    adjustments += paramLine("Contrast", ShortText(clip.Contrast() / 10));
    adjusts = true;
  }
  if (clip.Gamma() != 0) {
    adjustments += paramLine("Gamma", ShortText(clip.Gamma() * 10));
    adjusts = true;
  }

  const auto standard = [&](const std::string& params) {
    return "\r\n" + withParams("Ease", span, paramLine("InternalName", "Standard") + params + adjustments);
  };
  std::string result;
  if (clip.Sepia()) {
    result +=
        standard(paramLine("Desaturate", "True") + paramLine("Red", "0.10") + paramLine("Magenta", "0.09") +
                 paramLine("Yellow", "0.25") + paramLine("Contrast", "1.00"));
  }
  if (adjusts || channels[0] != 0 || channels[1] != 0 || channels[2] != 0) {
    result += standard(paramLine("Red", ShortText(channels[0])) + paramLine("Green", ShortText(channels[1])) +
                       paramLine("Blue", ShortText(channels[2])));
  }
  return result;
}

}  // namespace kvo
