// A line in which names are looked for; Escape empties it.
#pragma once

#include <QKeyEvent>
#include <QLineEdit>

namespace kvo {

class FindField final : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  /// It tells of that as of what is typed. An empty one leaves the key to the window.
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() != Qt::Key_Escape || text().isEmpty()) return QLineEdit::keyPressEvent(event);
    clear();
    emit textEdited(QString());
  }
};

}  // namespace kvo
