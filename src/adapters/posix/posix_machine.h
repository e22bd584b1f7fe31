// What this machine gives the program, asked of the kernel.
#pragma once

namespace kvo {

/// It has a device that draws: without one its OpenGL is software.
bool hasGraphicsDevice();

/// A process of this user can shut itself into name spaces of its own: neither root's, whom none of them
/// holds, nor that of a system which gives users none.
bool canShutIn();

}  // namespace kvo
