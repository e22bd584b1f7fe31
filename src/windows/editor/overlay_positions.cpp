#include "windows/editor/overlay_positions.h"

#include "editor/compiler/picture_in_picture.h"
#include "ui/hover_key.h"
#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QButtonGroup>

namespace kvo {
namespace {

constexpr int kPositionColumns = 5;
constexpr int kPositionGap = 4;
constexpr int kPositionInset = 2;

class PositionKey final : public HoverKey {
 public:
  PositionKey(int position, QWidget* parent) : HoverKey(parent), position_(position) { setCheckable(true); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const Painting kept(painter);
    const bool lit = isChecked() && isEnabled();
    painter.setPen(QPen(toColour(lit                           ? token("teal")
                                 : underMouse() && isEnabled() ? token("line3")
                                                               : token("line2")),
                        lit ? themed(3) / 2.0 : 1));
    painter.setBrush(toColour(lit ? token("tealBg") : token("ink0")));
    painter.drawRoundedRect(onPixels(rect()), themed(4), themed(4));
    const int inset = themed(kPositionInset);
    const QRectF frame = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    const auto box = overlayBox(position_, frame.width(), frame.height());
    const QRectF overlay(frame.x() + box.offsetX, frame.y() + box.offsetY, box.width, box.height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(toColour(!isEnabled() ? token("line2") : lit ? token("tealHi") : token("line3")));
    painter.drawRoundedRect(overlay & frame, 1, 1);
  }

 private:
  int position_;
};

}  // namespace

OverlayPositions::OverlayPositions(QWidget* parent) : QWidget(parent) {
  auto* group = made<QButtonGroup>(this);
  for (const auto name : overlayPositionNames()) {
    const int position = static_cast<int>(keys_.size()) + 1;
    auto* key = made<PositionKey>(position, this);
    key->setAccessibleName(told(std::string(name)));
    key->setToolTip(told(std::string(name)));
    group->addButton(key);
    connect(key, &QAbstractButton::clicked, [this, position] {
      if (chosen) chosen(position);
    });
    keys_.push_back(key);
  }
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the widget owns its group

void OverlayPositions::draw(int position, bool enabled) {
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    keys_[i]->setEnabled(enabled);
    if (static_cast<int>(i) + 1 == position && !keys_[i]->isChecked()) keys_[i]->setChecked(true);
  }
}

void OverlayPositions::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int gap = themed(kPositionGap);
  const int rows = (static_cast<int>(keys_.size()) + kPositionColumns - 1) / kPositionColumns;
  const int wide = (width() - gap * (kPositionColumns - 1)) / kPositionColumns;
  const int high = (height() - gap * (rows - 1)) / rows;
  for (int i = 0; i < static_cast<int>(keys_.size()); ++i)
    keys_[static_cast<std::size_t>(i)]->setGeometry(i % kPositionColumns * (wide + gap),
                                                    i / kPositionColumns * (high + gap), wide, high);
}

}  // namespace kvo
