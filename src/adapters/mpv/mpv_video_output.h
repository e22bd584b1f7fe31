// Which file is in front, and the drawing of its picture.
#pragma once

#include "adapters/mpv/mpv_file.h"
#include "ports/video_output.h"

#include <functional>
#include <optional>
#include <vector>

namespace kvo {

class MpvVideoOutput : public VideoOutput {
 public:
  bool useOpenGl(OpenGl gl) override;
  void useSoftware() override;
  [[nodiscard]] bool hasPicture() const override { return front_ != nullptr && front_->hasPicture(); }
  void draw(int buffer, int width, int height) override;
  void draw(const Rows& rows) override;
  void whenPictureDue(std::function<bool()> heard) override { heard_ = std::move(heard); }

  // Of this room.
  /// What files draw with; null without OpenGL.
  [[nodiscard]] const OpenGl* openGl() const { return gl_ ? &*gl_ : nullptr; }
  void add(MpvFile& file) { files_.push_back(&file); }
  void remove(const MpvFile& file);
  /// This file is in front from now on; null for none.
  void bring(MpvFile* file);
  [[nodiscard]] bool isFront(const MpvFile& file) const { return &file == front_; }
  /// See MpvFile::House.
  void pictureDue(MpvFile& file);
  void opened(const MpvFile& file) const {
    if (isFront(file) && heard_) heard_();
  }

 private:
  void renew(std::optional<OpenGl> gl);

  std::optional<OpenGl> gl_;
  std::vector<MpvFile*> files_;
  MpvFile* front_ = nullptr;
  std::function<bool()> heard_;
};

}  // namespace kvo
