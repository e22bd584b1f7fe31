#include "windows/render/kind_row.h"

#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QStyleOptionButton>

namespace kvo {
namespace {

// Pixels at size 1.
constexpr QRect kKindPlate(12, 13, 40, 40);
constexpr int kKindIcon = 20;
constexpr QRect kKindSign(6, 56, 52, 16);
constexpr QRect kKindTitle(66, 12, 210, 20);
constexpr QRect kKindBrief(66, 33, 216, 46);
constexpr int kKindMark = 16;
constexpr int kKindMarkRight = 10;

QRect scaled(const QRect& place) {
  return {themed(place.x()), themed(place.y()), themed(place.width()), themed(place.height())};
}

}  // namespace

KindRow::KindRow(const OutputKindRow& row, QWidget* parent)
    : QRadioButton(told(row.title), parent), row_(row) {
  setAttribute(Qt::WA_Hover);
  setAccessibleName(text());
  const auto tip = told(*row.hint == '\0' ? row.brief : row.hint);
  setAccessibleDescription(tip);
  setToolTip(plainTip(tip));
}

QSize KindRow::sizeHint() const { return {themed(kPlace.width()), themed(kPlace.height())}; }

void KindRow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const bool lit = isChecked() && isEnabled();
  painter.setPen(QPen(toColour(lit                           ? token("teal")
                               : underMouse() && isEnabled() ? token("line3")
                                                             : token("line2")),
                      lit ? themed(3) / 2.0 : 1));
  painter.setBrush(toColour(lit ? token("tealBg") : token("ink0")));
  painter.drawRoundedRect(onPixels(rect()), themed(6), themed(6));
  paintSign(painter, lit);
  QStyleOptionButton option;
  initStyleOption(&option);
  const int mark = themed(kKindMark);
  option.rect = {width() - themed(kKindMarkRight) - mark, themed(12), mark, mark};
  style()->drawPrimitive(QStyle::PE_IndicatorRadioButton, &option, &painter, this);
  painter.setFont(themedFont(*this, 12, QFont::DemiBold));
  painter.setPen(toColour(isEnabled() ? token("text1") : token("textOff")));
  const int wider = width() - sizeHint().width();
  painter.drawText(scaled(kKindTitle).adjusted(0, 0, wider, 0), Qt::AlignVCenter, text());
  painter.setFont(themedFont(*this, 11, QFont::Normal));
  painter.setPen(toColour(isEnabled() ? token("text2") : token("textOff")));
  painter.drawText(scaled(kKindBrief).adjusted(0, 0, wider, 0), Qt::TextWordWrap, told(row_.brief));
}

void KindRow::paintSign(QPainter& painter, bool lit) const {
  const auto plate = scaled(kKindPlate);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(lit ? token("tealLo") : token("ink3")));
  painter.drawRoundedRect(plate, themed(6), themed(6));
  const int side = themed(kKindIcon);
  painter.drawPixmap(
      plate.center() - QPoint(side, side) / 2,
      iconPicture(row_.icon, toColour(lit ? token("tealHi") : token("text2")).rgb() & 0xFFFFFFU, side,
                  devicePixelRatio()));
  painter.setFont(themedFont(*this, 10, QFont::DemiBold));
  painter.setPen(toColour(lit ? token("tealHi") : token("text3")));
  painter.drawText(scaled(kKindSign), Qt::AlignCenter, shown(std::string(movieFileOf(row_.kind).extension)));
}

}  // namespace kvo
