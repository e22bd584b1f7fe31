// Long work as the desktop hears of it: sleep is held off by the login manager, or else the screen saver,
// and notifications go to whoever shows them on the session bus.
#pragma once

#include "adapters/dbus/bus_screen_saver.h"
#include "ports/long_work.h"

#include <QObject>
#include <memory>

class QDBusUnixFileDescriptor;

namespace kvo {

/// Never waits for the desktop; where nobody answers nothing happens.
class LongWorkBus : public LongWork {
 public:
  LongWorkBus();
  ~LongWorkBus() override;

  void keepAwake(const std::string& why) override;
  void letSleep() override;
  void tell(const std::string& title, const std::string& text) override;

 private:
  bool isHeld_ = false;
  // Of the login manager; closed, also by the end of the program, it lets go.
  std::unique_ptr<QDBusUnixFileDescriptor> lock_;
  BusScreenSaver screenSaver_{"A movie is made"};  // a screen that is dark sends many machines to sleep
  QObject home_;                                   // answers come while it lives
  std::unique_ptr<QObject> answer_;                // has the lock as well
};

}  // namespace kvo
