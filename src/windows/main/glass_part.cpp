#include "windows/main/glass_part.h"

#include "ui/digit_display.h"
#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/main/key_label.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr QRectF kGlass(160, 333, 384, 28);
constexpr double kGlassRim = 2;
constexpr QPointF kDigits(170, 338.75);
constexpr double kDigitHeight = 16.5;
constexpr double kDigitsEnd = 290;
constexpr double kLampsEnd = 424;
constexpr double kLampGap = 4;
constexpr double kLampPadding = 4.5;
constexpr double kLeastLampPadding = 2;  // in a wide type face
constexpr QRectF kLamp(0, 340.5, 0, 13);
constexpr double kLampText = 9.5;
constexpr QRectF kRatePlace(438, 333, 46, 28);
constexpr QRectF kLevelPlace(488, 333, 32, 28);
constexpr QRectF kStreamPlace(432, 334.5, 108, 12.5);  // of the upper of two lines
constexpr double kStreamChipInset = 20;
constexpr QRectF kDigitsKey(164, 333, 126, 28);
constexpr QRectF kLevelKey(488, 333, 56, 28);
constexpr std::array kDividers = {431.5, 486.5};
constexpr QRectF kLoudspeaker(525.5, 340, 14, 14);
constexpr auto kUnlitDigits = "88:88:8888";

struct Lamp {
  QString text;
  bool lit;
};

}  // namespace

GlassPart::GlassPart(const MainWindowState& state, const Acts& acts, QWidget* parent)
    : QWidget(parent),
      state_(state.display),
      lamps_(state.menu),
      stream_(state.transport.stream),
      panels_(state.mode.panels),
      digits_(made<KeyLabel>(tr("Direct Positioner"), this)),
      rate_(made<KeyLabel>(tr("Current Playback rate"), this)),
      level_(made<KeyLabel>(tr("Output Level"), this)),
      streamKey_(made<KeyLabel>(tr("Stream Info"), this)) {
  connect(digits_, &QAbstractButton::clicked, acts.digits);
  connect(rate_, &QAbstractButton::clicked, acts.rate);
  connect(level_, &QAbstractButton::clicked, acts.level);
  connect(streamKey_, &QAbstractButton::clicked, acts.stream);
}

std::vector<QWidget*> GlassPart::tabOrder() const { return {digits_, rate_, level_, streamKey_}; }

void GlassPart::layOut(const FaceScale& scale) {
  scale_ = scale;
  setGeometry(
      placedIn(*parentWidget(), scale, kGlass.adjusted(-kGlassRim, -kGlassRim, kGlassRim, kGlassRim)));
  digits_->setGeometry(placedIn(*this, scale, kDigitsKey));
  rate_->setGeometry(placedIn(*this, scale, kRatePlace));
  level_->setGeometry(placedIn(*this, scale, kLevelKey));
  streamKey_->setGeometry(
      placedIn(*this, scale, kStreamPlace.united(kStreamPlace.translated(0, kStreamPlace.height()))));
  for (auto* key : {digits_, rate_, level_, streamKey_}) key->setShape({QPoint(), key->size()}, false);
  update();
}

void GlassPart::draw(Rgb colour) {
  Drawn now{state_, lamps_, stream_, digitsLit(), showsStream()};
  if (drawn_ == now && colour == colour_) return;
  drawn_ = std::move(now);
  colour_ = colour;
  describe();
  update();
}

bool GlassPart::digitsLit() const { return panels_.Pic_DigNumbers && !state_.digits.empty(); }

bool GlassPart::showsStream() const { return panels_.Lbl_StreamInfo.visible && stream_.Lbl_StreamInfo; }

void GlassPart::describe() {
  digits_->setEnabled(digitsLit());
  digits_->setToolTip(plainTip(told(state_.digitsTip)));
  digits_->setAccessibleDescription(digitsLit() ? shown(state_.digits) : QString());
  rate_->setEnabled(!state_.rate.empty());
  rate_->setAccessibleDescription(shown(state_.rate));
  level_->setEnabled(state_.sound);
  QStringList words;
  if (digitsLit()) words << shown(state_.digits);
  if (lamps_.mnu_Looping) words << tr("loops");
  if (lamps_.mnu_RewAtEnd) words << tr("rewinds at the end");
  if (lamps_.mnu_LoopCol) words << tr("repeats all clips");
  if (!state_.rate.empty()) words << tr("rate %1").arg(shown(state_.rate));
  if (state_.sound) words << tr("volume %1 per cent").arg(state_.volume);
  rate_->setVisible(!showsStream());
  level_->setVisible(!showsStream());
  streamKey_->setVisible(showsStream());
  QStringList stream;
  if (showsStream()) {
    for (const auto& text : {stream_.title, stream_.bandwidth, stream_.progress}) {
      if (!text.empty()) stream << shown(text);
    }
    if (stream_.buffer) stream << tr("Buffering");
    words << stream;
  }
  setToolTip(plainTip(stream.join("\n")));
  streamKey_->setToolTip(toolTip());
  setAccessibleName(tr("Display"));
  setAccessibleDescription(words.join(", "));
}

