#include "windows/editor/headed_slider.h"

#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/refusal.h"

#include <QKeyEvent>
#include <QLabel>
#include <QSlider>
#include <utility>

namespace kvo {
namespace {

constexpr int kHeadingHeight = 16;
constexpr int kSliderTop = 12;
constexpr int kSliderHeight = 24;
constexpr int kPageParts = 10;  // page steps along a slider

}  // namespace

HeadedSlider::HeadedSlider(const QString& name, QWidget* parent)
    : QWidget(parent),
      heading_(made<QLabel>(this)),
      value_(made<QLabel>(this)),
      slider_(made<QSlider>(Qt::Horizontal, this)) {
  heading_->setProperty("role", "field");
  value_->setProperty("role", "number");
  value_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  for (auto* label : {heading_, value_}) label->setAttribute(Qt::WA_TransparentForMouseEvents);
  slider_->setAccessibleName(name);
  slider_->setToolTip(name);
  connect(slider_, &QSlider::valueChanged, [this](int value) {
    if (isDrawing_) return;
    hasMoved_ = true;
    if (moved) moved(value);
    if (!slider_->isSliderDown() && !keyIsDown_) endMove();
  });
  connect(slider_, &QSlider::sliderReleased, [this] { endMove(); });
  slider_->installEventFilter(this);
}

void HeadedSlider::endMove() {
  if (std::exchange(hasMoved_, false) && letGo) letGo();
}

bool HeadedSlider::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::KeyPress) keyIsDown_ = true;
  const bool isUp = type == QEvent::KeyRelease && !static_cast<QKeyEvent*>(event)->isAutoRepeat();
  if (isUp || type == QEvent::FocusOut) {
    keyIsDown_ = false;
    endMove();
  }
  return QWidget::eventFilter(watched, event);
}

void HeadedSlider::setDot(Rgb colour) {
  dot_ = colour;
  slider_->setProperty("fill", toColour(colour));
}

void HeadedSlider::draw(const ClipSlider& state, const QString& heading, const QString& value) {
  isDrawing_ = true;
  setTextOf(*heading_, heading);
  setTextOf(*value_, value);
  if (heading_->isEnabled() != state.Enabled) heading_->setEnabled(state.Enabled);
  if (value_->isEnabled() != state.Enabled) value_->setEnabled(state.Enabled);
  setWhyNot(*slider_, state.Enabled ? QString() : told(state.whyNot));
  slider_->setEnabled(state.Enabled);
  slider_->setRange(state.Min, state.Max);
  slider_->setPageStep(std::max(1, (state.Max - state.Min) / kPageParts));
  if (!slider_->isSliderDown() || slider_->value() != state.Value) slider_->setValue(state.Value);
  const auto said = value.isEmpty() ? heading : value;
  if (slider_->accessibleDescription() != said) slider_->setAccessibleDescription(said);
  isDrawing_ = false;
}

void HeadedSlider::layOut() {
  const int high = themed(kHeadingHeight);
  const bool isBare = height() < themed(kHeight);
  heading_->setVisible(!isBare);
  value_->setVisible(!isBare);
  heading_->setGeometry(0, 0, width(), high);
  value_->setGeometry(width() / 2, 0, width() - width() / 2, high);
  slider_->setGeometry(0, isBare ? 0 : themed(kSliderTop), width(), themed(kSliderHeight));
}

void HeadedSlider::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layOut();
}

void HeadedSlider::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) layOut();
  QWidget::changeEvent(event);
}

void HeadedSlider::paintEvent(QPaintEvent* /*event*/) {
  if (!dot_) return;
  QPainter painter(this);
  const Painting kept(painter);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(isEnabled() && slider_->isEnabled() ? *dot_ : token("textOff")));
  const double radius = themed(7) / 2.0;
  const double x = heading_->sizeHint().width() + themed(8) + radius;
  painter.drawEllipse(QPointF(x, themed(kHeadingHeight) / 2.0 + 0.5), radius, radius);
}

}  // namespace kvo
