#include "windows/main/frm_file_open.h"

#include "ui/texts.h"
#include "ui/theme.h"
#include "ui/tool_tips.h"

#include <QApplication>
#include <QWindow>
#include <algorithm>
#include <cstdlib>
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

// A desktop takes a moment to put a window that has covered the screen back, and its frame about it: until
// then where it is seen is not where it stands.
constexpr int kSettleTime = 1500;  // milliseconds

// A window of which a desktop has only put its frame elsewhere has not been moved.
bool isNear(const QPoint& a, const QPoint& b) {
  constexpr int kFrame = 48;  // pixels, the highest title bar
  return std::max(std::abs(a.x() - b.x()), std::abs(a.y() - b.y())) <= kFrame;
}

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

void FrmFileOpen::showFace() {
  auto& now = face();
  auto& other = &now == &skinned_ ? static_cast<QWidget&>(zoom_) : static_cast<QWidget&>(skinned_);
  const auto caption = shown(state_.face.caption);
  if (skinned_.windowTitle() != caption) skinned_.setWindowTitle(caption);
  const bool covered = now.isFullScreen();
  const auto size = now.size();
  const bool settles = uncovered_.isValid() && !uncovered_.hasExpired(kSettleTime);
  if (now.isVisible() && !covered && !settles) {
    corner_ = now.pos();
    frame_ = now.geometry().topLeft() - corner_;
  }
  &now == &skinned_ ? skinned_.draw() : zoom_.draw();
  // Where it stood before it covered the screen, when its frame is not back yet; and wholly on the screen
  // after it has grown.
  if (now.isVisible() && !now.isFullScreen()) {
    if (covered) uncovered_.start();
    const bool framed = !covered && now.frameGeometry() != now.geometry();
    const auto goal = (covered || settles) && !framed ? corner_ + frame_ : corner_;
    if (covered || now.size() != size || (settles && now.pos() != goal)) place_.moveTo(now, goal);
  }
  if (!now.isVisible()) {
    if (other.isVisible() && !other.isFullScreen() && !settles) corner_ = other.pos();
    uncovered_.invalidate();
    if (&other == &skinned_) home_ = corner_;
    if (&now == &skinned_ && isNear(corner_, home_)) corner_ = home_;
    other.isVisible() ? place_.moveTo(now, corner_) : place_.restore(now);
    corner_ = now.pos();
    state_.mode.IsFullScreenWindow ? now.showFullScreen() : now.show();
    other.hide();
    now.activateWindow();
    again_ = true;  // what is only drawn while it is seen
  }
  keepAbove(now, state_.face.stayOnTop);
  if (std::exchange(state_.face.raise, false)) {
    now.setWindowState(now.windowState() & ~Qt::WindowMinimized);
    now.raise();
    now.activateWindow();
  }
}

// The end of the program, or the time ahead of its first window.
void FrmFileOpen::leave() {
  for (auto* window : {static_cast<QWidget*>(&skinned_), static_cast<QWidget*>(&zoom_)}) {
    if (!window->isVisible()) continue;
    // The next start is with the skinned face, where it was.
    const auto corner = window->isFullScreen() ? corner_ : window->pos();
    place_.keep(*window, window == &zoom_ && isNear(corner, home_) ? home_ : corner);
    window->close();
  }
}

}  // namespace kvo
