#include "editor/compiler/effect_elements.h"

#include "base/text.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_word.h"
#include "vocabulary/effects.h"

#include <array>
#include <cmath>

namespace kvo {
namespace {

constexpr double kPastEnd = 14.0;       // seconds that an effect reaches past its clip
constexpr double kColourPastEnd = 4.0;  // the same of the colour block

struct Span {
  double start = 0;
  double stop = 0;
};

std::string opening(std::string_view clsid, const Span& span, std::string_view end) {
  return tag::effect(
      {{"clsid", std::string(clsid)}, {"start", shortNumber(span.start)}, {"stop", shortNumber(span.stop)}},
      end);
}

std::string withParams(std::string_view clsid, const Span& span, const std::string& params) {
  return opening(clsid, span, " >").append(params).append(tag::kEndEffect);
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
    params += (params.empty() ? blanks(15) : std::string()) + tag::param(row.name, row.value);
  }
  return params;
}

std::string easeParams(const Movie& clip) {
  auto params = tag::param("InternalName", "Simple3D") +
                tag::param("ExponentialProgressDuration", fieldText(clip.EaseDuration())) +
                tag::param("ScaleA", fieldText(clip.ScaleA())) +
                tag::param("InitialScaleA", fieldText(clip.InitialScaleA())) +
                tag::param("MoveA", clip.MoveADirection()) +
                tag::param("MoveSpeedA", fieldText(clip.MoveSpeedA()));
  if (clip.RevolveCamera()) params += tag::param("RevolveCamera", "True") + tag::param("ShowABack", "True");
  if (!clip.MoveARotationDirection().empty()) {
    params += tag::param("RotateA", clip.MoveARotationDirection()) + tag::param("ShowABack", "True");
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
    params += tag::param(kPaletteParams.at(i), isNumber ? shortNumber(ToNumber(value)) : value);
  };
  for (std::size_t i = 0; i < row.Control.size(); ++i) add(i, row.Control.at(i), true);
  add(8, row.Transparency, true);
  add(9, row.foreColor, false);
  add(10, row.backColor, false);
  add(11, row.extraColor, false);
  add(12, row.texture, false);
  return params;
}

std::string paletteElement(const EffectSources& from, const TimelineClip& clip, int position,
                           const Span& span) {
  const auto* row = from.table.slot(position - static_cast<int>(EffectSwitch::FirstPaletteSlot) + 1);
  int effectNo = 0;
  if (row != nullptr) from.table.GetEffectIDFromName(row->name, effectNo);
  auto params = tag::param("EffectID", std::to_string(effectNo));
  if (!from.keyframes.of(clip.record->KeyID(), effectNo).empty()) {
    for (const auto name : kPaletteParams)
      params += WriteKeyframesToTimeLine(from.keyframes, clip, name, effectNo, from.options.movieRate);
  } else if (row != nullptr && effectNo >= kFirstFullRow) {
    params += tableParams(*row);
  }
  return withParams(effect_ids::kPalette, span, params);
}

// Keyframes of other effects leave the blur its radius.
std::string blurParams(const EffectSources& from, const TimelineClip& clip) {
  auto moving =
      WriteKeyframesToTimeLine(from.keyframes, clip, "PixelRadius", kBlurEffect, from.options.movieRate);
  return moving.empty() ? tag::param("PixelRadius", fieldText(clip.record->BlurInt())) : moving;
}

std::string motionBlurParams(const EffectSources& from, const TimelineClip& clip) {
  std::string params;
  for (const auto* name : {"Strength", "Direction", "Add"}) {
    params += WriteKeyframesToTimeLine(from.keyframes, clip, name, kMotionBlurEffect, from.options.movieRate);
  }
  if (!params.empty()) return params;
  return tag::param("Strength", fieldText(clip.record->MBlurStrength())) +
         tag::param("Direction", fieldText(clip.record->MBlurDirection())) + tag::param("Add", "true");
}

// Levels rise at half the slope outside of 0 to 128.
Single mappedChannel(Single level) {
  const double scaled = static_cast<double>(level) * 0.0075;
  return static_cast<Single>(level >= 0 && level <= 128 ? scaled : std::fabs(scaled / 2.0));
}

}  // namespace

