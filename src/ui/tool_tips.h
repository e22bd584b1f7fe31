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

/// Whether any are shown, those of menus and of texts that are cut among them. They are at first.
void showToolTips(QApplication& application, bool shown);

/// `keys` do what a click on `widget` does: "Ctrl+Z". Empty for none.
void setKeys(QWidget& widget, const QString& keys);

}  // namespace kvo
