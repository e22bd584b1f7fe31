#include "adapters/media/media_file_contents.h"

#include "adapters/media/facts_text.h"
#include "base/guarded.h"
#include "base/text.h"
#include "media/bgr.h"
#include "media/media_facts.h"
#include "media/scaler.h"
#include "media/video_reader.h"

#include <algorithm>
#include <system_error>

namespace kvo {
namespace {

constexpr int kBytesPerPixel = 3;
constexpr std::size_t kMostKept = 20000;  // files, 150 bytes each

int evenSide(int side) { return (std::max(side, 2) + 1) / 2 * 2; }

Result<FramePicture> readFrame(const std::string& path, double seconds, int width, int height) {
  auto reader = media::VideoReader::open(path, 1);
  if (!reader) return reader.error();
  const auto frame = reader->frameAt(seconds);
  if (!frame) return frame.error();
  media::Scaler scaler(evenSide(width), evenSide(height));
  const auto picture = scaler.place(*frame, media::Fit::Letterbox);
  if (!picture) return picture.error();
  FramePicture shown{picture->width(), picture->height(), {}};
  const auto stride = static_cast<std::size_t>(shown.width) * kBytesPerPixel;
  shown.bgr.resize(stride * static_cast<std::size_t>(shown.height));
  media::toBgr(*picture, shown.bgr.data(), stride);
  return shown;
}

}  // namespace

std::optional<MediaFileContents::Stamp> MediaFileContents::stampOf(const std::string& path) {
  std::error_code failed;
  const auto size = std::filesystem::file_size(path, failed);
  if (failed) return std::nullopt;
  const auto time = std::filesystem::last_write_time(path, failed);
  return failed ? std::nullopt : std::optional(Stamp{size, time});
}

Result<StreamFacts> MediaFileContents::facts(const std::string& path) {
  const auto stamp = stampOf(path);
  if (stamp) {
    const std::lock_guard lock(mutex_);
    const auto found = known_.find(path);
    if (found != known_.end() && found->second.stamp == *stamp) return found->second.facts;
  }
  auto facts = guarded([&] { return media::readFacts(path); });
  if (facts && stamp) take(path, *stamp, *facts);
  return facts;
}

void MediaFileContents::learn(const std::string& path, const StreamFacts& facts) {
  if (const auto stamp = stampOf(path)) take(path, *stamp, facts);
}

void MediaFileContents::take(const std::string& path, const Stamp& stamp, const StreamFacts& facts) {
  const std::lock_guard lock(mutex_);
  known_.insert_or_assign(path, Known{stamp, facts});
  hasNews_ = true;
}

std::string MediaFileContents::known(std::string_view maker) {
  const std::lock_guard lock(mutex_);
  hasNews_ = false;
  auto text = std::string(maker).append("\n");
  std::size_t files = 0;
  for (const auto& [path, known] : known_) {
    const auto line =
        lineOf({path, known.stamp.size, known.stamp.time.time_since_epoch().count(), known.facts});
    if (line.empty()) continue;
    text.append(line).append("\n");
    if (++files == kMostKept) break;
  }
  return text;
}

void MediaFileContents::remember(std::string_view text, std::string_view maker) {
  const std::lock_guard lock(mutex_);
  for (bool isFirst = true; !text.empty(); isFirst = false) {
    const auto line = nextLine(text);
    if (isFirst && line != maker) return;
    if (const auto file = isFirst ? std::nullopt : fileIn(line)) {
      const std::filesystem::file_time_type time{std::filesystem::file_time_type::duration(file->changed)};
      known_.try_emplace(file->path, Known{{file->size, time}, file->facts});
    }
  }
}

bool MediaFileContents::hasNews() {
  const std::lock_guard lock(mutex_);
  return hasNews_;
}

Result<FramePicture> MediaFileContents::frame(const std::string& path, double seconds, int width,
                                              int height) {
  return guarded([&] { return readFrame(path, seconds, width, height); });
}

}  // namespace kvo
