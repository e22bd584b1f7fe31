#include "ui/message_card.h"

#include "ui/made.h"
#include "ui/painting.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainterPath>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr int kCardWidth = 470;  // pixels at size 1, as all of these
constexpr int kCardRadius = 12;
constexpr int kEdge = 5;
constexpr int kHead = 42;  // height of the caption with the line below it
constexpr int kBodyLeft = 24;
constexpr int kBodyRight = 20;
constexpr int kDisc = 38;
constexpr int kBesideDisc = 17;
constexpr int kTextWidth = kCardWidth - kBodyLeft - kDisc - kBesideDisc - kBodyRight;
constexpr int kMostTextHeight = 420;  // what is longer scrolls: the card fits a screen of 768 pixels
constexpr int kAroundText = 180;      // height of the rest, with the shadow
constexpr int kLeastKeyWidth = 80;
constexpr int kFootKeyHeight = 30;
constexpr int kLineHeight = 20;
constexpr int kMarkRoom = 4;           // left of the mark of a check box, for its ring
constexpr qsizetype kLongestRun = 40;  // characters without a place to break the line

struct Sign {
  Rgb ink, ground;
  const char* icon;  // empty: an octagon with a cross
  const char* name;
};

const Sign& signOf(MessageSign sign) {
  static constexpr std::array kSigns = {
      Sign{token("teal"), token("tealBg"), "check", "Done"},
      Sign{token("teal"), token("tealBg"), "info", "Information"},
      Sign{token("teal"), token("tealBg"), "help", "Question"},
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
  const double scale = pixelRatio * themeSize();
  QPixmap picture(QSize(kDisc, kDisc) * scale);
  picture.setDevicePixelRatio(scale);
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
    constexpr int kSide = 22;
    painter.drawPixmap((kDisc - kSide) / 2, (kDisc - kSide) / 2, iconPicture(icon, sign.ink, kSide, scale));
  }
  painter.end();
  picture.setDevicePixelRatio(pixelRatio);
  return picture;
}

// Paths and other long runs may be broken anywhere behind a separator, and somewhere at all.
QString breakable(const QString& text) {
  constexpr QChar kMayBreak(0x200B);
  QString out;
  qsizetype run = 0;
  for (const auto letter : text) {
    out += letter;
    run = letter.isSpace() ? 0 : run + 1;
    if (letter != '/' && run < kLongestRun) continue;
    out += kMayBreak;
    run = 0;
  }
  return out;
}

QLabel* label(const QString& text, int pixels, Rgb colour, QWidget* parent) {
  const auto html = QString("<p style=\"margin: 0; white-space: pre-wrap; line-height: %1px\">%2</p>");
  auto held = text;
  held.replace(" ?", QString(QChar::Nbsp) + '?');  // no line begins with it
  auto* line = made<QLabel>(html.arg(themed(kLineHeight)).arg(breakable(held).toHtmlEscaped()), parent);
  line->setAccessibleName(text);
  line->setTextFormat(Qt::RichText);
  line->setTextInteractionFlags(Qt::NoTextInteraction);  // the pointer moves the window
  line->setWordWrap(true);
  line->setMinimumHeight(themed(kLineHeight));
  line->setStyleSheet(QString("font-size: %1px; color: %2").arg(themed(pixels)).arg(toColour(colour).name()));
  return line;
}

}  // namespace

