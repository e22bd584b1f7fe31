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

}  // namespace

bool showsLabel(const MainWindowState& state) {
  return state.mode.panels.Pic_NoVid && !state.transport.lbl_Novid.text.empty();
}

PictureBox::PictureBox(const MainWindowState& state, ClipPicture& pictures, QWidget* parent)
    : QWidget(parent), state_(state), pictures_(pictures), stream_(made<StreamChip>(state, this)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName(tr("Picture"));
}

PictureBox::Sign PictureBox::sign() const {
  const auto* clip = rowOnShow(state_);
  if (clip == nullptr) return {};
  if (showsLabel(state_)) {
    const auto& label = state_.transport.lbl_Novid;
    const auto plain = label.stream ? token("teal") : token("text2");
    return {label.stream ? "globe" : "warn", told(label.text), label.lit ? token("text1") : plain,
            label.stops ? tr("Click to stop") : QString()};
  }
  switch (clip->kind) {
    case ClipKind::Sound:
      return {"music", tr("Sound")};
    case ClipKind::Page:
      return {"globe", tr("Web page")};
    case ClipKind::Stream:
      return {"globe", tr("Stream")};
    default:
      return state_.picture.fault.empty() ? Sign{} : Sign{"warn", tr("No picture")};
  }
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
  const auto now = sign();
  if (now == drawn_) return;
  drawn_ = now;
  setAccessibleName(now.icon == nullptr ? tr("Picture") : now.text.simplified());
  setAccessibleDescription(now.act);
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

// Out of sight, or once that of the time that is looked at has come, it is not the engine's picture.
bool PictureBox::isPlayed() const {
  const auto& player = state_.mode.player;
  return feed_ != nullptr && feed_->output().hasPicture() && player.shows() && !player.place.parked() &&
         !state_.mode.still.Img_Still.visible && !looksElsewhere();
}

bool PictureBox::looksElsewhere() const {
  const auto& come = state_.picture;
  return at_ && come.picture != nullptr && come.wish.path == state_.mode.player.path;
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
  if (drawn_.icon == nullptr) {
    if (picture_.isNull()) return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    // One that was made for another size of the box stands in until its own comes.
    const auto size = picture_.deviceIndependentSize().scaled(this->size(), Qt::KeepAspectRatio).toSize();
    return painter.drawPixmap(
        QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size), picture_);
  }
  painter.fillRect(rect(), toColour(token("void")));
  const int side = std::max(qRound(std::min(width(), height()) * kSignShare), kLeastSign);
  const auto ink = drawn_.icon == std::string_view("warn") ? token("amber") : token("text3");
  const QPoint corner((width() - side) / 2, (height() - side) / 2 - kSignTextGap);
  painter.drawPixmap(corner, iconPicture(drawn_.icon, ink, side, devicePixelRatio()));
  auto font = painter.font();
  font.setPixelSize(std::clamp(side * 2 / 5, kLeastSignText, kMostSignText));
  painter.setFont(font);
  painter.setPen(toColour(drawn_.colour));
  QRect line(0, corner.y() + side + kSignTextGap, width(), painter.fontMetrics().height());
  for (const auto& text : drawn_.text.split('\n')) {
    painter.drawText(line, Qt::AlignCenter,
                     painter.fontMetrics().elidedText(text.trimmed(), Qt::ElideRight, width()));
    line.translate(0, line.height());
    painter.setPen(toColour(token("text3")));
  }
  painter.drawText(line, Qt::AlignCenter, drawn_.act);
}

}  // namespace kvo
