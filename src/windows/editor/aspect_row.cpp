#include "windows/editor/aspect_row.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QStyleOptionButton>

namespace kvo {
namespace {

constexpr QSize kAspectPicture(36, 27);
constexpr int kAspectPictureLeft = 10;
constexpr int kAspectRoom = 13;  // above and below the picture
constexpr int kAspectMarkGap = 12;
constexpr int kAspectTextGap = 10;
constexpr int kAspectMark = 16;

// A hill under the sun, wider than the frame, so that the four ways differ.
QImage sampleStill() {
  constexpr QSize kSample(160, 90);
  QImage image(kSample, QImage::Format_RGB32);
  QLinearGradient sky(0, 0, 0, kSample.height());
  sky.setColorAt(0, toColour(token("violet")));
  sky.setColorAt(1, toColour(token("amber")));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(image.rect(), sky);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(token("focus")));
  painter.drawEllipse(QPointF(112, 34), 15, 15);
  painter.setBrush(toColour(token("tealLo")));
  painter.drawEllipse(QPointF(40, 100), 80, 50);
  painter.setBrush(toColour(token("tealBg")));
  painter.drawEllipse(QPointF(130, 108), 80, 46);
  return image;
}

}  // namespace

AspectRow::AspectRow(int aspect, const QString& caption, QWidget* parent)
    : QRadioButton(caption, parent), aspect_(aspect), still_(sampleStill()) {
  setToolTip(caption);
  setAttribute(Qt::WA_Hover);
}

void AspectRow::setStill(const QImage& still) {
  still_ = still.isNull() ? sampleStill() : still;
  update();
}

QSize AspectRow::sizeHint() const { return {themed(408), themed(40)}; }

QImage AspectRow::fitted(const QSize& size) const {
  QImage frame(size, QImage::Format_RGB32);
  frame.fill(Qt::black);
  QPainter painter(&frame);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  constexpr double kCutZoom = 1.5;  // as a still that is larger than the frame
  QSizeF shown = size;
  if (aspect_ == 1) shown = QSizeF(still_.size()).scaled(size, Qt::KeepAspectRatio);
  if (aspect_ == 2) shown = QSizeF(still_.size()).scaled(size, Qt::KeepAspectRatioByExpanding);
  if (aspect_ == 3) shown = QSizeF(still_.size()).scaled(size, Qt::KeepAspectRatioByExpanding) * kCutZoom;
  QRectF place(QPointF(), shown);
  place.moveCenter(QRectF(frame.rect()).center());
  painter.drawImage(place, still_);
  return frame;
}

void AspectRow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const bool lit = isChecked() && isEnabled();
  painter.setPen(toColour(lit                           ? token("teal")
                          : underMouse() && isEnabled() ? token("line3")
                                                        : token("line1")));
  painter.setBrush(toColour(lit ? token("tealBg") : token("ink0")));
  painter.drawRoundedRect(onPixels(rect()), themed(6), themed(6));

  const int high = height() - themed(kAspectRoom);
  const QRect picture(themed(kAspectPictureLeft), (height() - high) / 2,
                      high * kAspectPicture.width() / kAspectPicture.height(), high);
  painter.setOpacity(isEnabled() ? 1 : 0.4);
  painter.drawImage(picture, fitted(picture.size() * devicePixelRatio()));
  painter.setOpacity(1);

  QStyleOptionButton option;
  initStyleOption(&option);
  const int mark = themed(kAspectMark);
  option.rect = {picture.right() + 1 + themed(kAspectMarkGap), (height() - mark) / 2, mark, mark};
  style()->drawPrimitive(QStyle::PE_IndicatorRadioButton, &option, &painter, this);
  painter.setPen(toColour(isEnabled() ? token("text1") : token("textOff")));
  const QRect text = rect().adjusted(option.rect.right() + 1 + themed(kAspectTextGap), 0, -themed(8), 0);
  painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(this->text(), Qt::ElideRight, text.width()));
}

}  // namespace kvo
