#include "windows/main/frm_file_open.h"

#include "ui/texts.h"
#include "ui/theme.h"
#include "ui/tool_tips.h"

#include <QApplication>
#include <QWindow>
#include <utility>

namespace kvo {
namespace {

// Without taking it off the desktop: its window handle passes the wish on.
void keepAbove(QWidget& window, bool above) {
  auto* handle = window.windowHandle();
  if (handle != nullptr && handle->flags().testFlag(Qt::WindowStaysOnTopHint) != above) {
    handle->setFlag(Qt::WindowStaysOnTopHint, above);
  }
}

QPoint pointOf(const ScreenPoint& point) { return {point.x, point.y}; }

}  // namespace

FrmFileOpen::FrmFileOpen(MainWindowState& state, const Logic& logic, const Material& material)
    : state_(state),
      settled_(logic.settled),
      acts_(state, {logic.menu, logic.positions, logic.mailbox, logic.shutDown, logic.display},
            [this] { draw(); }),
      skinned_(
          state,
          {logic.list, logic.history, logic.mailbox, logic.display, logic.positions, logic.pictures,
           logic.rows, logic.hover, logic.resume, logic.transport,
           [&media = logic.media] { media.AddMedia(); }, logic.showCodec, logic.showStream, logic.showQueue},
          acts_, material.skin, material.images, material.folder, [this] { draw(); }),
      zoom_(state,
            {logic.display, logic.positions, logic.pictures, logic.hover, logic.resume, logic.transport},
            acts_, material.folder, [this] { draw(); }),
      full_(state, logic.display, logic.transport, logic.pictures, acts_, [this] { draw(); }),
      place_(material.store, material.desktop, "FrmFileOpenPlace") {
  clock_.start();
  if (material.video == nullptr) return;
  video_.emplace(*material.video, VideoFeed::best(material.graphicsDevice));
  skinned_.showVideo(*video_);
  zoom_.showVideo(*video_);
  full_.showVideo(*video_);
}

// What is drawn may tell the logic of a size that it has got, and so ask for another drawing.
void FrmFileOpen::draw() {
  again_ = true;
  if (std::exchange(drawing_, true)) return;
  if (settled_) settled_();
  if (themeSize() != state_.mode.interfaceSize) setThemeSize(*qApp, state_.mode.interfaceSize);
  showToolTips(*qApp, state_.face.toolTips);
  constexpr int kMostRounds = 3;
  for (int round = 0; again_ && round < kMostRounds; ++round) {
    again_ = false;
    state_.face.visible ? showFace() : leave();
    full_.draw(face());
  }
  drawing_ = false;
}

QWidget& FrmFileOpen::face() {
  return state_.mode.IsMiniMode ? static_cast<QWidget&>(zoom_) : static_cast<QWidget&>(skinned_);
}

QWidget* FrmFileOpen::shownFace() { return face().isVisible() ? &face() : nullptr; }

FaceOnScreen FrmFileOpen::onScreen(const QWidget& face) const {
  const auto inside = face.geometry();
  return {.corner = {face.x(), face.y()},
          .inside = {inside.x(), inside.y(), inside.width(), inside.height()},
          .isFramed = face.frameGeometry() != inside,
          .visible = face.isVisible(),
          .covers = face.isFullScreen(),
          .isNormal = &face == &skinned_};
}

void FrmFileOpen::showFace() {
  auto& now = face();
  auto& other = &now == &skinned_ ? static_cast<QWidget&>(zoom_) : static_cast<QWidget&>(skinned_);
  const auto caption = shown(state_.face.caption);
  if (skinned_.windowTitle() != caption) skinned_.setWindowTitle(caption);
  const auto time = clock_.elapsed();
  corner_.beforeDrawing(onScreen(now), time);
  &now == &skinned_ ? skinned_.draw() : zoom_.draw();
  if (const auto goal = corner_.afterDrawing(onScreen(now), time)) place_.moveTo(now, pointOf(*goal));
  if (!now.isVisible()) exchange(now, other);
  keepAbove(now, state_.face.stayOnTop);
  if (std::exchange(state_.face.raise, false)) {
    now.setWindowState(now.windowState() & ~Qt::WindowMinimized);
    now.raise();
    now.activateWindow();
  }
}

void FrmFileOpen::exchange(QWidget& now, QWidget& other) {
  const auto corner = corner_.cameFrom(onScreen(other), clock_.elapsed());
  other.isVisible() ? place_.moveTo(now, pointOf(corner)) : place_.restore(now);
  corner_.stands({now.x(), now.y()});
  state_.mode.IsFullScreenWindow ? now.showFullScreen() : now.show();
  other.hide();
  now.activateWindow();
  again_ = true;  // what is only drawn while it is seen
}

// The end of the program, or the time ahead of its first window.
void FrmFileOpen::leave() {
  for (auto* window : {static_cast<QWidget*>(&skinned_), static_cast<QWidget*>(&zoom_)}) {
    if (!window->isVisible()) continue;
    place_.keep(*window, pointOf(corner_.atEnd(onScreen(*window))));
    window->close();
  }
}

}  // namespace kvo
