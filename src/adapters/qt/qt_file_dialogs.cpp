#include "adapters/qt/qt_file_dialogs.h"

#include "base/paths.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>

namespace kvo {
namespace {

QString filterText(const std::vector<FileFilter>& filters) {
  QStringList all;
  for (const auto& f : filters) {
    auto name = QString::fromStdString(f.name);
    all << name.left(name.indexOf(" (")) + " (" + QString::fromStdString(f.patterns) + ")";
  }
  return all.join(";;");
}

QString startOf(const FileQuestion& question) {
  return QString::fromStdString(withSeparator(question.folder) + question.name);
}

std::string pathOf(const QString& name) { return QFile::encodeName(name).toStdString(); }

std::optional<std::string> chosen(const QString& name) {
  return name.isEmpty() ? std::nullopt : std::optional(pathOf(name));
}

}  // namespace

std::optional<std::string> QtFileDialogs::open(const FileQuestion& question) {
  return chosen(QFileDialog::getOpenFileName(QApplication::activeWindow(),
                                             QString::fromStdString(question.title), startOf(question),
                                             filterText(question.filters)));
}

std::vector<std::string> QtFileDialogs::openSeveral(const FileQuestion& question) {
  std::vector<std::string> paths;
  for (const auto& name :
       QFileDialog::getOpenFileNames(QApplication::activeWindow(), QString::fromStdString(question.title),
                                     startOf(question), filterText(question.filters))) {
    paths.push_back(pathOf(name));
  }
  return paths;
}

std::optional<std::string> QtFileDialogs::save(const FileQuestion& question) {
  return chosen(QFileDialog::getSaveFileName(QApplication::activeWindow(),
                                             QString::fromStdString(question.title), startOf(question),
                                             filterText(question.filters)));
}

}  // namespace kvo
