#include "windows/main/free_zoom_face.h"

#include "playback/display/layout.h"
#include "playback/display/picture_room.h"
#include "program/picture_sign.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/main/hover_part.h"
#include "windows/main/transport_acts.h"

#include <QCursor>
#include <QGraphicsOpacityEffect>
#include <QMouseEvent>
#include <QPainter>
#include <QPropertyAnimation>
#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr int kToolbarRest = 2000;  // milliseconds
constexpr int kToolbarFade = 120;
constexpr int kLeastZoomWidth = 320;  // pixels
constexpr int kLeastZoomHeight = 120;

}  // namespace

FreeZoomFace::FreeZoomFace(MainWindowState& state, const Logic& logic, WindowActs& acts,
                           const std::string& folder, std::function<void()> acted)
    : QWidget(nullptr, Qt::Window),
      state_(state),
      logic_(logic),
      acted_(std::move(acted)),
      toolbar_(made<ToolbarPart>(state, toolActs(), folder, this)),
      picture_(made<PictureBox>(state, logic_.pictures, this)),
      hover_(made<HoverPart>(state.hover, this)),
      fade_(made<QGraphicsOpacityEffect>(toolbar_)),
      fading_(made<QPropertyAnimation>(fade_, "opacity", this)) {
  setFocusPolicy(Qt::ClickFocus);
  setFocus();  // else the first key has it once the window becomes active
  setMinimumSize(kLeastZoomWidth, kLeastZoomHeight);
  setMouseTracking(true);
  picture_->setMouseTracking(true);
  picture_->installEventFilter(this);
  picture_->offerResume([this] {
    logic_.resume.take();
    acted_();
  });
  picture_->whenClicked([this](Qt::MouseButton button) {
    logic_.transport.pictureClicked(pictureButton(button));
    acted_();
  });
  toolbar_->setGraphicsEffect(fade_);
  fade_->setOpacity(1);
  fade_->setEnabled(false);
  fading_->setDuration(kToolbarFade);
  connect(fading_, &QPropertyAnimation::finished, [this] {
    const bool gone = fade_->opacity() == 0;
    toolbar_->setVisible(!gone);
    fade_->setEnabled(gone);
  });
  rest_.setSingleShot(true);
  rest_.setInterval(kToolbarRest);
  connect(&rest_, &QTimer::timeout, [this] { showToolbar(false); });
  acts.serve(*this);
}

ToolbarPart::Acts FreeZoomFace::toolActs() {
  ToolbarPart::Acts acts{.clicks = {},
                         .steps = stepActs(logic_.positions.stepping, [this] { acted_(); }),
                         .line = {logic_.positions.marks, [this] { acted_(); },
                                  [this](double part) {
                                    logic_.hover.over(part);
                                    drawHover();
                                  },
                                  [this] {
                                    logic_.hover.left();
                                    drawHover();
                                  }}};
  const auto of = [&](HitLabel label) -> std::function<void()>& {
    return acts.clicks[static_cast<std::size_t>(label)];
  };
  of(HitLabel::Lbl_PlayGraphic) = [this] {
    pressPlay(logic_.transport, false);
    acted_();
  };
  of(HitLabel::Lbl_PauseGraphic) = [this] {
    logic_.transport.Lbl_PauseGraphic_Click();
    acted_();
  };
  const auto speed = [this](std::string_view rate) {
    return [this, rate] {
      logic_.positions.remote.rate(rate);
      acted_();
    };
  };
  of(HitLabel::lbl_Speed025) = speed("0.25");
  of(HitLabel::Lbl_Speed05) = speed("0.50");
  of(HitLabel::Lbl_Speed02) = speed("2.0");
  of(HitLabel::Lbl_SliderMiniMode) = [this] {
    logic_.display.Lbl_SliderMiniMode_Click();
    acted_();
  };
  of(HitLabel::Lbl_MinMax) = [this] {
    logic_.display.Lbl_MinMax_Click();
    acted_();
  };
  of(HitLabel::Lbl_MiniMode) = [this] {
    logic_.display.Lbl_MiniMode_Click();
    acted_();
  };
  return acts;
}

