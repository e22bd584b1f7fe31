// Processes that do what a test tells them.
#pragma once

#include "ports/processes.h"

#include <string>
#include <utility>
#include <vector>

namespace kvo::test {

class FakeProcesses : public Processes {
 public:
  struct Started {
    ProcessOrder order;
    ProcessHearing hearing;
    std::vector<std::string> written{};
    bool stopped = false;
    bool killed = false;
    bool destroyed = false;
  };
  std::vector<std::shared_ptr<Started>> all;
  std::string refusal;  // why none can be started

  Result<std::unique_ptr<Process>> start(EventLoop& /*loop*/, const ProcessOrder& order,
                                         ProcessHearing hearing) override {
    if (!refusal.empty()) return Error{refusal};
    all.push_back(std::make_shared<Started>(Started{order, std::move(hearing)}));
    return std::unique_ptr<Process>(std::make_unique<Handle>(all.back()));
  }
  [[nodiscard]] int ownNumber() const override { return 77; }

  // The one that was started last.
  [[nodiscard]] Started& last() const { return *all.back(); }
  void say(std::string_view line) const { last().hearing.line(line); }
  void sayError(std::string_view line) const { last().hearing.errorLine(line); }
  void end(int exitCode, int signal = 0) const { last().hearing.ended({exitCode, signal}); }

 private:
  class Handle : public Process {
   public:
    explicit Handle(std::shared_ptr<Started> started) : started_(std::move(started)) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override { started_->destroyed = true; }
    bool write(std::string_view bytes) override {
      started_->written.emplace_back(bytes);
      return true;
    }
    void stop() override { started_->stopped = true; }
    void kill() override { started_->killed = true; }

   private:
    std::shared_ptr<Started> started_;
  };
};

}  // namespace kvo::test
