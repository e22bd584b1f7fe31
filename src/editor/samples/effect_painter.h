// An effect painted small on a picture, as the movie would have it when it is switched on.
#pragma once

#include "base/result.h"
#include "editor/compiler/effects_table.h"
#include "ports/media_contents.h"

#include <functional>
#include <string_view>

namespace kvo {

/// Paints an effect on a picture at a part (0 to 1) of the way through its clip.
using PaintEffect = std::function<FramePicture(const FramePicture& picture, double part)>;

/// Of pictures of `width` x `height`. `number` is that of the switch, 1 to 42. Fails for any other, and for a
/// slot of the palette without effect.
Result<PaintEffect> prepareEffect(std::string_view number, const EffectsTable& effects, int width,
                                  int height);

}  // namespace kvo
