// Simple 3D: the first picture moves, turns, grows or shrinks in space and so uncovers the second; or the
// camera goes round and finds the second on the back of the first.
#pragma once

#include "engine/picture/space.h"
#include "engine/transitions/registry.h"

namespace kvo::engine {

/// The parameters "RevolveCamera", and of the first picture "ScaleA" (smaller, larger, or a factor),
/// "InitialScaleA", "RotateA" (left and right in its plane; up and down about the x axis), "RotateCenterA" (a
/// corner), "MoveA" (in, out, left, right, up, down), "MoveSpeedA", "FadeStartA" (a progress), "ShowABack".
/// Of what goes round "ShowAFront", "ShowABack", "ShowBFront" and "ShowBBack" say what is on either side.
Result<PaintTransition> makeSimple3D(const Params& params, int width, int height);

/// Where a picture moves to by those parameters, at a way of 0 to 1.
struct Motion {
  Corners corners;
  bool back = false;  ///< its back is seen
};
Motion motionOf(const Params& params, int width, int height, double way);

}  // namespace kvo::engine
