#include "adapters/mpv/mpv_video_output.h"

#include "base/guarded.h"

#include <algorithm>
#include <utility>

namespace kvo {

bool MpvVideoOutput::useOpenGl(OpenGl gl) {
  return guarded([&]() -> Outcome {
           const MpvHandle core({{"config", "no"}, {"vo", "libmpv"}});
           if (!MpvPicture(core, &gl, [] {}).valid()) return Error{"there is no OpenGL that draws pictures"};
           renew(std::move(gl));
           return {};
         })
      .ok();
}

void MpvVideoOutput::useSoftware() {
  if (gl_) renew({});
}

// The files let go of the OpenGL before while it is there.
void MpvVideoOutput::renew(std::optional<OpenGl> gl) {
  for (auto* file : files_) file->dropPicture();
  gl_ = std::move(gl);
  for (auto* file : files_) file->makePicture(openGl());
}

void MpvVideoOutput::draw(int buffer, int width, int height) {
  if (hasPicture()) front_->picture().draw(buffer, width, height);
}

void MpvVideoOutput::draw(const Rows& rows) {
  if (hasPicture()) front_->picture().draw(rows);
}

void MpvVideoOutput::remove(const MpvFile& file) {
  std::erase(files_, &file);
  if (isFront(file)) bring(nullptr);
}

void MpvVideoOutput::bring(MpvFile* file) {
  if (std::exchange(front_, file) != file && heard_) heard_();
}

void MpvVideoOutput::pictureDue(MpvFile& file) {
  if (!file.picture().update()) return;
  if (!isFront(file) || !heard_ || !heard_()) file.picture().passOver();
}

}  // namespace kvo
