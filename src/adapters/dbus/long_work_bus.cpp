#include "adapters/dbus/long_work_bus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QVariantMap>

namespace kvo {
namespace {

constexpr const char* kLogin = "org.freedesktop.login1";
constexpr const char* kNotifications = "org.freedesktop.Notifications";

}  // namespace

LongWorkBus::LongWorkBus() = default;
LongWorkBus::~LongWorkBus() = default;

void LongWorkBus::keepAwake(const std::string& why) {
  isHeld_ = true;
  screenSaver_.inhibit(true);
  auto bus = QDBusConnection::systemBus();
  if (!bus.isConnected()) return;
  auto call = QDBusMessage::createMethodCall(kLogin, "/org/freedesktop/login1",
                                             "org.freedesktop.login1.Manager", "Inhibit");
  call << "sleep:idle"
       << "KVO5" << QString::fromStdString(why) << "block";
  auto answer = std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(call), &home_);
  QObject::connect(answer.get(), &QDBusPendingCallWatcher::finished, &home_,
                   [this](QDBusPendingCallWatcher* done) {
                     const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *done;
                     if (isHeld_ && reply.isValid())
                       lock_ = std::make_unique<QDBusUnixFileDescriptor>(reply.value());
                   });
  answer_ = std::move(answer);
}

void LongWorkBus::letSleep() {
  isHeld_ = false;
  lock_.reset();
  answer_.reset();
  screenSaver_.inhibit(false);
}

void LongWorkBus::tell(const std::string& title, const std::string& text) {
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  constexpr int kAsUsual = -1;  // how long it stays
  auto call = QDBusMessage::createMethodCall(kNotifications, "/org/freedesktop/Notifications", kNotifications,
                                             "Notify");
  // The text is markup there.
  call << "KVO5" << 0U << "kvo5" << QString::fromStdString(title)
       << QString::fromStdString(text).toHtmlEscaped() << QStringList() << QVariantMap() << kAsUsual;
  bus.send(call);
}

}  // namespace kvo
