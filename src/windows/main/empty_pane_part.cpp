#include "windows/main/empty_pane_part.h"

#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/main/part_pictures.h"
#include "windows/main/plate.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRadialGradient>
#include <array>

namespace kvo {
namespace {

constexpr QRectF kPane(59, 54, 444, 259);
constexpr QRectF kDashes(83.5, 78.5, 395, 160);
constexpr double kDashRadius = 14;
constexpr QPointF kEmptyPicture(217, 87);
constexpr QRectF kPrompt(91, 169, 380, 26);
constexpr QRectF kHint(91, 196, 380, 22);
constexpr QRectF kSteps(67, 261, 428, 24);
constexpr double kDisc = 20;
constexpr double kDiscGap = 7;
constexpr double kChevron = 14;
constexpr double kChevronGap = 16;  // on both of its sides
constexpr const char* kHintText = "or click here, or drop clips, stills and music on the window";
constexpr std::array kStepTexts = {"Add clips", "Put them in order", "Create Movie"};

}  // namespace

EmptyPanePart::EmptyPanePart(const EmptyPaneState& state, const std::string& folder, QWidget* parent)
    : HoverKey(parent), state_(state), folder_(folder) {}

void EmptyPanePart::layOut(const FaceScale& scale) {
  scale_ = scale;
  setGeometry(placedIn(*parentWidget(), scale, kPane.adjusted(-1, -1, 1, 1)));
  picture_ = partPicture(folder_ + "empty-collection.bmp", scale.size(), devicePixelRatio());
  update();
}

void EmptyPanePart::draw() {
  const auto prompt = told(state_.NoMediaPrompt);
  if (prompt == text()) return;
  setText(prompt);
  setAccessibleName(prompt);
  setAccessibleDescription(tr(kHintText));
  update();
}

void EmptyPanePart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  const double s = scale_.size();
  const QRectF pane = placedIn(*this, scale_, kPane);
  drawPlate(painter, pane, 8 * s, scale_, toColour(token("glass")));
  QRadialGradient glow(QPointF(pane.center().x(), pane.top() + pane.height() * 0.42), pane.width() * 0.5);
  glow.setColorAt(0, toColour(isDown() ? token("ink1") : token("ink2")));
  glow.setColorAt(1, toColour(token("glass")));
  painter.setPen(Qt::NoPen);
  painter.setBrush(glow);
  painter.drawRoundedRect(pane.adjusted(1, 1, -1, -1), 8 * s, 8 * s);

  const bool hot = underMouse() && isEnabled();
  QPen dashes(toColour(hot ? token("teal") : token("line2")), 1.5 * s);
  dashes.setDashPattern({7 / 1.5, 6 / 1.5});
  painter.setPen(dashes);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(placedIn(*this, scale_, kDashes)), kDashRadius * s, kDashRadius * s);
  if (!isEnabled()) painter.setOpacity(0.5);
  painter.drawPixmap(placedIn(*this, scale_, {kEmptyPicture, QSizeF(1, 1)}).topLeft(), picture_);

  painter.setPen(toColour(token("text1")));
  painter.setFont(scale_.text(18, QFont::DemiBold));
  painter.drawText(placedIn(*this, scale_, kPrompt), Qt::AlignCenter, text());
  painter.setPen(toColour(token("text2")));
  painter.setFont(scale_.text(11.5));
  painter.drawText(placedIn(*this, scale_, kHint), Qt::AlignCenter, tr(kHintText));
  drawSteps(painter);
}

// Numbered discs with their texts, chevrons between; the row stands in the middle, however wide its texts
// are.
void EmptyPanePart::drawSteps(QPainter& painter) const {
  const auto font = scale_.text(11.5, QFont::Medium);
  const auto widthOf = [&](const QString& text) {
    return QFontMetricsF(font, this).horizontalAdvance(text) / scale_.size();
  };
  double all = -kChevron - 2 * kChevronGap;
  for (const auto* step : kStepTexts)
    all += kDisc + kDiscGap + widthOf(tr(step)) + kChevron + 2 * kChevronGap;
  double left = kSteps.center().x() - all / 2;
  for (std::size_t i = 0; i < kStepTexts.size(); ++i) {
    if (i > 0) {
      left += kChevronGap;
      const auto place =
          placedIn(*this, scale_, {left, kSteps.center().y() - kChevron / 2, kChevron, kChevron});
      painter.drawPixmap(place.topLeft(),
                         iconPicture("chevr", token("text3"), place.width(), devicePixelRatio()));
      left += kChevron + kChevronGap;
    }
    const QRectF disc = placedIn(*this, scale_, {left, kSteps.center().y() - kDisc / 2, kDisc, kDisc});
    painter.setPen(QPen(toColour(token("line3")), scale_.hairline()));
    painter.setBrush(toColour(token("ink2")));
    painter.drawEllipse(onPixels(disc));
    painter.setPen(toColour(token("text1")));
    painter.setFont(scale_.text(11, QFont::DemiBold));
    painter.drawText(disc, Qt::AlignCenter, QString::number(i + 1));
    left += kDisc + kDiscGap;
    painter.setPen(toColour(token("text2")));
    painter.setFont(font);
    const double width = widthOf(tr(kStepTexts[i]));
    painter.drawText(placedIn(*this, scale_, {left, kSteps.top(), width + 2, kSteps.height()}),
                     Qt::AlignVCenter | Qt::AlignLeft, tr(kStepTexts[i]));
    left += width;
  }
}

}  // namespace kvo
