// The program as its user meets it: a process that is asked for a property over the bus all the time. How
// long it takes to answer is how long it does not hear a click. For benches, on a screen and a bus of their
// own.
#pragma once

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace kvo::bench {

class AskedProgram {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr auto kGiveUp = std::chrono::minutes(5);

  AskedProgram(const QString& program, const QStringList& arguments) { process_.start(program, arguments); }
  ~AskedProgram() {
    process_.kill();
    process_.waitForFinished();
  }

  /// False when it does not come within kGiveUp.
  [[nodiscard]] static bool isThere() {
    const auto& bus = *QDBusConnection::sessionBus().interface();
    for (const auto begun = Clock::now(); !bus.isServiceRegistered(kName).value();) {
      if (Clock::now() - begun > kGiveUp) return false;
      std::this_thread::sleep_for(kAskEvery);
    }
    return true;
  }

  /// Asks until `enough` says so of an answer; false when that takes longer than kGiveUp.
  template <class Enough>
  bool askUntil(const Enough& enough) {
    for (const auto begun = Clock::now(); Clock::now() - begun < kGiveUp;) {
      const auto asked = Clock::now();
      const double worked = busyMilliseconds();
      const bool canPlay = ask("CanPlay").toBool();
      waits_.push_back(milliseconds(asked));
      work_ = std::max(work_, busyMilliseconds() - worked);
      if (enough(canPlay)) return true;
      std::this_thread::sleep_for(kAskEvery);
    }
    return false;
  }

  /// The milliseconds that a part (0 to 1) of the answers since the last call of forget() came within.
  [[nodiscard]] double within(double part) {
    if (waits_.empty()) return 0;
    std::sort(waits_.begin(), waits_.end());
    return waits_[static_cast<std::size_t>(part * static_cast<double>(waits_.size() - 1))];
  }
  /// The milliseconds of CPU that the window's thread has had at the most between a question and its answer:
  /// what the longest wait comes to where nothing else runs.
  [[nodiscard]] double longestWork() const { return work_; }
  void forget() {
    waits_.clear();
    work_ = 0;
  }
  [[nodiscard]] std::size_t asked() const { return waits_.size(); }
  [[nodiscard]] qint64 id() const { return process_.processId(); }

  static double milliseconds(Clock::time_point since) {
    return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
  }

 private:
  static constexpr const char* kName = "org.mpris.MediaPlayer2.kvo5";
  static constexpr auto kAskEvery = std::chrono::milliseconds(4);
  static constexpr int kBusPatience = 60000;  // milliseconds

  static QVariant ask(const QString& property) {
    auto call = QDBusMessage::createMethodCall(kName, "/org/mpris/MediaPlayer2",
                                               "org.freedesktop.DBus.Properties", "Get");
    call.setArguments({"org.mpris.MediaPlayer2.Player", property});
    const auto answer = QDBusConnection::sessionBus().call(call, QDBus::Block, kBusPatience);
    return answer.arguments().isEmpty() ? QVariant()
                                        : answer.arguments().first().value<QDBusVariant>().variant();
  }

  // That the window's thread has had in all.
  [[nodiscard]] double busyMilliseconds() const {
    const auto id = std::to_string(process_.processId());
    std::ifstream file("/proc/" + id + "/task/" + id + "/schedstat");
    double nanoseconds = 0;
    file >> nanoseconds;
    return nanoseconds / 1e6;
  }

  QProcess process_;
  std::vector<double> waits_;
  double work_ = 0;
};

}  // namespace kvo::bench
