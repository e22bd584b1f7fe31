#include "windows/render/render_head.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <array>

namespace kvo {
namespace {

constexpr int kHeadTitleLeft = 21;
constexpr int kHeadTitleText = 17;
constexpr int kHeadStepText = 12;
constexpr int kHeadStepPitch = 132;
constexpr int kHeadStepRight = 512;  // from the card's right to the middle of the first ring
constexpr int kHeadRing = 20;
constexpr int kHeadLine = 23;
constexpr int kHeadNameGap = 18;
constexpr std::array kStepNames{
    QT_TRANSLATE_NOOP("kvo::RenderHead", "Options"), QT_TRANSLATE_NOOP("kvo::RenderHead", "Pre-Render"),
    QT_TRANSLATE_NOOP("kvo::RenderHead", "Rendering"), QT_TRANSLATE_NOOP("kvo::RenderHead", "Done")};

}  // namespace

RenderHead::RenderHead(QWidget* parent) : QWidget(parent) {}

QString RenderHead::nameOf(int step) { return tr(kStepNames.at(static_cast<std::size_t>(step - 1))); }

void RenderHead::draw(const QString& title, int step) {
  if (title == title_ && step == step_) return;
  title_ = title;
  step_ = step;
  setAccessibleName(title);
  setAccessibleDescription(step > kSteps ? nameOf(kSteps)
                                         : tr("Step %1 of %2, %3").arg(step).arg(kSteps).arg(nameOf(step)));
  update();
}

void RenderHead::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const int middle = height() / 2;
  painter.setFont(themedFont(*this, kHeadTitleText, QFont::DemiBold));
  painter.setPen(toColour(token("text1")));
  painter.drawText(QRect(themed(kHeadTitleLeft), 0, width() / 2, height()), Qt::AlignVCenter, title_);
  const int first = std::max(width() - themed(kHeadStepRight), width() / 2 - themed(kHeadStepPitch / 2.0));
  for (int step = 1; step <= kSteps; ++step) {
    const int x = first + themed(kHeadStepPitch) * (step - 1);
    const bool isDone = step < step_;
    const bool isNow = step == step_;
    const auto colour = toColour(isDone || isNow ? token("teal") : token("line3"));
    if (step > 1) {
      painter.setPen(QPen(isDone || isNow ? colour : toColour(token("line2")), themed(2)));
      painter.drawLine(x - themed(kHeadRing / 2.0 + kHeadLine), middle, x - themed(kHeadRing / 2.0), middle);
    }
    const double radius = themed(kHeadRing) / 2.0;
    painter.setPen(QPen(colour, themed(3) / 2.0));
    painter.setBrush(isDone ? colour : toColour(isNow ? token("tealBg") : token("ink2")));
    painter.drawEllipse(QPointF(x, middle), radius, radius);
    if (isDone) {
      painter.setPen(QPen(toColour(token("onTeal")), themed(2)));
      painter.setBrush(Qt::NoBrush);
      const double u = themed(1);
      painter.drawPolyline(QPolygonF{{QPointF(x - 4 * u, middle + 0.5 * u), QPointF(x - u, middle + 3.5 * u),
                                      QPointF(x + 4.5 * u, middle - 3.5 * u)}});
    } else {
      painter.setFont(themedFont(*this, kHeadStepText - 1, QFont::DemiBold));
      painter.setPen(toColour(isNow ? token("text1") : token("text3")));
      painter.drawText(QRectF(x - radius, middle - radius, 2 * radius, 2 * radius), Qt::AlignCenter,
                       QString::number(step));
    }
    painter.setFont(themedFont(*this, kHeadStepText, isNow ? QFont::DemiBold : QFont::Normal));
    painter.setPen(toColour(isNow ? token("text1") : isDone ? token("text2") : token("text3")));
    painter.drawText(QRect(x + themed(kHeadNameGap), 0, themed(kHeadStepPitch), height()), Qt::AlignVCenter,
                     nameOf(step));
  }
  painter.setPen(toColour(token("line1")));
  painter.drawLine(0, height() - 1, width(), height() - 1);
}

}  // namespace kvo
