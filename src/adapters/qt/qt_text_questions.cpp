#include "adapters/qt/qt_text_questions.h"

#include <QApplication>
#include <QInputDialog>

namespace kvo {

std::optional<std::string> QtTextQuestions::ask(const std::string& title, const std::string& prompt) {
  constexpr int kRoomForAddress = 480;  // pixels
  QInputDialog dialog(QApplication::activeWindow());
  dialog.setWindowTitle(QString::fromStdString(title));
  dialog.setLabelText(QString::fromStdString(prompt).trimmed());
  dialog.resize(kRoomForAddress, dialog.sizeHint().height());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.textValue().trimmed().toStdString();
}

}  // namespace kvo
