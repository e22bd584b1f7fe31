#include "platform/qt/qt_desktop.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QScreen>
#include <QUrl>

namespace kvo {

ScreenFacts QtDesktop::screen() const {
  const auto* first = QGuiApplication::primaryScreen();
  if (first == nullptr) return {};
  const auto size = first->size() * first->devicePixelRatio();
  return {size.width(), size.height(), first->depth(), static_cast<int>(QGuiApplication::screens().size())};
}

bool QtDesktop::openPage(const std::string& address) {
  return QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

}  // namespace kvo
