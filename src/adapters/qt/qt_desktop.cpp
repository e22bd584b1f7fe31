#include "adapters/qt/qt_desktop.h"

#include <QDesktopServices>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>

namespace kvo {

ScreenFacts QtDesktop::screen() const {
  const auto* first = QGuiApplication::primaryScreen();
  if (first == nullptr) return {};
  const auto size = first->size() * first->devicePixelRatio();
  return {size.width(), size.height(), first->depth(), static_cast<int>(QGuiApplication::screens().size())};
}

std::string QtDesktop::videosFolder() const {
  return QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::MoviesLocation)).toStdString();
}

bool QtDesktop::openPage(const std::string& address) {
  return QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

}  // namespace kvo
