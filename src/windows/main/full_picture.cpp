#include "windows/main/full_picture.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "windows/main/transport_acts.h"

#include <QScreen>
#include <utility>

namespace kvo {
namespace {

constexpr int kPointerRest = 2000;  // milliseconds

}  // namespace

FullPicture::FullPicture(const MainWindowState& state, Display& display, Transport& transport,
                         ClipPicture& pictures, WindowActs& acts, std::function<void()> acted)
    : QWidget(nullptr, Qt::Window),
      state_(state),
      display_(display),
      acted_(std::move(acted)),
      picture_(made<PictureBox>(state, pictures, this)) {
  picture_->standAlone();
  picture_->setMouseTracking(true);
  picture_->whenClicked([this, &transport](Qt::MouseButton button) {
    transport.pictureClicked(pictureButton(button));
    acted_();
  });
  setMouseTracking(true);
  rest_.setSingleShot(true);
  rest_.setInterval(kPointerRest);
  connect(&rest_, &QTimer::timeout, [this] { setCursor(Qt::BlankCursor); });
  acts.serve(*this);
}

void FullPicture::draw(const QWidget& face) {
  const bool shows = state_.face.visible && state_.mode.pictureAlone;
  if (!shows) return hide();
  const auto caption = shown(state_.face.caption);
  if (caption != windowTitle()) setWindowTitle(caption);
  if (!isVisible()) {
    setGeometry(face.screen()->geometry());
    showFullScreen();
    activateWindow();
    rest_.start();
  }
  picture_->draw();
}

// The pointer goes while it rests.
void FullPicture::mouseMoveEvent(QMouseEvent* /*event*/) {
  unsetCursor();
  rest_.start();
}

void FullPicture::resizeEvent(QResizeEvent* /*event*/) { picture_->setGeometry(rect()); }

void FullPicture::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
  display_.mnu_DirXFullSC_Click();
  acted_();
}

}  // namespace kvo
