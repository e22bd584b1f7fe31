// Which encoder of a device the render engine takes, as it was asked for one.
#pragma once

#include "app/engine_job.h"
#include "media/hardware.h"
#include "ports/processes.h"

#include <memory>
#include <string>

namespace kvo {

struct EngineHardware {
  std::unique_ptr<media::Hardware> encoder;  ///< null for the software
  std::string note;  ///< why it is the software all the same; empty for nothing to say
};

/// Has processes of `engine` try what there is, which takes up to seconds, where a device is wished for and
/// the job is one for it. Fails where there has to be one and none works.
Result<EngineHardware> engineHardware(EncoderWish wish, const engine::RenderJob& job, Processes& processes,
                                      const std::string& engine);

}  // namespace kvo
