#include "windows/main/full_picture.h"

#include "ui/made.h"
#include "windows/main/texts.h"

#include <QScreen>
#include <utility>

namespace kvo {

FullPicture::FullPicture(const MainWindowState& state, Display& display, ClipPicture& pictures,
                         WindowActs& acts, std::function<void()> acted)
    : QWidget(nullptr, Qt::Window),
      state_(state),
      display_(display),
      acted_(std::move(acted)),
      picture_(made<PictureBox>(state, pictures, this)) {
  picture_->standAlone();
  acts.serve(*this);
}

void FullPicture::draw(const QWidget& face) {
  const bool shows = state_.face.visible && state_.mode.player.fullScreen;
  if (!shows) return hide();
  const auto caption = shown(state_.face.caption);
  if (caption != windowTitle()) setWindowTitle(caption);
  if (!isVisible()) {
    setGeometry(face.screen()->geometry());
    showFullScreen();
    activateWindow();
  }
  picture_->draw();
}

void FullPicture::resizeEvent(QResizeEvent* /*event*/) { picture_->setGeometry(rect()); }

void FullPicture::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
  display_.mnu_DirXFullSC_Click();
  acted_();
}

}  // namespace kvo
