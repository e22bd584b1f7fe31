// What the render engine is asked for, read from its files: the same for the engine itself and for whoever
// hands its segments to many machines.
#pragma once

#include "app/engine_arguments.h"
#include "ports/files.h"
#include "ports/temporary_folders.h"
#include "render/render_driver.h"

#include <string>

namespace kvo {

struct EngineJob {
  engine::Timeline timeline;
  engine::RenderJob job;
};

/// The timeline of a document, which is called `shownAs` where something is wrong with it.
Result<engine::Timeline> readTimeline(const Files& files, const std::string& document,
                                      const std::string& shownAs);

/// Reads document and profile. `profileFile` is the one in force, empty for none.
Result<EngineJob> readEngineJob(const Files& files, const EngineArguments& arguments,
                                const std::string& profileFile);

/// Whether an order's movie is made in segments, which are kept, and not in one piece; `profile` are the
/// bytes of a profile file, empty for none. Fails as the render would before its first frame, but for its
/// sources.
Result<bool> makesSegments(Files& files, TemporaryFolders& folders, RenderOrder order,
                           const std::string& profile);

/// The names that the job's segments have in its work folder.
Result<std::vector<std::string>> segmentFiles(const Files& files, const EngineJob& job);

}  // namespace kvo
