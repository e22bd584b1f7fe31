#include "app/engine_hardware.h"

#include "adapters/posix/poll_loop.h"
#include "render/hardware_trial.h"

#include <utility>

namespace kvo {

Result<EngineHardware> engineHardware(EncoderWish wish, const engine::RenderJob& job, Processes& processes,
                                      const std::string& engine) {
  const auto inSoftware = [](const std::string& why) {
    return EngineHardware{nullptr, "the picture is encoded in software: " + why};
  };
  if (wish == EncoderWish::Software || outputKindOf(job.output) != OutputKind::Mp4) return EngineHardware();
  if (engine::mostMegabytes(job) > 0) return inSoftware("only that keeps within a size");
  if (job.work && job.work->share) return inSoftware("other machines have a share in it");
  const auto names = media::hardwareNames();
  PollLoop loop;
  HardwareTrial trial({processes, loop, engine, {names.begin(), names.end()}}, [&] { loop.quit(); });
  trial.begin();
  loop.run();
  const auto& [encoder, why] = *trial.found();
  if (!encoder.empty()) return EngineHardware{media::hardwareNamed(encoder), {}};
  const auto none = "no encoder of a device works here (" + why + ")";
  if (wish == EncoderWish::Hardware) return Error{"cannot write " + job.output + ": " + none};
  return inSoftware(none);
}

}  // namespace kvo
