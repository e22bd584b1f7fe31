#include "adapters/dbus/mpris.h"

#include "adapters/dbus/mpris_properties.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QFile>
#include <QUrl>
#include <array>

namespace kvo {
namespace {

constexpr const char* kBusName = "org.mpris.MediaPlayer2.kvo5";
constexpr const char* kObjectPath = "/org/mpris/MediaPlayer2";
constexpr const char* kPropertiesInterface = "org.freedesktop.DBus.Properties";

// A call of the bus: what it takes, and what it does with it.
struct MprisMethod {
  const char* interface;
  const char* name;
  const char* signature;  // of its arguments, one letter each
  std::array<const char*, 2> arguments;
  void (*call)(MediaRequests& requests, const QList<QVariant>& arguments);
};

void openUri(MediaRequests& requests, const QList<QVariant>& arguments) {
  const QUrl url(arguments[0].toString());
  requests.open(url.isLocalFile() ? QFile::encodeName(url.toLocalFile()).toStdString()
                                  : arguments[0].toString().toStdString());
}

void setPosition(MediaRequests& requests, const QList<QVariant>& arguments) {
  requests.setPosition(trackOf(arguments[0].value<QDBusObjectPath>().path()),
                       toSeconds(arguments[1].toLongLong()));
}

#define ASK(act) \
  [](MediaRequests& requests, const QList<QVariant>& arguments [[maybe_unused]]) { requests.act; }

constexpr std::array kMethods = {
    MprisMethod{kMprisRoot, "Raise", "", {}, ASK(raise())},
    MprisMethod{kMprisRoot, "Quit", "", {}, ASK(quit())},
    MprisMethod{kMprisPlayer, "Next", "", {}, ASK(next())},
    MprisMethod{kMprisPlayer, "Previous", "", {}, ASK(previous())},
    MprisMethod{kMprisPlayer, "Pause", "", {}, ASK(pause())},
    MprisMethod{kMprisPlayer, "PlayPause", "", {}, ASK(playPause())},
    MprisMethod{kMprisPlayer, "Stop", "", {}, ASK(stop())},
    MprisMethod{kMprisPlayer, "Play", "", {}, ASK(play())},
    MprisMethod{kMprisPlayer, "Seek", "x", {"Offset"}, ASK(seek(toSeconds(arguments[0].toLongLong())))},
    MprisMethod{kMprisPlayer, "SetPosition", "ox", {"TrackId", "Position"}, setPosition},
    MprisMethod{kMprisPlayer, "OpenUri", "s", {"Uri"}, openUri},
};

#undef ASK

// Of a second copy of the program, which has another folder.
QString ownName() {
  return QString(kBusName) + ".instance" + QString::number(QCoreApplication::applicationPid());
}

QString introspection(const char* interface) {
  auto xml = QString("  <interface name=\"%1\">\n").arg(interface);
  for (const auto& method : kMethods) {
    if (qstrcmp(method.interface, interface) != 0) continue;
    xml += QString("    <method name=\"%1\">\n").arg(method.name);
    for (std::size_t i = 0; method.signature[i] != '\0'; ++i) {
      xml += QString("      <arg direction=\"in\" name=\"%1\" type=\"%2\"/>\n")
                 .arg(method.arguments[i])
                 .arg(QChar(method.signature[i]));
    }
    xml += "    </method>\n";
  }
  if (qstrcmp(interface, kMprisPlayer) == 0)
    xml += "    <signal name=\"Seeked\">\n      <arg name=\"Position\" type=\"x\"/>\n    </signal>\n";
  for (const auto& property : mprisProperties()) {
    if (qstrcmp(property.interface, interface) != 0) continue;
    xml += QString("    <property name=\"%1\" type=\"%2\" access=\"%3\">\n")
               .arg(property.name, property.type, property.write == nullptr ? "read" : "readwrite");
    if (!property.isSignalled)
      xml +=
          "      <annotation name=\"org.freedesktop.DBus.Property.EmitsChangedSignal\" value=\"false\"/>\n";
    xml += "    </property>\n";
  }
  return xml + "  </interface>\n";
}

}  // namespace

class Mpris::Object : public QDBusVirtualObject {
 public:
  explicit Object(MediaRequests& requests) : requests_(requests) {}

