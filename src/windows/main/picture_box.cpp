#include "windows/main/picture_box.h"

#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/main/frame_pixmap.h"
#include "windows/main/resume_chip.h"
#include "windows/main/stream_chip.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr double kSignShare = 0.22;  // of the lower side
constexpr int kLeastSign = 24;       // pixels
constexpr int kSignTextGap = 10;
constexpr int kLeastSignText = 12;
constexpr int kMostSignText = 24;

const char* iconOf(PictureSign::Icon icon) {
  switch (icon) {
    case PictureSign::Icon::Sound:
      return "music";
    case PictureSign::Icon::Address:
      return "globe";
    default:
      return "warn";
  }
}

Rgb inkOf(PictureSign::Tone tone) {
  switch (tone) {
    case PictureSign::Tone::Stream:
      return token("teal");
    case PictureSign::Tone::Trouble:
      return token("text2");
    case PictureSign::Tone::Lit:
      return token("text1");
    default:
      return token("text3");
  }
}

QString actOf(const PictureSign& sign) { return sign.stops ? PictureBox::tr("Click to stop") : QString(); }

}  // namespace

PictureBox::PictureBox(const MainWindowState& state, ClipPicture& pictures, QWidget* parent)
    : QWidget(parent), state_(state), pictures_(pictures), stream_(made<StreamChip>(state, this)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName(tr("Picture"));
}

void PictureBox::draw() {
  if (!isVisible()) return;
  if (state_.mode.pictureAlone != alone_) {
    if (video_ != nullptr) video_->widget().hide();
    return;
  }
  if (resume_ != nullptr) resume_->draw(state_.mode.interfaceSize);
  stream_->draw();
  if (video_ != nullptr && drawnBy_ != feed_->drawnBy()) makeVideo();
  if (video_ != nullptr) video_->widget().setVisible(isPlayed());
  const auto pixels = size() * devicePixelRatio();
  const bool engines = isPlayed() && !at_;
  pictures_.want(engines ? PictureWish() : pictureOf(state_, at_, pixels.width(), pixels.height()));
  take();
  const auto now = pictureSign(state_);
  if (now == drawn_) return;
  drawn_ = now;
  setAccessibleName(now.icon == PictureSign::Icon::None ? tr("Picture") : told(now.text).simplified());
  setAccessibleDescription(actOf(now));
  setToolTip(state_.picture.picture == nullptr ? plainTip(shown(state_.picture.fault)) : QString());
  update();
}

void PictureBox::take() {
  if (shownRevision_ == state_.picture.revision) return;
  shownRevision_ = state_.picture.revision;
  const auto& picture = state_.picture.picture;
  picture_ = picture == nullptr ? QPixmap() : framePixmap(*picture, devicePixelRatio());
  update();
}

void PictureBox::offerResume(std::function<void()> take) {
  resume_ = made<ResumeChip>(state_.resume, std::move(take), this);
}

void PictureBox::showVideo(VideoFeed& feed) {
  feed_ = &feed;
  makeVideo();
}

void PictureBox::makeVideo() {
  drawnBy_ = feed_->drawnBy();
  video_ = feed_->surface(this);
  auto& widget = video_->widget();
  widget.setGeometry(rect());
  widget.lower();  // below what stands on the picture
  widget.hide();
}

bool PictureBox::isPlayed() const {
  return feed_ != nullptr && feed_->output().hasPicture() && showsEngine(state_, at_.has_value());
}

void PictureBox::lookAt(std::optional<double> seconds) {
  at_ = seconds;
  draw();
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
  pressed_ = clicked_ && event->button() != Qt::RightButton;
  if (!pressed_) QWidget::mousePressEvent(event);
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
  if (std::exchange(pressed_, false) && rect().contains(event->position().toPoint()))
    clicked_(event->button());
}

// The two clicks of it undo each other, and the window does what it means.
void PictureBox::mouseDoubleClickEvent(QMouseEvent* event) {
  if (clicked_ && event->button() != Qt::RightButton) clicked_(event->button());
  event->ignore();
}

void PictureBox::resizeEvent(QResizeEvent* /*event*/) {
  if (video_ != nullptr) video_->widget().setGeometry(rect());
  draw();
}

// Out of sight it has not drawn what has come meanwhile.
void PictureBox::showEvent(QShowEvent* /*event*/) { draw(); }

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::black);
  if (drawn_.icon == PictureSign::Icon::None) {
    if (picture_.isNull()) return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    // One that was made for another size of the box stands in until its own comes.
    const auto size = picture_.deviceIndependentSize().scaled(this->size(), Qt::KeepAspectRatio).toSize();
    return painter.drawPixmap(
        QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size), picture_);
  }
  painter.fillRect(rect(), toColour(token("void")));
  const int side = std::max(qRound(std::min(width(), height()) * kSignShare), kLeastSign);
  const auto ink = drawn_.icon == PictureSign::Icon::Trouble ? token("amber") : token("text3");
  const QPoint corner((width() - side) / 2, (height() - side) / 2 - kSignTextGap);
  painter.drawPixmap(corner, iconPicture(iconOf(drawn_.icon), ink, side, devicePixelRatio()));
  auto font = painter.font();
  font.setPixelSize(std::clamp(side * 2 / 5, kLeastSignText, kMostSignText));
  painter.setFont(font);
  painter.setPen(toColour(inkOf(drawn_.tone)));
  QRect line(0, corner.y() + side + kSignTextGap, width(), painter.fontMetrics().height());
  for (const auto& text : shownLines(told(drawn_.text))) {
    painter.drawText(line, Qt::AlignCenter,
                     painter.fontMetrics().elidedText(text.trimmed(), Qt::ElideRight, width()));
    line.translate(0, line.height());
    painter.setPen(toColour(token("text3")));
  }
  painter.drawText(line, Qt::AlignCenter, actOf(drawn_));
}

}  // namespace kvo
