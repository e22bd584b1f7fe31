#include "adapters/qt/qt_file_dialogs.h"

#include "ports/translations.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QTreeView>
#include <utility>

namespace kvo {
namespace {

QString told(const std::string& text) { return QCoreApplication::translate(kTextContext, text.c_str()); }

// Dialogs of a desktop may tell capitals from small letters.
QString inEachCase(const std::string& patterns) {
  QStringList all;
  for (const auto& pattern : QString::fromStdString(patterns).split(' ', Qt::SkipEmptyParts)) {
    all << pattern.toLower() << pattern.toUpper();
  }
  all.removeDuplicates();
  return all.join(' ');
}

QStringList filtersOf(const FileQuestion& question) {
  QStringList all;
  for (const auto& filter : question.filters) {
    all << told(filter.name).trimmed() + " (" + inEachCase(filter.patterns) + ")";
  }
  return all;
}

// Which of them a dialog names, which may leave out the patterns.
std::size_t placeOf(const QString& named, const QStringList& filters) {
  for (qsizetype i = 0; i < filters.size(); ++i) {
    if (filters[i] == named || filters[i].startsWith(named.trimmed() + " ("))
      return static_cast<std::size_t>(i);
  }
  return 0;
}

// Qt's own dialog takes quotation marks for a list of names, of which a save would use the first.
class AskingDialog : public QFileDialog {
  Q_DECLARE_TR_FUNCTIONS(kvo::QtFileDialogs)

 public:
  using QFileDialog::QFileDialog;

 protected:
  void accept() override {
    const auto* typed = findChild<QLineEdit*>("fileNameEdit");
    if (acceptMode() != AcceptSave || typed == nullptr || !typed->text().contains('"'))
      return QFileDialog::accept();
    QMessageBox::warning(this, windowTitle(),
                         tr("A name cannot have quotation marks (\") in it.\nPlease leave them out."));
  }
};

// Files are only chosen here, never renamed or deleted.
FileChoice ask(const FileQuestion& question, QFileDialog::AcceptMode accept, QFileDialog::FileMode mode) {
  AskingDialog dialog(QApplication::activeWindow(), told(question.title));
  dialog.setAcceptMode(accept);
  dialog.setFileMode(mode);
  dialog.setOption(QFileDialog::ReadOnly, accept == QFileDialog::AcceptOpen);
  dialog.setOption(QFileDialog::HideNameFilterDetails);  // the names tell as much as is to be told
  dialog.setOption(QFileDialog::DontConfirmOverwrite, question.mayExist);
  const auto filters = filtersOf(question);
  if (!filters.empty()) {
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(static_cast<qsizetype>(question.filter)));
  }
  dialog.setDirectory(QString::fromStdString(question.folder));
  dialog.selectFile(QString::fromStdString(question.name));
  if (auto* rows = dialog.findChild<QTreeView*>("treeView")) {  // Qt's own, where the desktop has none
    constexpr QSize kRoomy(860, 520);
    dialog.resize(kRoomy);
    rows->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    rows->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  }
  FileChoice choice{{}, question.filter};
  if (dialog.exec() != QDialog::Accepted) return choice;
  choice.filter = placeOf(dialog.selectedNameFilter(), filters);
  for (const auto& name : dialog.selectedFiles())
    choice.paths.push_back(QFile::encodeName(name).toStdString());
  return choice;
}

std::optional<std::string> first(FileChoice choice) {
  return choice.paths.empty() ? std::nullopt : std::optional(std::move(choice.paths.front()));
}

}  // namespace

std::optional<std::string> QtFileDialogs::open(const FileQuestion& question) {
  return first(ask(question, QFileDialog::AcceptOpen, QFileDialog::ExistingFile));
}

FileChoice QtFileDialogs::openSeveral(const FileQuestion& question) {
  return ask(question, QFileDialog::AcceptOpen, QFileDialog::ExistingFiles);
}

std::optional<std::string> QtFileDialogs::openFolder(const FileQuestion& question) {
  return first(ask(question, QFileDialog::AcceptOpen, QFileDialog::Directory));
}

std::optional<std::string> QtFileDialogs::save(const FileQuestion& question) {
  return first(ask(question, QFileDialog::AcceptSave, QFileDialog::AnyFile));
}

}  // namespace kvo
