// Where the picture of the engine in front is drawn, as a child of a picture box. It is drawn when the engine
// has a new one, and what stands costs nothing.
#pragma once

#include "ports/video_output.h"

#include <QImage>
#include <QWidget>
#include <cstdint>
#include <vector>

namespace kvo {

class VideoSurface;

/// Tells the surfaces of a window that a picture is due: one of them is seen.
class VideoFeed {
 public:
  /// `output` outlives the feed.
  explicit VideoFeed(VideoOutput& output);
  VideoFeed(const VideoFeed&) = delete;
  VideoFeed& operator=(const VideoFeed&) = delete;
  ~VideoFeed();

  [[nodiscard]] VideoOutput& output() const { return output_; }
  void add(VideoSurface& surface) { surfaces_.push_back(&surface); }
  void remove(const VideoSurface& surface) { std::erase(surfaces_, &surface); }

 private:
  VideoOutput& output_;
  std::vector<VideoSurface*> surfaces_;
};

/// Draws without OpenGL.
class VideoSurface : public QWidget {
 public:
  /// `feed` outlives it.
  VideoSurface(VideoFeed& feed, QWidget* parent);
  ~VideoSurface() override;

  /// A picture is due. True when it is going to be drawn here.
  bool pictureDue();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void takePicture();

  VideoFeed& feed_;
  std::vector<std::uint8_t> rows_;
  QImage picture_;  // of the rows
  bool due_ = true;
};

}  // namespace kvo
