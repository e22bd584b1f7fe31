// A kind of output as a row to be chosen: its sign, what it is called and what it is good for.
#pragma once

#include "render/output_kinds.h"

#include <QRadioButton>

namespace kvo {

class KindRow final : public QRadioButton {
 public:
  static constexpr QSize kPlace{312, 82};  ///< pixels at size 1

  /// The row outlives the button.
  KindRow(const OutputKindRow& row, QWidget* parent);

  [[nodiscard]] OutputKind kind() const { return row_.kind; }
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  void paintSign(QPainter& painter, bool lit) const;

  const OutputKindRow& row_;
};

}  // namespace kvo
