#include "windows/editor/notice_line.h"

#include "ui/made.h"
#include "ui/painting.h"
#include "ui/theme.h"
#include "windows/editor/editor_page.h"

#include <QAccessible>
#include <QEvent>
#include <QLabel>

namespace kvo {
namespace {

constexpr int kNoticeTextLeft = 40;
constexpr int kNoticeBar = 3;
constexpr int kNoticeIcon = 16;

}  // namespace

NoticeLine::NoticeLine(QWidget* parent)
    : QWidget(parent), title_(made<QLabel>(this)), text_(made<QLabel>(this)) {
  title_->setProperty("role", "value");
  text_->setProperty("role", "hint");
  for (auto* label : {title_, text_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  }
}

void NoticeLine::draw(const QString& title, const QString& text, bool isGood) {
  setVisible(!title.isEmpty());
  if (title_->text() == title && text_->text() == text && isGood_ == isGood) return;
  isGood_ = isGood;
  setTextOf(*title_, title);
  setTextOf(*text_, text);
  setToolTip(text.isEmpty() ? title : title + " - " + text);
  setAccessibleName(toolTip());
  layOut();
  update();
  QAccessibleEvent told(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

void NoticeLine::layOut() {
  const int left = themed(kNoticeTextLeft);
  const int wide = width() - left - themed(8);
  const int titleHigh = std::min(title_->heightForWidth(wide), height());
  const int textHigh = std::min(text_->heightForWidth(wide), height() - titleHigh);
  const int top = std::max(0, (height() - titleHigh - textHigh) / 2);
  card_ = QRect(0, top, width(), titleHigh + textHigh).adjusted(0, -themed(8), 0, themed(8)) & rect();
  title_->setGeometry(left, top, wide, titleHigh);
  text_->setGeometry(left, top + titleHigh, wide, textHigh);
}

void NoticeLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layOut();
}

void NoticeLine::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) layOut();
  QWidget::changeEvent(event);
}

void NoticeLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const auto sign = isGood_ ? token("teal") : token("red");
  auto ground = toColour(isGood_ ? token("tealBg") : token("redLo"));
  ground.setAlphaF(0.6F);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(card_, themed(4), themed(4));
  painter.setBrush(toColour(sign));
  painter.drawRoundedRect(QRectF(card_.x(), card_.y(), themed(kNoticeBar), card_.height()), 1, 1);
  const auto icon = iconPicture(isGood_ ? "check" : "warn", sign, themed(kNoticeIcon), devicePixelRatio());
  painter.drawPixmap(QPointF(themed(14), (height() - themed(kNoticeIcon)) / 2.0), icon);
}

}  // namespace kvo
