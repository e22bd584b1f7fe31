#include "editor/timeline/transition_element.h"

#include "base/text.h"
#include "editor/timeline/durations.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr double kMargin = 0.125;  // seconds that Progress ends ahead of the overlap

struct ClassOfName {
  std::string_view name;
  std::string_view clsid;
};

constexpr std::array kClasses = {
    ClassOfName{"Barn", "{C3BDF740-0B58-11d2-A484-00C04F8EFB69}"},
    ClassOfName{"Blinds", "{9A4A4A51-FB3A-4F4B-9B57-A2912A289769}"},
    ClassOfName{"Bounce1", "{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}"},
    ClassOfName{"Bounce2", "{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}"},
    ClassOfName{"Bounce3", "{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}"},
    ClassOfName{"Bounce4", "{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}"},
    ClassOfName{"QuartileMove", "{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}"},
    ClassOfName{"Checkerboard", "{B3EE7802-8224-4787-A1EA-F0DE16DEABD3}"},
    ClassOfName{"ColorFade", "{2A54C908-07AA-11D2-8D6D-00C04F8EF8E0}"},
    ClassOfName{"Compositor", "{9A43A844-0831-11D1-817F-0000F87557DB}"},
    ClassOfName{"Curtains", "{AA0D4D12-06A3-11D2-8F98-00C04FB92EB7}"},
    ClassOfName{"Dissolve", "{F7F4A1B6-8E87-452f-A2D7-3077F508DBC0}"},
    ClassOfName{"Fade", "{16B280C5-EE70-11D1-9066-00C04FD9189D}"},
    ClassOfName{"FadeWhite", "{107045CC-06E0-11D2-8D6D-00C04F8EF8E0}"},
    ClassOfName{"Inset", "{93073C40-0BA5-11d2-A484-00C04F8EFB69}"},
    ClassOfName{"Iris", "{3F69F351-0379-11D2-A484-00C04F8EFB69}"},
    ClassOfName{"Pixelate", "{4CCEA634-FBE0-11d1-906A-00C04FD9189D}"},
    ClassOfName{"RadialWipe", "{424B71AF-0695-11D2-A484-00C04F8EFB69}"},
    ClassOfName{"RollDown", "{9C61F46E-0530-11D2-8F98-00C04FB92EB7}"},
    ClassOfName{"Slide", "{810E402F-056B-11D2-A484-00C04F8EFB69}"},
    ClassOfName{"SMPTE Wipe", "{dE75D012-7A65-11D2-8CEA-00A0C9441E20}"},
    ClassOfName{"Spiral", "{ACA97E00-0C7D-11d2-A484-00C04F8EFB69}"},
    ClassOfName{"Stretch", "{7658F2A2-0A83-11d2-A484-00C04F8EFB69}"},
    ClassOfName{"Threshold", "{2A54C915-07AA-11D2-8D6D-00C04F8EF8E0}"},
    ClassOfName{"Wheel", "{5AE1DAE0-1461-11d2-A484-00C04F8EFB69}"},
    ClassOfName{"Wipe Normal", "{AF279B30-86EB-11D1-81BF-0000F87557DB}"},
    ClassOfName{"Zigzag", "{E6E73D20-0C8A-11d2-A484-00C04F8EFB69}"},
};

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

// One class with free options, whose Progress runs from 0 to 1 over the overlap.
void addGeneric(std::string& text, const Movie& clip, const TransitionOptions& o) {
  text += blanks(15) + "<transition start=" + quoted(o.Start) + " stop=" + quoted(o.Stop) +
          " clsid=" + quoted(TransitionFriendlyNameToCLSID(o.Name)) + ">\r\n";
  text += blanks(20) + firstExtraParam(clip) + "\r\n";
  text += blanks(20) + secondExtraParam(clip) + "\r\n\r\n";
  text += blanks(20) + "<param name=\"Progress\" value=\"0.0\">\r\n";
  text +=
      blanks(25) + "<linear time=" + quoted(ShortText(ToNumber(o.Duration) - kMargin)) + " value=\"1\"/>\r\n";
  text += blanks(20) + "</param>\r\n";
  text += blanks(15) + "</transition>\r\n";
}

}  // namespace

void AddTransition(const Compilation& c, std::string& trackText, TransitionOptions o) {
  if (c.settings.RenderTransitions()) {
    auto& clip = c.clips()[o.ClipNo];
    SortTransitionTimes(c, o.ClipNo);
    if (o.Name == "Fade") {
      clip.ExtraParamName1("");
      clip.ExtraParamValue1("");
    }
    if (o.Duration == "0") o.Duration = "0.01";
    addGeneric(trackText, clip, o);
  }
  trackText += blanks(10) + "</track>\r\n\r\n";
}

std::string_view TransitionFriendlyNameToCLSID(std::string_view name) {
  const auto* found =
      std::find_if(kClasses.begin(), kClasses.end(), [&](const auto& k) { return k.name == name; });
  return found == kClasses.end() ? std::string_view() : found->clsid;
}

}  // namespace kvo
