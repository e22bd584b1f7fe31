// The picture of the clip in hand alone on the whole screen, over the face, which stays as it is.
#pragma once

#include "playback/transport/transport.h"
#include "windows/main/picture_box.h"
#include "windows/main/window_acts.h"

#include <QTimer>
#include <QWidget>
#include <functional>

namespace kvo {

class FullPicture : public QWidget {
 public:
  /// `acted` is called behind each act.
  FullPicture(const MainWindowState& state, Display& display, Transport& transport, ClipPicture& pictures,
              WindowActs& acts, std::function<void()> acted);

  /// See PictureBox.
  void showVideo(VideoFeed& feed) { picture_->showVideo(feed); }
  /// Comes and goes with the state, on the screen of `face`.
  void draw(const QWidget& face);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  const MainWindowState& state_;
  Display& display_;
  std::function<void()> acted_;
  PictureBox* picture_;
  QTimer rest_;  // how long the mouse has not moved
};

}  // namespace kvo
