#include "editor/compiler/transition_names.h"

#include <algorithm>

namespace kvo {
namespace {

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
  const auto masks = transitionMasks();
  const auto found = std::find_if(masks.begin(), masks.end(), [&](const auto& m) { return m.name == name; });
  return found == masks.end() ? std::nullopt : std::optional(found->number);
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
