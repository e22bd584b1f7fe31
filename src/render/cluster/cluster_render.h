// A render whose segments are made by the machines of a Slurm cluster over a shared folder, as an array of
// jobs, and joined here. Nothing here waits: what comes is heard through the loop.
#pragma once

#include "render/cluster/slurm_words.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kvo {

struct ClusterOrder {
  RenderOrder render;     ///< its work folder is the one that is shared; full paths
  std::string profile{};  ///< bytes of a profile file, which is copied there; empty for none
  int shares = 1;         ///< the most jobs at a time
};

enum class ClusterPhase {
  Idle,
  Submitting,
  Making,   ///< the cluster makes segments
  Joining,  ///< all are made; the engine joins them here
  Stopping,
  Done,
  Failed,
  Stopped,
};

struct ClusterRun {
  ClusterPhase phase = ClusterPhase::Idle;
  std::size_t segments = 0;
  std::size_t made = 0;
  int attempt = 1;                  ///< how often what failed has been handed in
  std::vector<std::string> says{};  ///< the last lines of the job that failed last
  std::string failure{};            ///< a line
  bool mayGoOn = false;             ///< jobs may be at work behind the end

  [[nodiscard]] bool ended() const { return phase >= ClusterPhase::Done; }
};

class ClusterRender {
 public:
  struct Ports {
    RenderDriver::Ports engine;  ///< its program lies where the cluster's machines see it, too
    /// The files of the segments of a render whose document stands at `document`.
    std::function<Result<std::vector<std::string>>(const RenderOrder& order, const std::string& document)>
        segmentsOf;
    /// Called ahead of the engine's start here, which holds the output itself.
    std::function<void()> letGo = [] {};
  };

  /// `changed` is called behind each change; it may destroy this when the render has ended.
  ClusterRender(Ports ports, std::function<void()> changed);
  ClusterRender(const ClusterRender&) = delete;
  ClusterRender& operator=(const ClusterRender&) = delete;
  ~ClusterRender() = default;

  /// Fails, with nothing begun, where the shared folder cannot be written and where there are no segments.
  /// Jobs of an earlier start that are still out are followed, ahead of any new ones.
  Outcome start(const ClusterOrder& order);

  /// Takes the jobs back; what is finished stays for the next start. That is over in ten seconds, whether the
  /// cluster answers or not, but in the midst of the joining, which ends as any render.
  void stop();

  [[nodiscard]] const ClusterRun& state() const { return state_; }
  /// The engine's part at the end.
  [[nodiscard]] const EngineRun& joining() const { return driver_.state(); }

 private:
  struct Answer {
    std::vector<std::string> lines;
    std::vector<std::string> errors;
    int exitCode = 0;
  };
  using Heard = std::function<void(const Answer& answer)>;

  Outcome run(const char* program, std::vector<std::string> arguments, Heard heard);
  [[nodiscard]] bool isLate(std::chrono::milliseconds since, std::chrono::milliseconds most) const;
  void tick();
  void look();
  void submit();
  void hearFound(const Answer& answer);
  void handIn();
  void follow(std::string job);
  void hearSubmitted(const Answer& answer);
  void ask();
  void hearAsked(const Answer& answer);
  void hearSilence(const std::string& why);
  void settle();
  void handInAgain(const std::vector<int>& shares);
  void join();
  void hearJoining();
  void takeBack();
  void giveUp();
  void endTaken(bool isBack, const std::string& says = {});
  void end(ClusterPhase phase, std::string failure = {});
  [[nodiscard]] std::vector<int> unfinished() const;
  [[nodiscard]] std::vector<std::string> saidBy(int share) const;
  [[nodiscard]] bool hasFailed(int share) const;

  Ports ports_;
  std::function<void()> changed_;
  RenderDriver driver_;
  std::unique_ptr<Timer> timer_;
  std::unique_ptr<Process> process_;
  ClusterOrder order_;
  std::vector<std::string> segments_;
  std::vector<bool> made_;               // of these
  std::string job_;                      // the array that was handed in last; empty for none
  bool hasEnded_ = false;                // and is at work no more
  std::chrono::milliseconds asked_{};    // when the cluster was asked last
  std::chrono::milliseconds heard_{};    // when it has answered last
  std::chrono::milliseconds ended_{};    // when the array had ended
  std::chrono::milliseconds stopped_{};  // when it was to be taken back
  std::string silence_;                  // why they are taken back, where the user has not stopped it
  ClusterRun state_;
};

}  // namespace kvo
