// Particles: the first picture breaks into pieces that tumble away in space, from the second.
#pragma once

#include "engine/transitions/registry.h"

namespace kvo::engine {

/// The parameters "MaxParticles" (pieces), "ParticleSpeed" (how far they fly; 1 is about a picture's width),
/// "ParticleSpinSpeed" (turns on the way), "ScatterDirection" (up, down, left, right; in, to the front, at
/// the viewer; out, away into the depth; a whirl about the middle without it), "SpinDirection" (left or
/// right), "BothDirections" (every other piece turns the other way), "ExponentialProgressDuration" and
/// "ExponentialProgressScale".
Result<PaintTransition> makeParticles(const Params& params, int width, int height);

}  // namespace kvo::engine
