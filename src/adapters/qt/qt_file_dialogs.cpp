#include "adapters/qt/qt_file_dialogs.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QTreeView>
#include <utility>

namespace kvo {
namespace {

QStringList filtersOf(const FileQuestion& question) {
  QStringList all;
  for (const auto& f : question.filters) {
    auto name = QString::fromStdString(f.name);
    all << name.left(name.indexOf(" (")) + " (" + QString::fromStdString(f.patterns) + ")";
  }
  return all;
}

// What the user has chosen; nothing after Cancel. Files are only chosen here, never renamed or deleted.
std::vector<std::string> ask(const FileQuestion& question, QFileDialog::AcceptMode accept,
                             QFileDialog::FileMode mode) {
  QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(question.title));
  dialog.setAcceptMode(accept);
  dialog.setFileMode(mode);
  dialog.setOption(QFileDialog::ReadOnly, accept == QFileDialog::AcceptOpen);
  const auto filters = filtersOf(question);
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(filters.value(static_cast<qsizetype>(question.filter)));
  dialog.setDirectory(QString::fromStdString(question.folder));
  dialog.selectFile(QString::fromStdString(question.name));
  if (auto* rows = dialog.findChild<QTreeView*>("treeView")) {  // Qt's own, where the desktop has none
    constexpr QSize kRoomy(860, 520);
    dialog.resize(kRoomy);
    rows->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    rows->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  }
  std::vector<std::string> paths;
  if (dialog.exec() != QDialog::Accepted) return paths;
  for (const auto& name : dialog.selectedFiles()) paths.push_back(QFile::encodeName(name).toStdString());
  return paths;
}

std::optional<std::string> first(std::vector<std::string> paths) {
  return paths.empty() ? std::nullopt : std::optional(std::move(paths.front()));
}

}  // namespace

std::optional<std::string> QtFileDialogs::open(const FileQuestion& question) {
  return first(ask(question, QFileDialog::AcceptOpen, QFileDialog::ExistingFile));
}

std::vector<std::string> QtFileDialogs::openSeveral(const FileQuestion& question) {
  return ask(question, QFileDialog::AcceptOpen, QFileDialog::ExistingFiles);
}

std::optional<std::string> QtFileDialogs::save(const FileQuestion& question) {
  return first(ask(question, QFileDialog::AcceptSave, QFileDialog::AnyFile));
}

}  // namespace kvo
