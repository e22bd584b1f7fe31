// Has files looked into by a process of its own, which is kept for the next file. One that does not survive a
// file, or does not answer, is let go of, and the next file gets another.
#pragma once

#include "ports/event_loop.h"
#include "ports/media_looker.h"
#include "ports/processes.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace kvo {

class LookingProcess : public MediaLooker {
 public:
  static constexpr int kPatience = 10000;  ///< milliseconds that a file may take

  struct Ports {
    Processes& processes;
    EventLoop& loop;
    ProcessOrder order;  ///< how the process is started that answers in the words of look_words.h
  };
  explicit LookingProcess(Ports ports) : ports_(std::move(ports)) { ports_.order.hasInput = true; }

  LookAnswer look(const std::string& path, const std::function<bool()>& stopped) override;

 private:
  bool ask(const std::string& path);
  Outcome start();

  Ports ports_;
  std::unique_ptr<Process> process_;
  MediaLook heard_;
  bool answered_ = false;
  bool ended_ = false;
};

}  // namespace kvo
