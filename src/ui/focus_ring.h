// The ring about the widget that has the keyboard, shown when the keyboard brought it there and not the
// mouse.
#pragma once

#include <QFocusFrame>
#include <QObject>
#include <QPointer>

class QApplication;

namespace kvo {

class FocusRing : public QObject {
 public:
  /// Becomes the application's child. One is enough.
  explicit FocusRing(QApplication& application);
  ~FocusRing() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void show(QWidget& widget, bool byKeyboard);
  void hide();

  QPointer<QFocusFrame> frame_;   // lives in the window that it is shown in, and may go with it
  bool lastInputWasKey_ = false;  // nor is the first window's focus the keyboard's doing
};

/// True where `widget` has to draw that it has the focus.
bool showsFocus(const QWidget& widget);

}  // namespace kvo
