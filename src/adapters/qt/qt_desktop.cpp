#include "adapters/qt/qt_desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>

namespace kvo {
namespace {

constexpr double kPlainDotsPerInch = 96;  // of a screen on which nothing is drawn larger

}  // namespace

ScreenFacts QtDesktop::screen() const {
  const auto* first = QGuiApplication::primaryScreen();
  if (first == nullptr) return {};
  const auto size = first->size() * first->devicePixelRatio();
  const auto text = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  return {size.width(), size.height(), first->depth(), static_cast<int>(QGuiApplication::screens().size()),
          QFontInfo(text).pixelSize()};
}

std::vector<Screen> QtDesktop::screens() const {
  std::vector<Screen> all;
  const auto area = [](const QRect& r) { return ScreenArea{r.left(), r.top(), r.width(), r.height()}; };
  const auto* first = QGuiApplication::primaryScreen();
  for (const auto* screen : QGuiApplication::screens()) {
    const Screen one{screen->name().toStdString(), area(screen->geometry()),
                     area(screen->availableGeometry()), screen->logicalDotsPerInch() / kPlainDotsPerInch};
    all.insert(screen == first ? all.begin() : all.end(), one);
  }
  return all;
}

void QtDesktop::beep() { QApplication::beep(); }

std::string QtDesktop::videosFolder() const {
  for (const auto of :
       {QStandardPaths::MoviesLocation, QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation}) {
    const auto folder = QStandardPaths::writableLocation(of);
    if (!folder.isEmpty() && QFileInfo(folder).isDir()) return QFile::encodeName(folder).toStdString();
  }
  return {};
}

bool QtDesktop::openPage(const std::string& address) {
  return QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

bool QtDesktop::openFile(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

}  // namespace kvo
