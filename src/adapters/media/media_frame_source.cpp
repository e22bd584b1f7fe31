#include "adapters/media/media_frame_source.h"

#include "base/guarded.h"
#include "media/bgr.h"
#include "media/media_facts.h"
#include "media/scaler.h"
#include "media/video_reader.h"

#include <algorithm>
#include <system_error>

namespace kvo {
namespace {

constexpr int kBytesPerPixel = 3;

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

Result<StreamFacts> MediaFrameSource::facts(const std::string& path) {
  std::error_code failed;
  const auto size = std::filesystem::file_size(path, failed);
  const Stamp stamp{failed ? 0 : size, std::filesystem::last_write_time(path, failed)};
  if (!failed) {
    const std::lock_guard lock(mutex_);
    const auto found = known_.find(path);
    if (found != known_.end() && found->second.stamp == stamp) return found->second.facts;
  }
  auto facts = guarded([&] { return media::readFacts(path); });
  if (facts && !failed) {
    const std::lock_guard lock(mutex_);
    known_.insert_or_assign(path, Known{stamp, *facts});
  }
  return facts;
}

Result<FramePicture> MediaFrameSource::frame(const std::string& path, double seconds, int width, int height) {
  return guarded([&] { return readFrame(path, seconds, width, height); });
}

}  // namespace kvo