void GlassPart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const auto glass = placedIn(*this, scale_, kGlass);
  const double radius = 5 * scale_.size();
  drawPlate(painter, glass, radius, scale_, toColour(token("glass")));
  QLinearGradient light(0, glass.top(), 0, glass.center().y());
  light.setColorAt(0, QColor(255, 255, 255, 18));
  light.setColorAt(1, QColor(255, 255, 255, 3));
  painter.setPen(Qt::NoPen);
  painter.setBrush(light);
  painter.drawRoundedRect(QRectF(glass.left(), glass.top(), glass.width(), glass.height() / 2.0), radius,
                          radius);
  drawDigits(painter);
  if (state_.rate.empty() && !state_.sound && state_.digits.empty() && !showsStream())
    return;  // no clip is in hand
  drawLamps(painter);
  showsStream() ? drawStream(painter) : drawRateAndLevel(painter);
}

void GlassPart::drawDigits(QPainter& painter) const {
  const QPointF at = placedIn(*this, scale_, {kDigits, QSizeF(1, 1)}).topLeft();
  const double height = kDigitHeight * scale_.size();
  const bool lit = digitsLit();
  kvo::drawDigits(painter, at, height, lit ? shown(state_.digits) : kUnlitDigits,
                  lit ? token("tealHi") : token("unlit"));
}

// From the right to the left, so that they stand clear of the rate in each type face. One that is lit gains a
// ground and brighter ink.
void GlassPart::drawLamps(QPainter& painter) const {
  const std::array lamps = {Lamp{tr("ALL"), lamps_.mnu_LoopCol}, Lamp{tr("REWIND"), lamps_.mnu_RewAtEnd},
                            Lamp{tr("LOOP"), lamps_.mnu_Looping}};
  auto font = scale_.text(kLampText, QFont::DemiBold);
  font.setLetterSpacing(QFont::AbsoluteSpacing, 0.4 * scale_.size());
  painter.setFont(font);
  const auto widthOf = [&](const QString& text) {
    return QFontMetricsF(font, this).horizontalAdvance(text) / scale_.size();
  };
  const double room =
      kLampsEnd - kDigitsEnd - widthOf(lamps[0].text + lamps[1].text + lamps[2].text) - 2 * kLampGap;
  const double padding = std::clamp(room / 6, kLeastLampPadding, kLampPadding);
  double right = kLampsEnd;
  for (const auto& lamp : lamps) {
    const double width = widthOf(lamp.text) + 2 * padding;
    const auto box = placedIn(*this, scale_, {right - width, kLamp.top(), width, kLamp.height()});
    painter.setPen(QPen(toColour(lamp.lit ? token("teal") : token("line1")), scale_.hairline()));
    painter.setBrush(lamp.lit ? QBrush(toColour(token("tealBg"))) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(onPixels(box), 3 * scale_.size(), 3 * scale_.size());
    painter.setPen(toColour(lamp.lit ? token("tealHi") : token("text3")));
    painter.drawText(box, Qt::AlignCenter, lamp.text);
    right -= width + kLampGap;
  }
}

void GlassPart::drawRateAndLevel(QPainter& painter) const {
  painter.setPen(QPen(toColour(token("line1")), scale_.hairline()));
  for (const double x : kDividers) {
    const auto line = placedIn(*this, scale_, {x, 339, 1, 16});
    painter.drawLine(line.topLeft(), line.bottomLeft());
  }
  if (!state_.rate.empty()) {
    painter.setFont(scale_.text(11, QFont::DemiBold));
    painter.setPen(toColour(colour_));
    painter.drawText(placedIn(*this, scale_, kRatePlace), Qt::AlignCenter, shown(state_.rate));
  }
  if (!state_.sound) return;
  painter.setFont(scale_.text(11, QFont::Medium));
  painter.setPen(toColour(token("text1")));
  painter.drawText(placedIn(*this, scale_, kLevelPlace), Qt::AlignVCenter | Qt::AlignRight,
                   QString::number(state_.volume) + '%');
  const bool off = state_.volume == 0 || state_.muted;
  const auto place = placedIn(*this, scale_, kLoudspeaker);
  painter.drawPixmap(place.topLeft(), iconPicture(off ? "mute" : "vol", off ? token("amber") : token("text2"),
                                                  place.width(), devicePixelRatio()));
}

// What comes in above, what it is below. While it runs low a chip says so in place of the title, and flashes.
void GlassPart::drawStream(QPainter& painter) const {
  painter.setFont(scale_.text(kLampText, QFont::DemiBold));
  painter.setPen(toColour(colour_));
  const auto line = [&](const QRectF& units, const std::string& text) {
    const auto box = placedIn(*this, scale_, units);
    painter.drawText(
        box, Qt::AlignCenter,
        QFontMetricsF(painter.font(), this).elidedText(shown(text), Qt::ElideRight, box.width()));
  };
  line(kStreamPlace, stream_.comesIn());
  const auto below = kStreamPlace.translated(0, kStreamPlace.height());
  painter.setPen(toColour(token("text2")));
  if (!stream_.buffer) return line(below, stream_.title);
  const auto chip = placedIn(*this, scale_, below.adjusted(kStreamChipInset, 0, -kStreamChipInset, 0));
  painter.setPen(QPen(toColour(token("amber")), scale_.hairline()));
  painter.setBrush(stream_.bufferLit ? toColour(token("amberLo")) : QColor(Qt::transparent));
  painter.drawRoundedRect(onPixels(chip), 3 * scale_.size(), 3 * scale_.size());
  painter.drawText(chip, Qt::AlignCenter, tr("Buffering"));
}

}  // namespace kvo
