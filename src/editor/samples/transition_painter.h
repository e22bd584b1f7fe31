// A transition painted small on two pictures, as the movie would have it with its usual options.
#pragma once

#include "base/result.h"
#include "ports/media_contents.h"

#include <functional>
#include <string_view>

namespace kvo {

/// Paints moments of one transition.
using PaintMoment = std::function<FramePicture(double part)>;

/// Makes ready to paint from `below` to `above`, which are of one size; what is made gives the
/// picture at a part (0 to 1) of the way, and outlives them. Fails for a name that is none of a transition.
Result<PaintMoment> preparePainting(std::string_view name, const FramePicture& below,
                                    const FramePicture& above);

}  // namespace kvo
