#include "windows/editor/preview_part.h"

#include "editor/compiler/picture_in_picture.h"
#include "editor/preview/position_texts.h"
#include "ui/painting.h"
#include "ui/pictures.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainterPath>
#include <QToolTip>

namespace kvo {
namespace {

// Pixels at size 1.
constexpr double kPictureRadius = 8;
constexpr int kChipInset = 8;
constexpr int kChipHeight = 24;
constexpr int kChipPadding = 10;
constexpr int kChipText = 13;
constexpr int kChipOpacity = 216;
constexpr int kSignText = 13;
constexpr int kEmptyText = 15;

}  // namespace

PreviewPart::PreviewPart(const PreviewState& state, QWidget* parent) : QWidget(parent), state_(state) {
  setAccessibleName(tr("Preview"));
  setAttribute(Qt::WA_OpaquePaintEvent, false);
}

void PreviewPart::draw() {
  const auto text = shown(previewTitle(state_));
  if (state_.picture == drawn_ && text == drawnText_) return;
  drawn_ = state_.picture;
  if (text != drawnText_) setAccessibleDescription(text);
  drawnText_ = text;
  update();
}

QRectF PreviewPart::pictureRect() const {
  const auto* picture = state_.picture.get();
  if (picture == nullptr) return {};
  auto size = QSizeF(picture->width, picture->height).scaled(QSizeF(this->size()), Qt::KeepAspectRatio);
  QRectF place({0, 0}, size);
  place.moveCenter(QRectF(rect()).center());
  return place;
}

QRect PreviewPart::picturePlace() const {
  const auto place = pictureRect().toAlignedRect();
  return place.isEmpty() ? QRect() : QRect(mapToGlobal(place.topLeft()), place.size());
}

void PreviewPart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const double radius = themed(kPictureRadius);
  QPainterPath pane;
  pane.addRoundedRect(onPixels(rect()), radius, radius);
  painter.fillPath(pane, Qt::black);
  if (const auto* picture = state_.picture.get()) {
    painter.save();
    painter.setClipPath(pane);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(pictureRect(), imageOver(*picture));  // the bytes are the player's own
    drawOverlayFrame(painter);
    painter.restore();
    drawTitle(painter);
  } else {
    drawEmpty(painter);
  }
  painter.setPen(QPen(toColour(token("line1")), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(pane);
}

// Where the upper of two clips lies, whatever it shows and however faint it is.
void PreviewPart::drawOverlayFrame(QPainter& painter) const {
  if (state_.overlayPosition == 0) return;
  const auto place = pictureRect();
  const auto box = overlayBox(state_.overlayPosition, place.width(), place.height());
  const QRectF frame(place.left() + box.offsetX, place.top() + box.offsetY, box.width, box.height);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(toColour(token("ink0")), themed(3) / 2.0));
  painter.drawRect(onPixels(frame));
  painter.setPen(QPen(toColour(token("teal")), themed(3) / 2.0, Qt::DashLine));
  painter.drawRect(onPixels(frame));
}

QString PreviewPart::shortTitle(const QFontMetricsF& metrics) const {
  const double room = pictureRect().width() - 2.0 * themed(kChipInset + kChipPadding);
  return metrics.elidedText(drawnText_, Qt::ElideMiddle, std::max(0.0, room));
}

bool PreviewPart::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const QFontMetricsF metrics(themedFont(*this, kChipText, QFont::DemiBold));
  const bool isCut = state_.picture != nullptr && shortTitle(metrics) != drawnText_;
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), isCut ? plainTip(drawnText_) : QString(),
                     this);
  return true;
}

void PreviewPart::drawTitle(QPainter& painter) const {
  if (drawnText_.isEmpty()) return;
  painter.setFont(themedFont(*this, kChipText, QFont::DemiBold));
  const QFontMetricsF metrics(painter.font());
  const auto place = pictureRect();
  const double inset = themed(kChipInset);
  const double padding = themed(kChipPadding);
  const auto text = shortTitle(metrics);
  const QRectF chip(place.left() + inset, place.top() + inset, metrics.horizontalAdvance(text) + 2 * padding,
                    themed(kChipHeight));
  auto ground = toColour(token("ink0"));
  ground.setAlpha(kChipOpacity);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(chip, themed(5), themed(5));
  painter.setPen(toColour(token("text1")));
  painter.drawText(chip, Qt::AlignCenter, text);
}

void PreviewPart::drawEmpty(QPainter& painter) const {
  const bool bad = !state_.failure.empty();
  painter.setFont(themedFont(*this, kSignText, QFont::Normal));
  painter.setPen(toColour(bad ? token("red") : token("text3")));
  const double inset = themed(2 * kChipPadding);
  const auto place = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
  if (bad || !state_.isEmpty())
    return painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, drawnText_);
  painter.setFont(themedFont(*this, kEmptyText, QFont::DemiBold));
  painter.setPen(toColour(token("text1")));
  const QRectF head(place.left(), place.center().y() - themed(24), place.width(), themed(20));
  painter.drawText(head, Qt::AlignCenter, drawnText_);
  painter.setFont(themedFont(*this, kSignText, QFont::Normal));
  painter.setPen(toColour(token("text3")));
  painter.drawText(QRectF(place.left(), head.bottom() + themed(6), place.width(), themed(40)),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                   tr("Click a clip with a picture on the timeline, or drop one there"));
}

}  // namespace kvo
