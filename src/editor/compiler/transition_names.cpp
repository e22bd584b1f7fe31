#include "editor/compiler/transition_names.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

// clang-format off
constexpr std::string_view kNames[] = {
    "Whirlwind Up", "Shatter Down", "Page Curl LowerLeft", "Page Curl LowerRight", "Page Curl UpperLeft",
    "Page Curl UpperRight", "Flip", "Roll Out", "Spin Out", "Shatter Right", "Shatter Left", "Shatter In",
    "Shatter Out", "Whirlwind", "Columns", "Barn", "Blinds", "Bounce1", "Bounce2", "Bounce3", "Bounce4",
    "QuartileMove", "Checkerboard", "Dissolve", "Fade", "Inset Right Bottom", "Inset Left Bottom",
    "Inset Right Top", "Inset Left Top", "Four Corners", "Bow Tie Horizontal", "Bow Tie Vertical", "Iris",
    "Pixelate", "RadialWipe", "Slide", "Spiral", "Stretch", "Wheel", "Wipe Soft", "Wipe Normal",
    "Wipe Hard", "Zigzag", "Barn Vertical", "TopCenter", "Diamond", "SawLeft", "SawTop", "SawVert",
    "SawHoriz", "Circle1", "Circle2", "Circle4", "Circle8", "Circle16", "Circle32", "Star4", "Star5",
    "Star6", "Heart", "Keyhole", "Diagonal Rotate", "Fold", "Radial Box", "Matrix Diag", "Matrix2x",
    "Matrix4x", "Waterfall Left", "Waterfall Right", "Random", "Filled V Down", "Filled V Left",
    "Filled V Right", "Filled V Up",
};
// clang-format on

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

struct MaskOfName {
  std::string_view name;
  int number;
};

// clang-format off
constexpr MaskOfName kMasks[] = {
    {"Inset Left Top", 3}, {"Inset Right Top", 4}, {"Inset Right Bottom", 5}, {"Inset Left Bottom", 6},
    {"Four Corners", 7}, {"Barn Vertical", 22}, {"TopCenter", 23}, {"Bow Tie Vertical", 43},
    {"Bow Tie Horizontal", 44}, {"Diamond", 48}, {"SawLeft", 71}, {"SawTop", 72}, {"SawVert", 73},
    {"SawHoriz", 74}, {"Filled V Up", 103}, {"Filled V Right", 104}, {"Filled V Down", 105},
    {"Filled V Left", 106}, {"Circle1", 119}, {"Star4", 127}, {"Star5", 128}, {"Star6", 129},
    {"Heart", 130}, {"Keyhole", 131}, {"Diagonal Rotate", 225}, {"Fold", 228}, {"Radial Box", 263},
    {"Matrix Diag", 303}, {"Matrix2x", 341}, {"Matrix4x", 344}, {"Waterfall Left", 350},
    {"Waterfall Right", 351}, {"Random", 409},
};
// clang-format on

constexpr std::string_view kDirections[] = {"Left", "Right", "Up", "Down"};
constexpr std::string_view kWipeStyles[] = {"clock", "wedge", "radial"};
constexpr std::string_view kSlideStyles[] = {"hide", "push", "swap"};
constexpr std::string_view kStretchStyles[] = {"hide", "spin", "push"};
constexpr std::string_view kIrisStyles[] = {"Circle", "Cross", "Plus", "Square", "Star"};

struct OptionsOfName {
  std::string_view name;
  TransitionOptionSet options;
};

constexpr OptionsOfName kOptions[] = {
    {"Blinds", {"bands", "Direction", kDirections}},   {"Wheel", {"spokes", "", {}}},
    {"RadialWipe", {"", "wipestyle", kWipeStyles}},    {"Slide", {"bands", "slideStyle", kSlideStyles}},
    {"Stretch", {"", "stretchStyle", kStretchStyles}}, {"Iris", {"", "irisStyle", kIrisStyles}},
};

constexpr std::string_view kParticles[] = {"Whirlwind",   "Whirlwind Up", "Shatter Down", "Shatter In",
                                           "Shatter Out", "Shatter Left", "Shatter Right"};

}  // namespace

std::span<const std::string_view> transitionNames() { return kNames; }

std::string_view TransitionFriendlyNameToCLSID(std::string_view name) {
  const auto* found =
      std::find_if(kClasses.begin(), kClasses.end(), [&](const auto& k) { return k.name == name; });
  return found == kClasses.end() ? std::string_view() : found->clsid;
}

bool isTransition(std::string_view name) {
  return !TransitionFriendlyNameToCLSID(name).empty() ||
         std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
}

std::optional<int> maskNumber(std::string_view name) {
  const auto* found =
      std::find_if(std::begin(kMasks), std::end(kMasks), [&](const auto& m) { return m.name == name; });
  return found == std::end(kMasks) ? std::nullopt : std::optional(found->number);
}

TransitionOptionSet ShowTransOptions(std::string_view name) {
  for (const auto& entry : kOptions) {
    if (entry.name == name) return entry.options;
  }
  TransitionOptionSet options;
  options.bordersAndMask = maskNumber(name).has_value();
  options.particles = std::find(std::begin(kParticles), std::end(kParticles), name) != std::end(kParticles);
  return options;
}

}  // namespace kvo
