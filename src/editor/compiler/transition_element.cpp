#include "editor/compiler/transition_element.h"

#include "base/text.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/transition_families.h"
#include "editor/compiler/transition_names.h"
#include "vocabulary/transitions.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr double kMargin = 0.125;  // seconds that Progress ends ahead of the overlap

std::string extraParam(std::string_view name, std::string_view value) {
  if (name.empty()) return {};
  return "<param name=" + quoted(name) + " value=" + quoted(value) + " />";
}

std::string firstExtraParam(const Movie& clip) {
  return extraParam(clip.ExtraParamName1(), clip.ExtraParamValue1());
}

std::string secondExtraParam(const Movie& clip) {
  const auto& name = clip.ExtraParamName2();
  const auto& value = clip.ExtraParamValue2();
  if (name == "irisStyle" || name == "slideStyle") return extraParam(name, upper(value));
  if (name == "stretchStyle") return extraParam(name, lower(value));
  return extraParam(lower(name), value);
}

std::string openingLine(std::string_view start, std::string_view stop, std::string_view clsid) {
  return blanks(15) + "<transition start=" + quoted(start) + " stop=" + quoted(stop) +
         " clsid=" + quoted(clsid) + ">\r\n";
}

std::string closingLine() { return blanks(15) + "</transition>\r\n"; }

// One class with free options, whose Progress runs from 0 to 1 over the overlap.
std::string genericElement(const Movie& clip, const TransitionOptions& o) {
  return openingLine(o.Start, o.Stop, TransitionFriendlyNameToCLSID(o.Name)) + blanks(20) +
         firstExtraParam(clip) + "\r\n" + blanks(20) + secondExtraParam(clip) + "\r\n\r\n" + blanks(20) +
         "<param name=\"Progress\" value=\"0.0\">\r\n" + blanks(25) +
         "<linear time=" + quoted(ShortText(ToNumber(o.Duration) - kMargin)) + " value=\"1\"/>\r\n" +
         blanks(20) + "</param>\r\n" + closingLine();
}

std::string elementOf(const Compilation& c, const Movie& clip, const TransitionOptions& o) {
  if (isCut(o.Name)) {
    return blanks(15) + "<transition clsid=" + quoted(transition_ids::kNone) +
           " start=" + quoted(ShortText(ToNumber(o.Start))) + " stop=" + quoted(o.Stop) + " />\r\n";
  }
  std::string params;
  const auto duration = static_cast<Single>(ToNumber(o.Duration) - kMargin);
  if (AddBounce(o.Name, params, duration, c.editor.OutputWidth, c.editor.OutputHeight)) {
    return openingLine(o.Start, o.Stop, TransitionFriendlyNameToCLSID(o.Name)) + params + closingLine();
  }
  // These span the overlap only.
  const auto stop = ShortText(ToNumber(o.Start) + secondsFromTenths(clip.TransIn()) - kMargin);
  if (addWipe(params, o))
    return openingLine(o.Start, stop, transition_ids::kSmpteWipe) + params + closingLine();
  if (addParticlesOr3D(params, o, c.settings))
    return openingLine(o.Start, stop, transition_ids::kParticlesAnd3D) + params + closingLine();
  return genericElement(clip, o);
}

}  // namespace

TransitionOptions recordedTransition(const Compilation& c, int clipNo, std::string start, std::string stop) {
  const auto& clip = c.clips()[clipNo];
  return {.Start = std::move(start),
          .Stop = std::move(stop),
          .Name = clip.TransType(),
          .Duration = ShortText(secondsFromTenths(clip.TransIn())),
          .ClipNo = clipNo,
          .BorderWidth = clip.BorderWidth(),
          .BorderColor = clip.BorderColor().text(),
          .BorderSoftness = clip.BorderSoftness(),
          .ReplicateX = clip.ReplicateX(),
          .ReplicateY = clip.ReplicateY(),
          .MaskName = clip.MaskName(),
          .UseDefaults = c.settings.preferences().UseParticleDefaults};
}

void AddTransition(const Compilation& c, std::string& trackText, TransitionOptions o) {
  o.BorderWidth = std::clamp(o.BorderWidth, 0, 255);
  o.BorderSoftness = std::clamp(o.BorderSoftness, 0.0F, 255.0F);
  o.ReplicateX = std::clamp(o.ReplicateX, 1, 255);
  o.ReplicateY = std::clamp(o.ReplicateY, 1, 255);
  if (c.settings.state.RenderTransitions) {
    auto& clip = c.clips()[o.ClipNo];
    SortTransitionTimes(c, o.ClipNo);
    if (o.Name == "Fade") {
      clip.ExtraParamName1("");
      clip.ExtraParamValue1("");
    }
    if (o.Duration == "0") o.Duration = "0.01";
    trackText += elementOf(c, clip, o);
  }
  trackText += blanks(10) + "</track>\r\n\r\n";
}

}  // namespace kvo
