#include "adapters/dbus/bus_screen_saver.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>
#include <utility>

namespace kvo {
namespace {

constexpr const char* kSaver = "org.freedesktop.ScreenSaver";
constexpr const char* kSaverPath = "/org/freedesktop/ScreenSaver";
constexpr const char* kPortal = "org.freedesktop.portal.Desktop";
constexpr uint kIdle = 8;  // of what the portal can hold off: the session counting as idle

}  // namespace

QDBusMessage BusScreenSaver::request(bool ofPortal) const {
  if (!ofPortal)
    return QDBusMessage::createMethodCall(kSaver, kSaverPath, kSaver, "Inhibit") << "KVO5" << reason_;
  auto call = QDBusMessage::createMethodCall(kPortal, "/org/freedesktop/portal/desktop",
                                             "org.freedesktop.portal.Inhibit", "Inhibit");
  return call << QString() << kIdle << QVariantMap{{"reason", reason_}};
}

void BusScreenSaver::inhibit(bool on) {
  wanted_ = on;
  if (on && holder_ == Holder::None) ask(Holder::ScreenSaver);
  if (!on && (holder_ == Holder::ScreenSaver || holder_ == Holder::Portal)) release();
}

void BusScreenSaver::ask(Holder whom) {
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  holder_ = Holder::Asked;
  auto answer =
      std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(request(whom == Holder::Portal)), &home_);
  QObject::connect(answer.get(), &QDBusPendingCallWatcher::finished, &home_,
                   [this, whom](QDBusPendingCallWatcher* done) { answered(whom, done->reply()); });
  answer_.reset(answer.release());
}

void BusScreenSaver::answered(Holder whom, const QDBusMessage& reply) {
  holder_ = Holder::None;
  if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
    if (wanted_ && whom == Holder::ScreenSaver) ask(Holder::Portal);
    return;
  }
  holder_ = whom;
  const auto given = reply.arguments().front();
  if (whom == Holder::ScreenSaver) {
    cookie_ = given.toUInt();
  } else {
    handle_ = given.value<QDBusObjectPath>().path();
  }
  if (!wanted_) release();
}

void BusScreenSaver::release() {
  const bool ofPortal = std::exchange(holder_, Holder::None) == Holder::Portal;
  auto call =
      ofPortal ? QDBusMessage::createMethodCall(kPortal, handle_, "org.freedesktop.portal.Request", "Close")
               : QDBusMessage::createMethodCall(kSaver, kSaverPath, kSaver, "UnInhibit") << cookie_;
  QDBusConnection::sessionBus().send(call);
}

}  // namespace kvo
