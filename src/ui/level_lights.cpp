#include "ui/level_lights.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr int kTealLights = 6;

}  // namespace

LevelLights::LevelLights(int side, double pitch, QWidget* parent)
    : QWidget(parent), side_(side), pitch_(pitch) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void LevelLights::setLevel(int level) {
  level = std::clamp(level, 0, kLights);
  if (level == level_) return;
  level_ = level;
  setAccessibleDescription(QString::number(level) + " of " + QString::number(kLights));
  update();
}

QSize LevelLights::sizeHint() const {
  return {static_cast<int>(std::ceil(pitch_ * (kLights - 1))) + side_, side_};
}

void LevelLights::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < kLights; ++i) {
    const QRectF light(i * pitch_, 0, side_, side_);
    const bool isTeal = i < kTealLights;
    const bool isLit = i < level_;
    painter.setBrush(toColour(!isLit ? token("unlit") : isTeal ? token("teal") : token("amber")));
    painter.drawRoundedRect(light, 2, 2);
    if (!isLit) continue;
    painter.setBrush(toColour(isTeal ? token("tealHi") : token("focus")));  // the edge that catches the light
    painter.drawRoundedRect(QRectF(light.x() + 1, 0.5, side_ - 2, 1.5), 0.75, 0.75);
  }
}

}  // namespace kvo
