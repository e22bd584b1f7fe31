#include "adapters/qt/settings_store.h"

#include <QSettings>

namespace kvo {
namespace {

QString keyOf(std::string_view name) {
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

std::string SettingsStore::read(std::string_view name) const {
  QSettings settings(QSettings::NativeFormat, QSettings::UserScope, "Tarnwick", "KVO5");
  settings.sync();
  return settings.value(keyOf(name)).toString().toStdString();
}

void SettingsStore::write(std::string_view name, std::string_view text) {
  QSettings settings(QSettings::NativeFormat, QSettings::UserScope, "Tarnwick", "KVO5");
  settings.setValue(keyOf(name), keyOf(text));
  settings.sync();
}

}  // namespace kvo
