#include "editor/compiler/transition_names.h"

#include <algorithm>

namespace kvo {
namespace {

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

std::string_view TransitionFriendlyNameToCLSID(std::string_view name) {
  for (const auto& known : transitionClasses()) {
    if (!name.empty() && known.name == name) return known.clsid;
  }
  return {};
}

bool isTransition(std::string_view name) {
  const auto names = transitionNames();
  return !TransitionFriendlyNameToCLSID(name).empty() ||
         std::find(names.begin(), names.end(), name) != names.end();
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
