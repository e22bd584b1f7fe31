// A render by a Slurm cluster, followed on the console.
#pragma once

#include "app/session.h"
#include "render/render_driver.h"

#include <string>

namespace kvo {

/// Has the cluster make the segments, `jobs` at a time, and the engine, the program `engine`, join them;
/// tells how far it is and how it ended. `profile` are the bytes of a profile file, empty for none. A stop
/// signal takes the jobs back. Gives back the exit code of this program.
int renderOnCluster(Session& session, RenderOrder order, const std::string& profile, int jobs,
                    const std::string& engine);

}  // namespace kvo
