// The transitions by name, and the class ids that stand for them in a document, in their own case.
#pragma once

#include <span>
#include <string_view>

namespace kvo {

namespace transition_ids {
#define KVO_TRANSITION(word, name, clsid) inline constexpr std::string_view k##word = clsid;
#include "vocabulary/transition_list.inc"
#undef KVO_TRANSITION
inline constexpr std::string_view kNone =
    "{99999999-9999-9999-9999-999999999999}";  ///< the null element: a plain cut
}  // namespace transition_ids

/// The transition that an overlap has until another is chosen.
inline constexpr std::string_view kFirstTransition = "Dissolve";

/// Every name on offer, in the order of the list.
std::span<const std::string_view> transitionNames();

struct NamedClass {
  std::string_view name;
  std::string_view clsid;
};

/// The class ids by name. Wipes of a mask, particles and simple 3D are not among them: they share one class
/// id each.
std::span<const NamedClass> transitionClasses();

struct NamedMask {
  std::string_view name;
  int number = 0;  ///< an SMPTE 258M wipe code
};

/// The wipes of a mask.
std::span<const NamedMask> transitionMasks();

}  // namespace kvo
