#include "ui/message_card.h"

#include "ui/made.h"
#include "ui/painting.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

namespace kvo {
namespace {

constexpr int kCardWidth = 470;
constexpr int kEdge = 5;
constexpr double kRadius = 12;
constexpr int kDisc = 38;
constexpr int kKeyWidth = 80;
constexpr int kLineHeight = 20;

struct Sign {
  Rgb ink, ground;
  const char* icon;  // empty: an octagon with a cross
  const char* name;
};

const Sign& signOf(MessageSign sign) {
  static constexpr std::array kSigns = {
      Sign{token("teal"), token("tealBg"), "check", "Done"},
      Sign{token("amber"), token("amberLo"), "warn", "Warning"},
      Sign{token("red"), token("redLo"), "", "Error"},
  };
  return kSigns[static_cast<std::size_t>(sign)];
}

void drawOctagon(QPainter& painter, const QPointF& centre, Rgb ink) {
  constexpr double kFar = 8, kNear = 3.3, kArm = 2.8;
  painter.setPen(QPen(toColour(ink), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolygon(QPolygonF{
      {{-kNear, -kFar},
       {kNear, -kFar},
       {kFar, -kNear},
       {kFar, kNear},
       {kNear, kFar},
       {-kNear, kFar},
       {-kFar, kNear},
       {-kFar, -kNear}}}.translated(centre));
  painter.drawLine(centre - QPointF(kArm, kArm), centre + QPointF(kArm, kArm));
  painter.drawLine(centre - QPointF(kArm, -kArm), centre + QPointF(kArm, -kArm));
}

QPixmap disc(const Sign& sign, double pixelRatio) {
  QPixmap picture(QSize(kDisc, kDisc) * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(sign.ground));
  painter.drawEllipse(QRectF(0, 0, kDisc, kDisc));
  const QString icon = sign.icon;
  if (icon.isEmpty()) {
    drawOctagon(painter, {kDisc / 2.0, kDisc / 2.0}, sign.ink);
  } else {
    constexpr int kSide = 20;
    painter.drawPixmap((kDisc - kSide) / 2, (kDisc - kSide) / 2,
                       iconPicture(icon, sign.ink, kSide, pixelRatio));
  }
  return picture;
}

QLabel* label(const QString& text, int pixels, Rgb colour, QWidget* parent) {
  auto* line = made<QLabel>(text, parent);
  line->setTextFormat(Qt::PlainText);
  line->setStyleSheet(QString("font-size: %1px; color: %2").arg(pixels).arg(toColour(colour).name()));
  return line;
}

}  // namespace

MessageCard::MessageCard(const MessageFace& face, QWidget* parent) : QFrame(parent), sign_(face.sign) {
  setFixedWidth(kCardWidth);
  auto* column = made<QVBoxLayout>(this);
  column->setContentsMargins(24, 12, 14, 14);
  column->setSpacing(12);
  auto* caption = label(face.caption, 13, token("text1"), this);
  caption->setStyleSheet(caption->styleSheet() + "; font-weight: 600");
  column->addWidget(caption);
  auto* rule = made<QFrame>(this);
  rule->setProperty("role", "line");
  rule->setFixedHeight(1);
  column->addWidget(rule);

  auto* body = made<QHBoxLayout>();
  body->setSpacing(18);
  auto* sign = made<QLabel>(this);
  sign->setPixmap(disc(signOf(face.sign), devicePixelRatio()));
  sign->setAccessibleName(signOf(face.sign).name);
  body->addWidget(sign, 0, Qt::AlignTop);
  auto* lines = made<QVBoxLayout>();
  lines->setSpacing(0);
  for (const auto& text : face.lines) {
    auto* line = label(text, 13, token("text1"), this);
    line->setMinimumHeight(kLineHeight);
    line->setWordWrap(true);
    lines->addWidget(line);
  }
  if (!face.prompt.isEmpty()) {
    auto* prompt = label(face.prompt, 12, token("text3"), this);
    prompt->setMinimumHeight(kLineHeight);
    lines->addWidget(prompt);
  }
  body->addLayout(lines, 1);
  column->addLayout(body);

  auto* foot = made<QHBoxLayout>();
  foot->setSpacing(12);
  if (!face.neverAgain.isEmpty()) {
    neverAgain_ = made<QCheckBox>(face.neverAgain, this);
    foot->addWidget(neverAgain_);
  }
  foot->addStretch();
  for (const auto& text : face.keys) {
    auto* key = made<QPushButton>(text, this);
    key->setMinimumWidth(kKeyWidth);
    if (keys_.empty()) key->setProperty("kind", "primary");
    foot->addWidget(key);
    keys_.push_back(key);
  }
  column->addLayout(foot);
}

void MessageCard::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath body;
  body.addRoundedRect(onPixels(rect()), kRadius, kRadius);
  painter.fillPath(body, toColour(token("ink1")));
  painter.setClipPath(body);
  painter.fillRect(0, 0, kEdge, height(), toColour(signOf(sign_).ink));
  painter.setClipping(false);
  painter.setPen(toColour(token("line2")));
  painter.drawPath(body);
}

}  // namespace kvo
