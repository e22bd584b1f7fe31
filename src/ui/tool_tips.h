// Tool tips with the keys that do the same as what they stand on: the text, and the keys in a chip behind it.
#pragma once

#include <QObject>
#include <QString>

class QApplication;
class QWidget;

namespace kvo {

class ToolTips : public QObject {
 public:
  /// Becomes the application's child. One is enough.
  explicit ToolTips(QApplication& application);
  bool eventFilter(QObject* watched, QEvent* event) override;
};

/// `keys` do what a click on `widget` does: "Ctrl+Z". Empty for none.
void setKeys(QWidget& widget, const QString& keys);

}  // namespace kvo
