// Whether the user has told the desktop that little should move, asked over the session bus from the portal
// that knows its settings.
#pragma once

#include "ports/motion.h"

#include <QElapsedTimer>
#include <QObject>
#include <array>
#include <cstddef>
#include <memory>

class QDBusMessage;

namespace kvo {

class BusMotion : public Motion {
 public:
  /// As far as the desktop has told. It is asked at the first call, and again at one that comes ten seconds
  /// later; it is never waited for.
  bool isReduced() override;

 private:
  void ask();
  void answered(std::size_t row, const QDBusMessage& reply);

  QElapsedTimer asked_;
  std::array<bool, 3> isReduced_{};  // by each of the settings that say it
  QObject home_;                     // answers come while it lives
  std::array<std::unique_ptr<QObject>, 3> answers_;
};

}  // namespace kvo
