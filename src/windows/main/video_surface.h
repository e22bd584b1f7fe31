// Where the picture of the engine in front is drawn, as a child of a picture box: by OpenGL where the machine
// has a real one, else into rows. It is drawn when the engine has a new one, and what stands costs nothing.
#pragma once

#include "ports/video_output.h"

#include <memory>
#include <vector>

class QWidget;

namespace kvo {

class VideoSurface {
 public:
  VideoSurface() = default;
  VideoSurface(const VideoSurface&) = delete;
  VideoSurface& operator=(const VideoSurface&) = delete;
  virtual ~VideoSurface() = default;

  [[nodiscard]] virtual QWidget& widget() = 0;
  /// A picture is due. True when it is going to be drawn here.
  virtual bool pictureDue() = 0;
};

/// Makes the surfaces of a window, and tells them that a picture is due: one of them is seen.
class VideoFeed {
 public:
  enum class DrawnBy { OpenGl, Rows };

  /// By OpenGL where it is not software, which is not even tried without a `graphicsDevice`. Needs an
  /// application of Qt.
  [[nodiscard]] static DrawnBy best(bool graphicsDevice);

  /// `output` outlives the feed.
  VideoFeed(VideoOutput& output, DrawnBy by);
  VideoFeed(const VideoFeed&) = delete;
  VideoFeed& operator=(const VideoFeed&) = delete;
  ~VideoFeed();

  [[nodiscard]] VideoOutput& output() const { return output_; }
  /// What surfaces are made for. An OpenGL that proves to be none for this turns it to rows, once.
  [[nodiscard]] DrawnBy drawnBy() const { return drawnBy_; }
  /// A surface in `parent`; the feed outlives it.
  std::unique_ptr<VideoSurface> surface(QWidget* parent);

  // Of surfaces.
  void add(VideoSurface& surface) { surfaces_.push_back(&surface); }
  void remove(const VideoSurface& surface);
  /// This surface's OpenGL draws from now on; false when it cannot.
  bool useOpenGl(const VideoSurface& surface, VideoOutput::OpenGl gl);
  /// It draws no more, as its OpenGL goes.
  void endOpenGl(const VideoSurface& surface);
  /// OpenGL is not to be used at all.
  void refuseOpenGl() { drawnBy_ = DrawnBy::Rows; }

 private:
  VideoOutput& output_;
  DrawnBy drawnBy_;
  std::vector<VideoSurface*> surfaces_;
  const VideoSurface* drawing_ = nullptr;  // whose OpenGL the output has
};

}  // namespace kvo
