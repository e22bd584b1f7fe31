// The dialog that asks where to save, answered as a user would.
#include "adapters/qt/qt_file_dialogs.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <deque>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(SaveDialog, TakesTheNameThatWasTypedOrSaysWhyNot) {
  const QTemporaryDir folder;
  std::deque<QString> names{"My \"best\" film", "Urlaub \"1\" \u00fc", "My best film"};
  int refusals = 0;
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    auto* front = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(front)) {
      EXPECT_TRUE(box->text().contains("quotation marks")) << box->text().toStdString();
      ++refusals;
      return box->accept();
    }
    auto* dialog = qobject_cast<QFileDialog*>(front);
    if (dialog == nullptr) return;
    if (names.empty()) return dialog->reject();
    auto* line = dialog->findChild<QLineEdit*>("fileNameEdit");
    line->setText(folder.filePath(names.front()));
    names.pop_front();
    // Posted: a box that it opens is answered by this timer, which does not come while it acts.
    QApplication::postEvent(line, new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r"));
  });
  user.start(10);
  QtFileDialogs dialogs;
  const auto path =
      dialogs.save({"Save As", {{"Movie Collections (*.Ini)", "*.ini"}}, folder.path().toStdString(), ""});
  EXPECT_EQ(path, folder.filePath("My best film").toStdString());
  EXPECT_EQ(refusals, 2);
}

}  // namespace
}  // namespace kvo
