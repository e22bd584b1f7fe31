#include "adapters/qt/qt_boxes.h"

#include "base/text.h"

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>

namespace kvo {
namespace {

QString shown(const std::string& text) { return QString::fromStdString(replaced(text, kCrLf, "\n")); }

QMessageBox::StandardButtons buttonsOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

QMessageBox::Icon iconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Warning:
      return QMessageBox::Warning;
    case BoxIcon::Critical:
      return QMessageBox::Critical;
    default:
      return QMessageBox::Information;
  }
}

Answer answerOf(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Cancel:
      return Answer::Cancel;
    default:
      return Answer::Ok;
  }
}

void prepare(QMessageBox& box, const std::string& caption, const std::string& text, BoxButtons buttons) {
  box.setWindowTitle(QString::fromStdString(caption));
  box.setTextFormat(Qt::PlainText);
  box.setText(shown(text));
  box.setStandardButtons(buttonsOf(buttons));
  box.setDefaultButton(defaultAnswer(buttons) == Answer::Yes ? QMessageBox::Yes : QMessageBox::Ok);
}

int run(QMessageBox& box, QDialog*& open) {
  auto* const outer = open;
  open = &box;
  const int button = box.exec();
  open = outer;
  return button;
}

}  // namespace

Answer QtBoxes::show(const Box& box) {
  QMessageBox window(QApplication::activeWindow());
  prepare(window, box.caption, box.text, box.buttons);
  window.setIcon(iconOf(box.icon));
  for (const auto& [from, to] : box.renamed) {
    for (auto* button : window.buttons()) {
      if (button->text().remove('&') == QString::fromStdString(from))
        button->setText(QString::fromStdString(to));
    }
  }
  return answerOf(run(window, open_));
}

StyledAnswer QtBoxes::showStyled(const StyledBox& box) {
  QMessageBox window(QApplication::activeWindow());
  prepare(window, box.caption, box.message, box.yesAndNo ? BoxButtons::YesNo : BoxButtons::Ok);
  window.setInformativeText(shown(box.prompt));
  QCheckBox neverAgain(QObject::tr("Do not show this message again"));
  if (box.offersNeverAgain) window.setCheckBox(&neverAgain);
  const auto answer = answerOf(run(window, open_));
  if (box.offersNeverAgain) window.setCheckBox(nullptr);
  return {answer, neverAgain.isChecked()};
}

void QtBoxes::answerOpenBox() {
  auto* const window = qobject_cast<QMessageBox*>(open_);
  if (window != nullptr && window->defaultButton() != nullptr) window->defaultButton()->click();
}

}  // namespace kvo
