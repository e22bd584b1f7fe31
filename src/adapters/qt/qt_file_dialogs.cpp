#include "adapters/qt/qt_file_dialogs.h"

#include "base/paths.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>

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

QString startOf(const FileQuestion& question) {
  return QString::fromStdString(withSeparator(question.folder) + question.name);
}

std::string pathOf(const QString& name) { return QFile::encodeName(name).toStdString(); }

std::optional<std::string> chosen(const QString& name) {
  return name.isEmpty() ? std::nullopt : std::optional(pathOf(name));
}

}  // namespace

std::optional<std::string> QtFileDialogs::open(const FileQuestion& question) {
  const auto filters = filtersOf(question);
  auto first = filters.value(static_cast<qsizetype>(question.filter));
  return chosen(QFileDialog::getOpenFileName(QApplication::activeWindow(),
                                             QString::fromStdString(question.title), startOf(question),
                                             filters.join(";;"), &first));
}

std::vector<std::string> QtFileDialogs::openSeveral(const FileQuestion& question) {
  std::vector<std::string> paths;
  for (const auto& name :
       QFileDialog::getOpenFileNames(QApplication::activeWindow(), QString::fromStdString(question.title),
                                     startOf(question), filtersOf(question).join(";;"))) {
    paths.push_back(pathOf(name));
  }
  return paths;
}

std::optional<std::string> QtFileDialogs::save(const FileQuestion& question) {
  return chosen(QFileDialog::getSaveFileName(QApplication::activeWindow(),
                                             QString::fromStdString(question.title), startOf(question),
                                             filtersOf(question).join(";;")));
}

}  // namespace kvo
