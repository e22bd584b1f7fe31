#include "app/engine_job.h"

#include "base/guarded.h"
#include "base/text.h"
#include "engine/document/document_reader.h"
#include "engine/run/profile_file.h"
#include "engine/run/work_folder.h"

namespace kvo {
namespace {

Result<engine::Timeline> timelineIn(std::string text, const std::string& shownAs) {
  auto timeline = guarded([&] { return engine::readDocument(std::move(text)); });
  if (!timeline) return Error{shownAs + ": " + timeline.error().text};
  return timeline;
}

Result<std::string> readText(const Files& files, const std::string& document, const std::string& shownAs) {
  auto text = files.read(document, engine::kMaxDocumentBytes);
  if (!text) return Error{replaced(text.error().text, document, shownAs)};
  return text;
}

}  // namespace

Result<engine::Timeline> readTimeline(const Files& files, const std::string& document,
                                      const std::string& shownAs) {
  auto text = readText(files, document, shownAs);
  return text ? timelineIn(std::move(*text), shownAs) : text.error();
}

Result<EngineJob> readEngineJob(const Files& files, const EngineArguments& arguments,
                                const std::string& profileFile) {
  // A starter's document is a temporary file that its user knows nothing of.
  const auto shownAs = arguments.starter ? std::string("the timeline document") : arguments.document;
  const auto text = readText(files, arguments.document, shownAs);
  if (!text) return text.error();
  auto timeline = timelineIn(*text, shownAs);
  if (!timeline) return timeline.error();
  EngineJob read{std::move(*timeline), arguments.job};
  std::string profileBytes;
  if (arguments.profile) {
    read.job.profile = systemProfile(*arguments.profile);
  } else if (!profileFile.empty()) {
    const auto bytes = files.read(profileFile, engine::kMaxProfileFile);
    if (!bytes) return bytes.error();
    profileBytes = *bytes;
    const auto profile = engine::readProfileFile(profileBytes);
    if (!profile) return Error{profileFile + ": " + profile.error().text};
    read.job.profile = *profile;
  }
  if (read.job.work) read.job.work->identity += "KVO5 " KVO_VERSION "\n" + profileBytes + *text;
  return read;
}

Result<bool> makesSegments(Files& files, TemporaryFolders& folders, RenderOrder order,
                           const std::string& profile) {
  const auto folder = folders.make();
  if (!folder) return folder.error();
  const auto document = (*folder)->path() + "/KVORender.xtl";
  if (auto done = writeDurably(files, document, order.document); !done) return done.error();
  if (!profile.empty()) {
    order.profileFile = (*folder)->path() + "/KVORender.prx";
    if (auto done = writeDurably(files, order.profileFile, profile); !done) return done.error();
  }
  const auto arguments = readEngineArguments(engineArguments(order, document));
  if (!arguments) return arguments.error();
  const auto read = readEngineJob(files, *arguments, order.profileFile);
  if (!read) return Error{replaced(read.error().text, document, "the timeline document")};
  const auto plan = engine::planRender(engine::inRateOf(read->timeline, read->job), read->job, 1);
  if (!plan) return plan.error();
  return plan->encodesInSegments;
}

Result<std::vector<std::string>> segmentFiles(const Files& files, const EngineJob& job) {
  const auto timeline = engine::inRateOf(job.timeline, job.job);
  const auto plan = engine::planRender(timeline, job.job, 1);
  if (!plan) return plan.error();
  if (!plan->encodesInSegments) return std::vector<std::string>();
  return engine::segmentFiles(timeline, *plan, job.job, files);
}

}  // namespace kvo
