// Page curl: the first picture is turned like a page, from a corner, over a roll that crosses the screen.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

/// The parameters "PageCurlA" (the corner: lowerleft, lowerright, upperleft, upperright) and "ShowABack" (the
/// picture is seen, pale, on the back of the page; else the back is plain).
Result<PaintTransition> makePageCurl(const Params& params, int width, int height);

}  // namespace kvo::engine
