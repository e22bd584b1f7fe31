// Whether windows may be seen through.
#pragma once

namespace kvo {

/// True where a compositor blends windows into what lies below them. Without one, what a window leaves
/// transparent is black, and only a region can give it a shape. May change while the program runs.
bool hasCompositor();

}  // namespace kvo
