// What stands back while something else has the window: a veil over a part of it, which lets the mouse
// through.
#pragma once

#include <QWidget>

namespace kvo {

class Veil final : public QWidget {
 public:
  /// Covers `part`, whose child it becomes, whatever size that takes. Hidden at first.
  explicit Veil(QWidget& part);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void cover();
};

}  // namespace kvo
