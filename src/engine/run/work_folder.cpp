#include "engine/run/work_folder.h"

#include "base/fnv.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <set>
#include <system_error>

namespace kvo::engine {
namespace {

constexpr std::string_view kEnding = ".segment";
constexpr std::size_t kKeyDigits = 16;

std::string hexOf(std::uint64_t number) {
  std::array<char, kKeyDigits> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), number, 16).ptr;
  const auto count = static_cast<std::size_t>(end - digits.begin());
  return std::string(digits.size() - count, '0').append(digits.data(), count);
}

// A name that comes of a render, this one or another: the folder may hold what is none of ours.
bool isOfRender(std::string_view name) {
  return name.find_first_not_of("0123456789abcdef") == kKeyDigits && name[kKeyDigits] == '-';
}

std::string segmentsText(const RenderPlan& plan) {
  std::string text;
  for (const auto& [first, stop] : plan.segments)
    text += std::to_string(first) + "-" + std::to_string(stop) + " ";
  return text;
}

// Which encoders make them.
std::string encodersText(const RenderPlan& plan) {
  const auto* hardware = plan.format.video ? plan.format.video->hardware : nullptr;
  return media::encoderVersions() +
         (hardware == nullptr ? std::string() : " " + std::string(hardware->name()));
}

// A line for each source.
std::string sourcesText(const Timeline& timeline, const Files& files) {
  std::set<std::string> sources;
  for (const auto& file : pictureFiles(timeline.video)) sources.insert(file);
  for (const auto& clip : timeline.audio) sources.insert(clip.src);
  std::string text;
  for (const auto& source : sources) {
    const auto facts = files.facts(source).value_or(FileFacts());
    text += source + " " + std::to_string(facts.size) + " " + std::to_string(facts.changed) + "\n";
  }
  return text;
}

}  // namespace

std::vector<std::string> segmentFiles(const Timeline& timeline, const RenderPlan& plan, const RenderJob& job,
                                      const Files& files) {
  const auto key = hexOf(fnv1a(encodersText(plan) + "\n" + segmentsText(plan) + "\n" +
                               sourcesText(timeline, files) + job.work->identity));
  std::vector<std::string> names;
  for (std::size_t i = 0; i < plan.segments.size(); ++i)
    names.push_back(key + "-" + std::to_string(i + 1).append(kEnding));
  return names;
}

WorkFolder::WorkFolder(Files& files, const Work& work, std::vector<std::string> names)
    : files_(&files),
      folder_(work.folder),
      share_(work.share),
      names_(std::move(names)),
      key_(fnv1a(names_.empty() ? "" : names_.front())) {}

Result<WorkFolder> WorkFolder::open(const Timeline& timeline, const RenderPlan& plan, const RenderJob& job,
                                    Files& files) {
  WorkFolder work(files, *job.work, segmentFiles(timeline, plan, job, files));
  if (auto made = files.makeFolder(work.folder_); !made) return made.error();
  if (!work.share_) work.sweepOthers();
  return work;
}

void WorkFolder::removeThose(const std::function<bool(const std::string& name)>& which) const {
  std::vector<std::string> gone;
  files_->eachBelow(folder_, [&](const std::string& path) {
    const auto name = path.substr(path.find_last_of('/') + 1);
    if (path == folder_ + "/" + name && isOfRender(name) && which(name)) gone.push_back(path);
    return true;
  });
  for (const auto& path : gone) files_->remove(path);
}

void WorkFolder::sweepOthers() const {
  removeThose([&](const std::string& name) {
    return endsInText(name, kEnding) && std::find(names_.begin(), names_.end(), name) == names_.end();
  });
}

bool WorkFolder::wants(std::size_t number) const { return !share_ || number % share_->of == share_->number; }

Result<media::SegmentReader> WorkFolder::read(std::size_t number) const {
  return media::SegmentReader::open(folder_ + "/" + names_.at(number), key_);
}

Result<std::unique_ptr<Replacement>> WorkFolder::begin(std::size_t number) const {
  return files_->replace(folder_ + "/" + names_.at(number));
}

std::string WorkFolder::draft() const {
  return folder_ + "/" + names_.front().substr(0, kKeyDigits + 1) + "draft" +
         std::to_string(share_ ? share_->number : 0);
}

void WorkFolder::sweep() const {
  removeThose([](const std::string&) { return true; });
  std::error_code isInUse;
  std::filesystem::remove(folder_, isInUse);
}

}  // namespace kvo::engine