std::string CreateBasicImageStringFromEffectWord(const EffectSources& from, const TimelineClip& clip,
                                                 double stop) {
  if (!from.options.effects) return {};
  const auto& record = *clip.record;
  const EffectWord word(record.EffectWord());
  const Span span{0, stop + kPastEnd};
  std::string result;
  if (const auto params = basicImageParams(word); !params.empty())
    result += withParams(effect_ids::kBasicImage, span, params);
  if (word.isOn(EffectSwitch::Engrave)) result += opening(effect_ids::kEngrave, span, " />");
  if (word.isOn(EffectSwitch::Emboss)) result += opening(effect_ids::kEmboss, span, " />");
  if (word.isOn(EffectSwitch::FadeToBlack)) result += opening(effect_ids::kFadeToBlack, span, " />");
  if (word.isOn(EffectSwitch::Blur)) result += withParams(effect_ids::kBlur, span, blurParams(from, clip));
  if (word.isOn(EffectSwitch::MotionBlur))
    result += withParams(effect_ids::kMotionBlur, span, motionBlurParams(from, clip));
  if (word.isOn(EffectSwitch::FilmAge))
    result += withParams(effect_ids::kFilmAge, span, tag::param("age", fieldText(record.AgeIntensity())));
  if (word.isOn(EffectSwitch::Ease)) result += withParams(effect_ids::kEase, span, easeParams(record));
  for (int i = static_cast<int>(EffectSwitch::FirstPaletteSlot);
       i <= static_cast<int>(EffectSwitch::LastPaletteSlot); ++i) {
    if (word.isOn(i)) result += paletteElement(from, clip, i, span);
  }
  return result;
}

std::string AddColorContrastAdjust(const CompileOptions& options, const TimelineClip& timelineClip) {
  if (!options.effects) return {};
  const auto& clip = *timelineClip.record;
  const Span span{0, timelineLength(timelineClip) + kColourPastEnd};
  std::array<Single, 3> channels = {mappedChannel(clip.Red()), mappedChannel(clip.Green()),
                                    mappedChannel(clip.Blue())};
  const auto addToAll = [&](Single amount) {
    for (auto& channel : channels) channel += amount;
  };

  std::string adjustments;
  bool adjusts = false;
  if (clip.Threshold() != 0) {
    adjustments += tag::param("Threshold", shortNumber(clip.Threshold() / 1000));
    adjusts = true;
  }
  if (clip.Brightness() != 0) {
    addToAll(clip.Brightness() / 10);
    adjusts = true;
  }
  if (clip.Contrast() != 0) {
    addToAll(clip.Contrast() / 100);
    adjustments += tag::param("Contrast", shortNumber(clip.Contrast() / 10));
    adjusts = true;
  }
  if (clip.Gamma() != 0) {
    adjustments += tag::param("Gamma", shortNumber(clip.Gamma() * 10));
    adjusts = true;
  }

  const auto standard = [&](const std::string& params) {
    return "\r\n" +
           withParams(effect_ids::kEase, span, tag::param("InternalName", "Standard") + params + adjustments);
  };
  std::string result;
  if (clip.Sepia()) {
    result += standard(tag::param("Desaturate", "True") + tag::param("Red", "0.10") +
                       tag::param("Magenta", "0.09") + tag::param("Yellow", "0.25") +
                       tag::param("Contrast", "1.00"));
  }
  if (adjusts || channels[0] != 0 || channels[1] != 0 || channels[2] != 0) {
    result +=
        standard(tag::param("Red", shortNumber(channels[0])) + tag::param("Green", shortNumber(channels[1])) +
                 tag::param("Blue", shortNumber(channels[2])));
  }
  return result;
}

std::string effectLines(const EffectSources& from, const TimelineClip& clip, double stop) {
  std::string text;
  if (ToNumber(clip.record->EffectWord()) != 0)
    text += tag::effectLine(CreateBasicImageStringFromEffectWord(from, clip, stop));
  return text + tag::effectLine(AddColorContrastAdjust(from.options, clip));
}

}  // namespace kvo
