// Keeps the screen saver away while the program wants it: asks the desktop's screen saver over the session
// bus, and where there is none to be asked the portal that programs in a sandbox use.
#pragma once

#include "ports/screen_saver.h"

#include <QObject>
#include <QString>
#include <memory>

class QDBusMessage;

namespace kvo {

class BusScreenSaver : public ScreenSaver {
 public:
  /// `reason` is what the desktop may show of it.
  explicit BusScreenSaver(QString reason = "A clip plays") : reason_(std::move(reason)) {}

  /// Never waits for the desktop. Without a session bus nothing happens. What is still held when the program
  /// ends, the desktop lets go of by itself.
  void inhibit(bool on) override;

 private:
  /// Who has been asked, or holds the screen awake.
  enum class Holder { None, Asked, ScreenSaver, Portal };

  struct Later {  // an answer is let go of while it is heard
    void operator()(QObject* answer) const { answer->deleteLater(); }
  };

  void ask(Holder whom);
  void answered(Holder whom, const QDBusMessage& reply);
  void release();

  [[nodiscard]] QDBusMessage request(bool ofPortal) const;

  QString reason_;
  bool wanted_ = false;
  Holder holder_ = Holder::None;
  uint cookie_ = 0;  // of the screen saver
  QString handle_;   // of the portal
  QObject home_;     // answers come while it lives
  std::unique_ptr<QObject, Later> answer_;
};

}  // namespace kvo
