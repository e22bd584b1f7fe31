// Shows the picture of the clip in hand on black, or a calm sign for what has none.
#pragma once

#include "program/clip_picture.h"
#include "program/picture_sign.h"
#include "windows/main/video_surface.h"

#include <QCoreApplication>
#include <QPixmap>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

namespace kvo {

class ResumeChip;
class StreamChip;

class PictureBox : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::PictureBox)

 public:
  PictureBox(const MainWindowState& state, ClipPicture& pictures, QWidget* parent);

  /// It is the box that shows while the picture covers the screen; the others rest meanwhile.
  void standAlone() { alone_ = true; }
  /// Asks for the picture that is wanted, and shows what there is.
  void draw();
  /// Shows the clip as it is at another time, until that is taken back by nothing.
  void lookAt(std::optional<double> seconds);
  /// Has the engine's picture drawn while it plays the clip, or stands in it. `feed` outlives the box.
  void showVideo(VideoFeed& feed);
  /// Has the offer to resume stand on the picture; `take` is what a press on it does.
  void offerResume(std::function<void()> take);
  /// Hears of a click, by any button but the right one, which opens the menu.
  void whenClicked(std::function<void(Qt::MouseButton)> clicked) { clicked_ = std::move(clicked); }

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  [[nodiscard]] bool isPlayed() const;
  void take();
  void makeVideo();

  const MainWindowState& state_;
  ClipPicture& pictures_;
  bool alone_ = false;
  VideoFeed* feed_ = nullptr;
  std::unique_ptr<VideoSurface> video_;
  VideoFeed::DrawnBy drawnBy_ = VideoFeed::DrawnBy::Rows;
  ResumeChip* resume_ = nullptr;
  StreamChip* stream_;
  std::optional<double> at_;
  QPixmap picture_;
  std::uint64_t shownRevision_ = 0;
  PictureSign drawn_;
  std::function<void(Qt::MouseButton)> clicked_;
  bool pressed_ = false;
};

}  // namespace kvo
