// The transitions the engine can draw, by class id. One file a transition, one line in the table.
#pragma once

#include "media/picture.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace kvo::engine {

/// The parameters of a transition that do not move; names in small letters.
using TransitionParams = std::map<std::string, std::string, std::less<>>;

/// The number of a parameter, or `otherwise` where it is not given or below 1.
double countParam(const TransitionParams& params, std::string_view name, double otherwise);
/// The text of a parameter in small letters, empty where it is not given.
std::string wordParam(const TransitionParams& params, std::string_view name);

/// Draws the mix of `below` and `above` at `progress` (0 to 1) into `out`: all of `below` at 0, all of
/// `above` at
/// 1. All three have one size; `out` may be `below`.
using PaintTransition = std::function<void(const media::Picture& below, const media::Picture& above,
                                           double progress, media::Picture& out)>;

/// Prepares a transition for pictures of one size.
using MakeTransition = PaintTransition (*)(const TransitionParams& params, int width, int height);

/// Null for a class id that is not known.
MakeTransition findTransition(std::string_view clsid);

/// The null element that stands for a plain cut.
bool isCutElement(std::string_view clsid);

}  // namespace kvo::engine
