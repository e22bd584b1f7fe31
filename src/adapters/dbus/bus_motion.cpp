#include "adapters/dbus/bus_motion.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <algorithm>
#include <memory>

namespace kvo {
namespace {

constexpr qint64 kAskAgain = 10'000;  // milliseconds

// The settings by which desktops say it, and the value that does.
struct MotionRow {
  const char* group;
  const char* key;
  double reduced;
};
constexpr std::array<MotionRow, 3> kMotionRows{{{"org.freedesktop.appearance", "reduced-motion", 1},
                                                {"org.gnome.desktop.interface", "enable-animations", 0},
                                                {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", 0}}};

}  // namespace

bool BusMotion::isReduced() {
  if (!asked_.isValid() || asked_.hasExpired(kAskAgain)) ask();
  return std::ranges::find(isReduced_, true) != isReduced_.end();
}

void BusMotion::ask() {
  asked_.start();
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  for (std::size_t i = 0; i < kMotionRows.size(); ++i) {
    auto call =
        QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                       "org.freedesktop.portal.Settings", "Read");
    call << QString(kMotionRows[i].group) << QString(kMotionRows[i].key);
    auto answer = std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(call));
    QObject::connect(answer.get(), &QDBusPendingCallWatcher::finished, &home_,
                     [this, i](QDBusPendingCallWatcher* done) { answered(i, done->reply()); });
    answers_.at(i) = std::move(answer);
  }
}

// A value, in one or two values of any kind; what the desktop does not know is an error.
void BusMotion::answered(std::size_t row, const QDBusMessage& reply) {
  if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return;
  auto value = reply.arguments().front();
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  bool isNumber = false;
  const double number = value.toDouble(&isNumber);
  isReduced_.at(row) = isNumber && number == kMotionRows.at(row).reduced;
}

}  // namespace kvo
