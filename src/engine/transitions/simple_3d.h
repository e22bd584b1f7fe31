// How a picture moves, turns, grows and shrinks in space, by the parameters of Simple 3D.
#pragma once

#include "engine/document/params.h"
#include "engine/picture/camera.h"

namespace kvo::engine {

/// Where a picture is.
struct Pose {
  Corners corners;
  bool back = false;  ///< its back is seen
};

/// By the parameters "ScaleA" (smaller, larger, or a factor), "InitialScaleA", "RotateA" (left and right in
/// its plane; up and down about the x axis), "RotateCenterA" (a corner), "MoveA" (in, out, left, right, up,
/// down) and "MoveSpeedA", or round the camera by "RevolveCamera", at a way of 0 to 1.
Pose poseOf(const Params& params, int width, int height, double way);

}  // namespace kvo::engine
