// A process that makes sketches, one at a time, and the orders that wait for it. It comes with the first
// order and goes when there has been none for a while; one that does not survive an order, or is silent for
// too long, is let go of, and that order has no sketch.
#pragma once

#include "ports/event_loop.h"
#include "ports/processes.h"
#include "sketches/sketch_words.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kvo {

class SketchProcess {
 public:
  static constexpr int kSketchPatience = 10000;  ///< milliseconds without a line
  static constexpr int kSketchRest = 20000;      ///< milliseconds without an order until the process goes
  static constexpr std::size_t kMostWanted = 64;

  struct Ports {
    Processes& processes;
    EventLoop& loop;
    ProcessOrder order;  ///< how the process is started that answers in the words of sketch_words.h
  };
  using Heard = std::function<void(const SketchOrder&, const std::string& data)>;

  /// `heard` is told of each order that has been carried out, or cannot be: without data there is nothing of
  /// it. What `ports` names outlives the object.
  SketchProcess(Ports ports, Heard heard);

  /// Puts an order ahead of all that wait, and a quiet one behind them. Of more than kMostWanted the oldest
  /// are forgotten, but no quiet ones.
  void want(const SketchOrder& order);

 private:
  void next();
  bool start();
  void hear(std::string_view line);
  void finish();
  void lose();
  void tick();

  Ports ports_;
  Heard heard_;
  std::unique_ptr<Process> process_;
  std::deque<SketchOrder> wanted_;  // the next one in front
  std::deque<SketchOrder> later_;
  std::optional<SketchOrder> atWork_;
  std::string data_;                  // of the order at work
  std::chrono::milliseconds last_{};  // that something was heard or ordered
  std::unique_ptr<Timer> timer_;      // runs while there is a process
};

}  // namespace kvo