  [[nodiscard]] QString introspect(const QString& path) const override {
    return path == kObjectPath ? introspection(kMprisRoot) + introspection(kMprisPlayer) : QString();
  }

  // The answer goes out ahead of the act: what is asked may end the program, or wait for a box.
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (message.path() != kObjectPath) return false;
    const auto interface = message.interface();
    if (interface == kPropertiesInterface) return handleProperty(message, connection);
    for (const auto& method : kMethods) {
      const bool named = message.member() == method.name;
      if (!named || (!interface.isEmpty() && interface != method.interface)) continue;
      if (message.signature() != method.signature)
        return refuse(message, connection, QDBusError::InvalidArgs);
      connection.send(message.createReply());
      method.call(requests_, message.arguments());
      return true;
    }
    const bool isOurs = interface == kMprisRoot || interface == kMprisPlayer;
    return isOurs && refuse(message, connection, QDBusError::UnknownMethod);
  }

  void tell(const MediaTold& told) {
    if (told == told_) return;
    for (const auto* interface : {kMprisRoot, kMprisPlayer}) {
      QVariantMap changed;
      for (const auto& property : mprisProperties()) {
        if (qstrcmp(property.interface, interface) != 0 || !property.isSignalled) continue;
        const auto value = property.read(told, requests_);
        if (value != property.read(told_, requests_)) changed.insert(property.name, value);
      }
      if (changed.isEmpty()) continue;
      auto signal = QDBusMessage::createSignal(kObjectPath, kPropertiesInterface, "PropertiesChanged");
      signal << interface << changed << QStringList();
      QDBusConnection::sessionBus().send(signal);
    }
    told_ = told;
  }

  static void tellJump(double position) {
    auto signal = QDBusMessage::createSignal(kObjectPath, kMprisPlayer, "Seeked");
    signal << toMicroseconds(position);
    QDBusConnection::sessionBus().send(signal);
  }

 private:
  static bool refuse(const QDBusMessage& message, const QDBusConnection& connection,
                     QDBusError::ErrorType why) {
    connection.send(message.createErrorReply(why, message.member() + " is not asked like this"));
    return true;
  }

  bool handleProperty(const QDBusMessage& message, const QDBusConnection& connection) {
    const auto arguments = message.arguments();
    if (message.member() == "GetAll" && message.signature() == "s") {
      QVariantMap all;
      for (const auto& property : mprisProperties()) {
        if (arguments[0].toString() == property.interface)
          all.insert(property.name, property.read(told_, requests_));
      }
      return connection.send(message.createReply(all));
    }
    const bool sets = message.member() == "Set" && message.signature() == "ssv";
    if (!sets && (message.member() != "Get" || message.signature() != "ss"))
      return refuse(message, connection, QDBusError::InvalidArgs);
    const auto* property = mprisProperty(arguments[0].toString(), arguments[1].toString());
    if (property == nullptr) return refuse(message, connection, QDBusError::UnknownProperty);
    if (!sets)
      return connection.send(
          message.createReply(QVariant::fromValue(QDBusVariant(property->read(told_, requests_)))));
    if (property->write == nullptr) return refuse(message, connection, QDBusError::PropertyReadOnly);
    const bool taken = property->write(requests_, arguments[2].value<QDBusVariant>().variant());
    return taken ? connection.send(message.createReply())
                 : refuse(message, connection, QDBusError::InvalidArgs);
  }

  MediaRequests& requests_;
  MediaTold told_;
};

Mpris::Mpris() = default;

Mpris::~Mpris() {
  if (!object_) return;
  auto bus = QDBusConnection::sessionBus();
  bus.unregisterObject(kObjectPath);
  for (const auto& name : {QString(kBusName), ownName()}) bus.unregisterService(name);
}

bool Mpris::listen(MediaRequests& requests) {
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return false;
  object_ = std::make_unique<Object>(requests);
  if (!bus.registerVirtualObject(kObjectPath, object_.get())) {
    object_.reset();
    return false;
  }
  if (bus.registerService(kBusName) || bus.registerService(ownName())) return true;
  bus.unregisterObject(kObjectPath);
  object_.reset();
  return false;
}

void Mpris::tell(const MediaTold& told) {
  if (object_) object_->tell(told);
}

void Mpris::tellJump(double position) {
  if (object_) Object::tellJump(position);
}

}  // namespace kvo
