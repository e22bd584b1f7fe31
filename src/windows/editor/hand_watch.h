// Tells whether the user holds something in a window: a key, a button of the mouse, or a wheel that has not
// come to rest.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <functional>

class QWidget;

namespace kvo {

class HandWatch final : public QObject {
 public:
  /// `held` hears of each press and each end of one. The window outlives the watch.
  HandWatch(QWidget& window, std::function<void(bool held)> held);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void tell(bool held);
  void pressed(int key);

  QWidget& window_;
  std::function<void(bool)> held_;
  QBasicTimer rest_;  // of the wheel, or of a key
  int key_ = 0;       // that was pressed last
};

}  // namespace kvo
