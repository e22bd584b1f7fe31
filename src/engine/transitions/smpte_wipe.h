// The wipes of the SMPTE mask table: a shape by its code, or by the lights and darks of a picture, with a
// border between the two pictures, repeated across and down.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

/// The parameters "MaskNum" or "MaskName" (a picture file: dark changes first), "BorderWidth" and
/// "BorderSoftness" in pixels, "BorderColor", "ReplicateX" and "ReplicateY", "ScaleX", "ScaleY" (the shape's
/// size), "OffsetX", "OffsetY" (its place, in hundredths of a cell).
Result<PaintTransition> makeSmpteWipe(const Params& params, int width, int height);

}  // namespace kvo::engine
