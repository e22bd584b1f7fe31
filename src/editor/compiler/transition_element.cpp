#include "editor/compiler/transition_element.h"

#include "base/text.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/transition_families.h"
#include "editor/compiler/transition_names.h"
#include "vocabulary/transitions.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr double kMargin = 0.125;  // seconds that Progress ends ahead of the overlap

std::string extraParam(std::string_view name, std::string_view value) {
  return name.empty() ? std::string() : tag::bareParam(name, value);
}

std::string firstExtraParam(const TimelineClip& clip) {
  if (clip.dropsFirstOption) return {};
  return extraParam(clip.record->ExtraParamName1(), clip.record->ExtraParamValue1());
}

std::string secondExtraParam(const Movie& clip) {
  const auto& name = clip.ExtraParamName2();
  const auto& value = clip.ExtraParamValue2();
  if (name == "irisStyle" || name == "slideStyle") return extraParam(name, upper(value));
  if (name == "stretchStyle") return extraParam(name, lower(value));
  return extraParam(lower(name), value);
}

std::string element(double start, Stamp stop, std::string_view clsid, const std::string& inside) {
  return tag::transition(
             {{"start", shortNumber(start)}, {"stop", stampText(stop)}, {"clsid", std::string(clsid)}}, ">")
      .append(inside)
      .append(tag::kEndTransition);
}

// What a class with free options holds: they, and Progress, which runs from 0 to 1 over the overlap.
std::string freeOptions(const TimelineClip& clip, double duration) {
  return blanks(20) + firstExtraParam(clip) + "\r\n" + blanks(20) + secondExtraParam(*clip.record) +
         "\r\n\r\n" + tag::openParam("Progress", "0.0") +
         tag::key("linear", shortNumber(duration - kMargin), "1") + std::string(tag::kEndParam);
}

std::string elementOf(const OutputForm& output, const TimelineClip& clip, const TransitionOptions& o) {
  if (isCut(o.Name)) {
    return tag::transition({{"clsid", std::string(transition_ids::kNone)},
                            {"start", shortNumber(o.Start)},
                            {"stop", stampText(o.Stop)}},
                           " />");
  }
  std::string params;
  const auto duration = static_cast<Single>(o.Duration - kMargin);
  if (AddBounce(o.Name, params, duration, output.width, output.height))
    return element(o.Start, o.Stop, TransitionFriendlyNameToCLSID(o.Name), params);
  // These span the overlap only.
  const Stamp stop{o.Start + secondsFromTenths(clip.TransIn) - kMargin};
  if (addWipe(params, o)) return element(o.Start, stop, transition_ids::kSmpteWipe, params);
  if (addParticlesOr3D(params, o)) return element(o.Start, stop, transition_ids::kParticlesAnd3D, params);
  return element(o.Start, o.Stop, TransitionFriendlyNameToCLSID(o.Name), freeOptions(clip, o.Duration));
}

}  // namespace

TransitionOptions recordedTransition(const TimelineClip& clip, const CompileOptions& options, double start,
                                     Stamp stop) {
  const auto& record = *clip.record;
  return {.Start = start,
          .Stop = stop,
          .Name = clip.TransType,
          .Duration = secondsFromTenths(clip.TransIn),
          .BorderWidth = record.BorderWidth(),
          .BorderColor = record.BorderColor().text(),
          .BorderSoftness = record.BorderSoftness(),
          .ReplicateX = record.ReplicateX(),
          .ReplicateY = record.ReplicateY(),
          .MaskName = record.MaskName(),
          .Particles = options.particles};
}

std::string AddTransition(const CompileOptions& options, TimelineClips& clips, int clipNo,
                          TransitionOptions o) {
  o.BorderWidth = std::clamp(o.BorderWidth, 0, 255);
  o.BorderSoftness = std::clamp(o.BorderSoftness, 0.0F, 255.0F);
  o.ReplicateX = std::clamp(o.ReplicateX, 1, 255);
  o.ReplicateY = std::clamp(o.ReplicateY, 1, 255);
  std::string text;
  if (options.transitions) {
    auto& clip = clips[clipNo];
    holdTransition(clips, clipNo, options.stillDuration);
    if (o.Name == "Fade") clip.dropsFirstOption = true;
    if (o.Duration == 0) o.Duration = 0.01;
    text = elementOf(options.output, clip, o);
  }
  return text.append(tag::kEndTrack).append("\r\n\r\n");
}

}  // namespace kvo