void FreeZoomFace::draw() {
  const FaceScale scale(state_.mode.interfaceSize, logicalDpiY());
  if (scale != scale_ || pixelRatio_ != devicePixelRatio()) {
    scale_ = scale;
    pixelRatio_ = devicePixelRatio();
    toolbar_->layOut(scale_);
    hover_->layOut(scale_);
  }
  const auto own = told(state_.mode.window.caption);
  const auto caption = own.isEmpty() ? shown(state_.face.caption) : own;
  if (caption != windowTitle()) setWindowTitle(caption);
  takeShape();
  toolbar_->draw();
  placePicture();
  picture_->draw();
  drawHover();
}

void FreeZoomFace::drawHover() {
  hover_->drawBelow(toolbar_->mapTo(this, toolbar_->below(state_.hover.part)));
}

void FreeZoomFace::takeShape() {
  const auto& window = state_.mode.window;
  const bool covers = window.border == BorderStyle::Covering;
  if (covers != isFullScreen() && isVisible()) {
    covers ? showFullScreen() : showNormal();
  }
  if (std::exchange(placings_, window.placings) == window.placings || covers) return;
  const double pixel = state_.mode.twipsPerPixel();
  resize(qRound(window.place.width / pixel), qRound(window.place.height / pixel));
}

void FreeZoomFace::placePicture() {
  const double pixel = state_.mode.twipsPerPixel();
  const int toolbar = scale_.at(kToolbarHeight / kTwipsPerPixel);
  toolbar_->setGeometry(0, 0, width(), toolbar);
  picture_->setVisible(state_.list.ListIndex >= 0);
  const bool hasPicture = pictureSign(state_).icon == PictureSign::Icon::None;
  const auto room = pictureRoom(state_.mode, hasPicture, toolbar * pixel, width() * pixel, height() * pixel);
  picture_->setGeometry(qRound(room.left / pixel), qRound(room.top / pixel), qRound(room.width / pixel),
                        qRound(room.height / pixel));
}

void FreeZoomFace::showToolbar(bool shown) {
  const bool inUse = toolbar_->rect().contains(toolbar_->mapFromGlobal(QCursor::pos()));
  if (!shown && (!isFullScreen() || inUse)) return;
  shown ? picture_->unsetCursor() : picture_->setCursor(Qt::BlankCursor);  // the pointer goes with it
  if (!shown && toolbar_->isHidden()) return;
  if (shown && !toolbar_->isHidden()) {
    fading_->stop();
    fade_->setOpacity(1);
    fade_->setEnabled(false);
  } else {
    toolbar_->show();
    fade_->setEnabled(true);
    fading_->stop();
    fading_->setEndValue(shown ? 1.0 : 0.0);
    fading_->start();
  }
  isFullScreen() && shown ? rest_.start() : rest_.stop();
}

void FreeZoomFace::mouseMoved() {
  if (!isFullScreen()) return;
  picture_->unsetCursor();
  rest_.start();
}

bool FreeZoomFace::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove) mouseMoved();
  if (event->type() == QEvent::MouseButtonPress) showToolbar(true);
  return QWidget::eventFilter(watched, event);
}

bool FreeZoomFace::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
      mouseMoved();
      break;
    case QEvent::KeyPress:
    case QEvent::Show:
    case QEvent::WindowStateChange:
      showToolbar(true);
      break;
    case QEvent::ScreenChangeInternal:
      draw();
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

void FreeZoomFace::moveEvent(QMoveEvent* /*event*/) {
  logic_.display.Form_Move({x(), y(), width(), height()});
}

void FreeZoomFace::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) showToolbar(true);
}

void FreeZoomFace::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  logic_.display.Lbl_MinMax_Click();
  acted_();
}

void FreeZoomFace::resizeEvent(QResizeEvent* /*event*/) {
  const double pixel = state_.mode.twipsPerPixel();
  logic_.display.Form_Resize(width() * pixel, height() * pixel);
  acted_();
}

void FreeZoomFace::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), Qt::black); }

}  // namespace kvo