MessageCard::MessageCard(const MessageFace& face, QWidget* parent)
    : QFrame(parent), sign_(face.sign), closeKey_(made<QToolButton>(this)) {
  setFixedWidth(themed(kCardWidth));
  auto* column = made<QVBoxLayout>(this);
  column->setContentsMargins(themed(kBodyLeft), 0, themed(kBodyRight), themed(18));
  column->setSpacing(0);
  auto* caption = made<QLabel>(face.caption, this);
  caption->setTextFormat(Qt::PlainText);
  caption->setStyleSheet(QString("font-size: %1px; font-weight: 600").arg(themed(13)));
  caption->setFixedHeight(themed(kHead));
  column->addWidget(caption);
  column->addSpacing(themed(15));
  auto* body = made<QHBoxLayout>();
  body->setSpacing(themed(kBesideDisc));
  auto* sign = made<QLabel>(this);
  sign->setPixmap(disc(signOf(face.sign), devicePixelRatio()));
  sign->setAccessibleName(tr(signOf(face.sign).name));
  body->addWidget(sign, 0, Qt::AlignTop);
  body->addWidget(makeText(face), 1);
  column->addLayout(body);
  if (face.asksForText) {
    field_ = made<QLineEdit>(face.text, this);
    field_->selectAll();
    field_->setAccessibleName(face.lines.join(' ').simplified());
    column->addSpacing(themed(12));
    column->addWidget(field_);
  }
  column->addSpacing(themed(16));
  column->addLayout(makeFoot(face));
  closeKey_->setProperty("kind", "quiet");
  closeKey_->setIcon(QIcon(iconPicture("close", token("text3"), themed(14), devicePixelRatio())));
  closeKey_->setAccessibleName(tr("Close"));
  closeKey_->setIconSize(QSize(themed(14), themed(14)));
  closeKey_->setGeometry(themed(kCardWidth - 35), themed(9), themed(24), themed(24));
}

QWidget* MessageCard::makeText(const MessageFace& face) {
  auto* text = made<QWidget>();
  auto* lines = made<QVBoxLayout>(text);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(0);
  for (const auto& line : face.lines) lines->addWidget(label(line, 13, token("text1"), text));
  if (!face.prompt.isEmpty()) lines->addWidget(label(face.prompt, 12, token("text3"), text));
  lines->addStretch();
  const int most =
      std::min(themed(kMostTextHeight), screen()->availableSize().height() - themed(kAroundText));
  if (lines->heightForWidth(themed(kTextWidth)) <= most) {
    text->setParent(this);
    return text;
  }
  auto* scrolled = made<QScrollArea>(this);
  scrolled->setWidget(text);
  scrolled->setWidgetResizable(true);
  scrolled->setFrameShape(QFrame::NoFrame);
  scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scrolled->setFixedHeight(most);
  scrolled->setAccessibleName(face.lines.join(' '));
  scrolled->setStyleSheet("QScrollArea, QScrollArea > QWidget > QWidget { background: transparent; }");
  return scrolled;
}

QLayout* MessageCard::makeFoot(const MessageFace& face) {
  auto* foot = made<QHBoxLayout>();
  foot->setSpacing(themed(12));
  if (!face.neverAgain.isEmpty()) {
    neverAgain_ = made<QCheckBox>(face.neverAgain, this);
    foot->addSpacing(-themed(kMarkRoom));  // its mark begins where the text above does
    foot->addWidget(neverAgain_);
  }
  countdown_ = made<QLabel>(this);
  countdown_->setProperty("role", "hint");
  foot->addWidget(countdown_);
  foot->addStretch();
  for (const auto& text : face.keys) {
    auto* key = made<QPushButton>(text, this);
    key->setMinimumWidth(themed(kLeastKeyWidth));
    key->setFixedHeight(themed(kFootKeyHeight));
    if (keys_.empty()) key->setProperty("kind", "primary");
    foot->addWidget(key);
    keys_.push_back(key);
  }
  return foot;
}

int MessageCard::radius() { return themed(kCardRadius); }

void MessageCard::setCountdown(const QString& text) {
  if (countdown_->text() != text) countdown_->setText(text);
}

void MessageCard::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath body;
  body.addRoundedRect(onPixels(rect()), radius() - 0.5, radius() - 0.5);
  painter.fillPath(body, toColour(token("ink2")));
  painter.setClipPath(body);
  painter.fillRect(0, 0, themed(kEdge), height(), toColour(signOf(sign_).ink));
  painter.setClipping(false);
  painter.fillRect(themed(16), themed(kHead) - 1, width() - themed(32), themed(1), toColour(token("line1")));
  painter.setPen(toColour(token("tipRim")));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(body);
}

}  // namespace kvo
