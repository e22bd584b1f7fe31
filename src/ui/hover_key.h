// What all keys do alike: they light up under the pointer, and are pressed by Enter too.
#pragma once

#include <QAbstractButton>

namespace kvo {

class HoverKey : public QAbstractButton {
 public:
  explicit HoverKey(QWidget* parent);

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace kvo
