// What draws the pictures of one core, in RAII: with OpenGL or into rows. For this room only.
#pragma once

#include "adapters/mpv/mpv_handle.h"
#include "ports/video_output.h"

#include <functional>
#include <memory>

struct mpv_render_context;

namespace kvo {

class MpvPicture {
 public:
  /// `gl` is null for rows; it outlives the picture. `due` is called from any thread when update() is to be
  /// asked. See valid().
  MpvPicture(const MpvHandle& core, const VideoOutput::OpenGl* gl, std::function<void()> due);
  MpvPicture(const MpvPicture&) = delete;
  MpvPicture& operator=(const MpvPicture&) = delete;
  ~MpvPicture();

  /// False when it could not be made.
  [[nodiscard]] bool valid() const { return context_ != nullptr; }
  /// Whether a new picture is to be drawn, or passed over.
  [[nodiscard]] bool update();
  void draw(int buffer, int width, int height);
  void draw(const VideoOutput::Rows& rows);
  /// The core goes on as if the picture had been drawn.
  void passOver();

 private:
  void makeCurrent() const;

  const VideoOutput::OpenGl* gl_;
  std::function<void()> due_;
  mpv_render_context* context_ = nullptr;  // freed with the context of OpenGL current
};

}  // namespace kvo
