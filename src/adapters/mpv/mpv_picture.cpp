#include "adapters/mpv/mpv_picture.h"

#include <array>
#include <mpv/render.h>
#include <mpv/render_gl.h>
#include <string>
#include <utility>

namespace kvo {

MpvPicture::MpvPicture(const MpvHandle& core, const VideoOutput::OpenGl* gl, std::function<void()> due)
    : gl_(gl), due_(std::move(due)) {
  makeCurrent();
  std::string type = gl == nullptr ? MPV_RENDER_API_TYPE_SW : MPV_RENDER_API_TYPE_OPENGL;
  mpv_opengl_init_params functions{
      [](void* of, const char* name) { return static_cast<const VideoOutput::OpenGl*>(of)->function(name); },
      const_cast<VideoOutput::OpenGl*>(gl)};
  std::array<mpv_render_param, 3> wanted{{{MPV_RENDER_PARAM_API_TYPE, type.data()},
                                          {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &functions},
                                          {MPV_RENDER_PARAM_INVALID, nullptr}}};
  if (gl == nullptr) wanted[1] = wanted[2];
  if (mpv_render_context_create(&context_, core.get(), wanted.data()) < 0) {
    context_ = nullptr;
    return;
  }
  mpv_render_context_set_update_callback(
      context_, [](void* of) { (*static_cast<const std::function<void()>*>(of))(); }, &due_);
}

MpvPicture::~MpvPicture() {
  if (context_ == nullptr) return;
  mpv_render_context_set_update_callback(context_, nullptr, nullptr);
  makeCurrent();
  mpv_render_context_free(context_);
}

void MpvPicture::makeCurrent() const {
  if (gl_ != nullptr) gl_->makeCurrent();
}

bool MpvPicture::update() {
  if (!valid()) return false;
  makeCurrent();
  return (mpv_render_context_update(context_) & MPV_RENDER_UPDATE_FRAME) != 0;
}

void MpvPicture::draw(int buffer, int width, int height) {
  if (!valid()) return;
  mpv_opengl_fbo target{buffer, width, height, 0};
  int wait = 0;
  int bottomUp = 1;
  std::array<mpv_render_param, 4> where{{{MPV_RENDER_PARAM_OPENGL_FBO, &target},
                                         {MPV_RENDER_PARAM_FLIP_Y, &bottomUp},
                                         {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                         {MPV_RENDER_PARAM_INVALID, nullptr}}};
  mpv_render_context_render(context_, where.data());
}

void MpvPicture::draw(const VideoOutput::Rows& rows) {
  if (!valid()) return;
  std::array<int, 2> size{rows.width, rows.height};
  std::string format = "bgr0";
  auto stride = rows.stride;
  int wait = 0;
  std::array<mpv_render_param, 6> where{{{MPV_RENDER_PARAM_SW_SIZE, size.data()},
                                         {MPV_RENDER_PARAM_SW_FORMAT, format.data()},
                                         {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                         {MPV_RENDER_PARAM_SW_POINTER, rows.first},
                                         {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                         {MPV_RENDER_PARAM_INVALID, nullptr}}};
  mpv_render_context_render(context_, where.data());
}

void MpvPicture::passOver() {
  if (!valid()) return;
  makeCurrent();
  int yes = 1;
  int wait = 0;
  std::array<mpv_render_param, 3> how{{{MPV_RENDER_PARAM_SKIP_RENDERING, &yes},
                                       {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                                       {MPV_RENDER_PARAM_INVALID, nullptr}}};
  mpv_render_context_render(context_, how.data());
}

}  // namespace kvo
