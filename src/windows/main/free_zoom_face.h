// The Free Zoom face: a plain window of any size, with a toolbar above the picture. It may cover the screen;
// its toolbar then goes away while the mouse rests.
#pragma once

#include "playback/transport/transport.h"
#include "program/hover_preview.h"
#include "program/resume.h"
#include "windows/main/picture_box.h"
#include "windows/main/toolbar_part.h"
#include "windows/main/window_acts.h"

#include <QTimer>
#include <QWidget>
#include <functional>

class QGraphicsOpacityEffect;
class QPropertyAnimation;

namespace kvo {

class HoverPart;

class FreeZoomFace : public QWidget {
 public:
  struct Logic {
    Display& display;
    Positions& positions;
    ClipPicture& pictures;
    HoverPreview& hover;
    Resume& resume;
    Transport& transport;
  };

  /// `folder` is the program's. `acted` is called behind each act.
  FreeZoomFace(MainWindowState& state, const Logic& logic, WindowActs& acts, const std::string& folder,
               std::function<void()> acted);

  /// See PictureBox.
  void showVideo(VideoFeed& feed) { picture_->showVideo(feed); }
  /// Brings everything in line with the state.
  void draw();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  [[nodiscard]] ToolbarPart::Acts toolActs();
  void takeShape();
  void placePicture();
  void drawHover();
  void mouseMoved();
  void showToolbar(bool shown);

  MainWindowState& state_;
  Logic logic_;
  std::function<void()> acted_;
  FaceScale scale_;
  double pixelRatio_ = 0;
  ToolbarPart* toolbar_;
  PictureBox* picture_;
  HoverPart* hover_;
  QTimer rest_;  // how long the mouse has not moved, while the screen is covered
  QGraphicsOpacityEffect* fade_;
  QPropertyAnimation* fading_;
  std::uint64_t placings_ = 0;
};

}  // namespace kvo
