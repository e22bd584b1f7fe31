// The elements of the transition families that are drawn by one class each: wipes by their SMPTE codes,
// moving and growing pictures, particles and simple 3D. Each appends whole lines.
#pragma once

#include "editor/compiler/transition_element.h"

#include <string>
#include <string_view>

namespace kvo {

/// The parameters of "Bounce1" to "Bounce4" and "QuartileMove" over `duration` seconds for a picture of the
/// output's size. False for another name.
bool AddBounce(std::string_view name, std::string& text, Single duration, int width, int height);

/// The five particle parameters of the options.
void AddParticleSystemOptions(std::string& text, const ParticleOptions& particles);

/// The parameters of a wipe by its SMPTE code. False for a name that is none.
bool addWipe(std::string& text, const TransitionOptions& options);

/// The parameters of a particle or simple 3D transition. False for a name that is none.
bool addParticlesOr3D(std::string& text, const TransitionOptions& options);

}  // namespace kvo
