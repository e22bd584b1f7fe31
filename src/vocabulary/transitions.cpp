#include "vocabulary/transitions.h"

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

// clang-format off
constexpr NamedMask kMasks[] = {
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

constexpr NamedClass kTransitionClasses[] = {
#define KVO_TRANSITION(word, name, clsid) {name, transition_ids::k##word},
#include "vocabulary/transition_list.inc"
#undef KVO_TRANSITION
    {"Bounce1", transition_ids::kPlacing},      {"Bounce2", transition_ids::kPlacing},
    {"Bounce3", transition_ids::kPlacing},      {"Bounce4", transition_ids::kPlacing},
    {"QuartileMove", transition_ids::kPlacing},
};

}  // namespace

std::span<const NamedMask> transitionMasks() { return kMasks; }

std::span<const std::string_view> transitionNames() { return kNames; }

std::span<const NamedClass> transitionClasses() { return kTransitionClasses; }

}  // namespace kvo
